// The variables of a run: texts with names, and their place in other texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "script/name_index.h"
#include "script/numbers.h"
#include "script/source.h"

namespace ferry::script {

/// What a declaration says: a name, and what stands in brackets behind it.
struct DeclarationParts {
    std::wstring_view Name;
    std::optional<std::wstring_view> Bracket;
};

/// Takes the text of a declaration apart; nothing when it has no name or its bracket does not close.
std::optional<DeclarationParts> SplitDeclaration(std::wstring_view text) noexcept;

/// The name of an element: NAME[KEY].
std::wstring ElementName(std::wstring_view name, std::wstring_view key);

/// Why a name cannot be declared.
enum class NameFault : std::uint8_t {
    None,
    Reserved,
    Declared,
    InsideOther,  ///< A declared name contains it.
    HoldsOther,   ///< It contains a declared name.
    TooMany,      ///< There are as many variables as there may be.
};

/// What is wrong with a name, and the first declared variable that it has to do with.
struct NameCheck {
    NameFault Fault = NameFault::None;
    std::uint32_t Other = NameIndex::kNone;
};

/// The variables, numbered in the order of their declaration. No name contains another, since names are
/// replaced wherever they stand. A value that came out of a sum is kept as a number until a text is asked
/// for.
class Variables {
public:
    /// The number of variables.
    std::size_t Count() const noexcept { return variables_.size(); }

    /// Whether `name` may be declared.
    NameCheck Check(std::wstring_view name) const;

    /// Declares `name`, which may be, with an empty value.
    void Declare(std::wstring_view name);

    /// The variable called `name`; NameIndex::kNone when there is none.
    std::uint32_t Find(std::wstring_view name) const noexcept { return names_.Find(name); }

    const std::wstring& Name(std::uint32_t variable) const noexcept { return variables_[variable].Name; }

    /// The value.
    const std::wstring& Text(std::uint32_t variable) const;

    /// The value if it is the decimal form of a number.
    std::optional<std::int64_t> Number(std::uint32_t variable) const noexcept;

    /// Sets the value; false, and nothing changes, when all values together would get too long.
    bool SetText(std::uint32_t variable, std::wstring_view text);
    void SetNumber(std::uint32_t variable, std::int64_t number) noexcept;

    /// Puts `text` behind the value; the same.
    bool Append(std::uint32_t variable, std::wstring_view text);

    /// Replaces the names in `text` by their values, in the order of declaration, and those in the values in
    /// turn, up to kMaxSubstitutionPasses times. False when the text gets too long.
    bool Substitute(std::wstring& text) const;

    /// Finds out which names are in `text`, unless that is known.
    void Prepare(PreparedText& text) const noexcept;

    /// Whether a name may stand in the decimal form of a number with an operator before it.
    bool HasNumberLikeName() const noexcept { return hasNumberLikeName_; }

private:
    struct Variable {
        std::wstring Name;
        mutable std::wstring Text;
        std::int64_t Number = 0;
        mutable bool HasText = true;
        bool HasNumber = false;
    };

    struct Due;
    Due NextDue(std::wstring_view text, std::int64_t last) const;
    PreparedText::Names NamesIn(std::wstring_view text, std::uint32_t& variable) const noexcept;
    std::uint32_t FirstHolding(std::wstring_view name) const;
    std::uint32_t FirstInside(std::wstring_view name) const noexcept;
    bool TakeRoom(std::size_t before, std::size_t after) noexcept;

    std::vector<Variable> variables_;
    NameIndex names_;
    std::wstring allNames_;  ///< Each followed by a NUL.
    std::vector<std::size_t> begins_;
    std::size_t longestName_ = 0;
    std::size_t room_ = 0;  ///< The units of all values that are kept as texts.
    bool hasNumberLikeName_ = false;
};

inline const std::wstring& Variables::Text(std::uint32_t variable) const {
    const Variable& it = variables_[variable];
    if (!it.HasText) {
        WriteNumber(it.Text, it.Number);
        it.HasText = true;
    }
    return it.Text;
}

inline std::optional<std::int64_t> Variables::Number(std::uint32_t variable) const noexcept {
    const Variable& it = variables_[variable];
    if (it.HasNumber) {
        return it.Number;
    }
    return std::nullopt;
}

inline void Variables::Prepare(PreparedText& text) const noexcept {
    if (text.Which == PreparedText::Names::Unknown || text.KnownFor != variables_.size()) {
        text.Which = NamesIn(text.Text, text.Variable);
        text.KnownFor = variables_.size();
    }
}

}  // namespace ferry::script
