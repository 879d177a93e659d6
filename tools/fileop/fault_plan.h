// Faults that are made on purpose: which of the items that a process handles goes wrong, and how.
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ferry::fileop {

/// What happens to one item instead of, or before, the real thing.
struct Fault {
    std::uint32_t Place = 0;       ///< The item's place among all items, from 1.
    bool Fails = false;            ///< The item fails quietly and stays untouched.
    bool FailsWithWindow = false;  ///< The same, told to the person in the error window.
    bool Aborts = false;           ///< The run stops before the item, as after a cancel.
    std::uint32_t WaitMs = 0;      ///< How long to wait first, in milliseconds.
};

/// The text's rules, or nothing when the text does not follow the grammar:
///
///     plan  = "" | rule *("," rule)
///     rule  = ("fail" | "error" | "abort") "@" place | "slow" "@" place ":" milliseconds
///     place = number from 1 | "*" for every item
///
/// Blanks around a rule are allowed. Several rules may name the same item.
class FaultRules {
public:
    /// Parses `text`; a number has at most nine digits.
    static std::optional<FaultRules> Parse(std::wstring_view text);

    /// What the rules say about the `place`-th item, counted from 1.
    Fault At(std::uint32_t place) const noexcept;

private:
    enum class Kind { Fail, Error, Abort, Slow };

    struct Rule {
        Kind What = Kind::Fail;
        std::uint32_t Place = 0;  ///< 0: every item.
        std::uint32_t WaitMs = 0;
    };

    static std::optional<Rule> ParseRule(std::wstring_view text);

    std::vector<Rule> rules_;
};

/// Counts items over all operations of a process and says what is to happen to each. Any thread
/// may call it.
class FaultPlan {
public:
    /// Takes the rules of `text`. The count goes on when the text is the same as before and
    /// starts anew when it is not. False when the text is not understood: then nothing fails.
    bool Load(std::wstring_view text);

    /// Counts one more item and says what is to happen to it.
    Fault Next();

private:
    std::mutex guard_;
    std::wstring text_;
    FaultRules rules_;
    bool isUnderstood_ = true;
    std::uint32_t count_ = 0;
};

}  // namespace ferry::fileop
