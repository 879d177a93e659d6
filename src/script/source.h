// A script's text as statements: lines read, normalised and classified once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "script/conditions.h"
#include "script/words.h"

namespace ferry::script {

/// What a line is.
enum class LineKind : std::uint8_t {
    Nothing,  ///< Empty, a comment, or "updatestate".
    Debug,
    End,
    Label,
    CloseFile,
    EmptySelection,
    If,
    Else,
    EndIf,
    For,
    Next,
    Do,
    While,
    Continue,
    Break,
    Goto,
    Declaration,
    Exit,
    ExitAll,
    Option,
    Command,
    Assignment,
    Unknown,
};

/// A piece of a statement in which variables and words are replaced whenever it is used, and what is known of
/// the names in it.
struct PreparedText {
    std::wstring_view Text;
    bool HasMarks = false;  ///< There is a question mark or a percent sign in it.

    /// The number whose decimal form the text is, but for white space around it and an operator before it.
    std::optional<std::int64_t> Number;

    /// Where names of variables are in the text.
    enum class Names : std::uint8_t {
        Unknown,
        None,
        One,   ///< One, which is all of the text but white space around it.
        Last,  ///< One, which is all of the text but its first unit.
        Some,
    };
    Names Which = Names::Unknown;
    std::uint32_t Variable = 0;  ///< The one.
    std::size_t KnownFor = 0;    ///< How many variables there were when this was found out.
};

/// One line, classified. The texts are views into the script.
struct Line {
    LineKind Kind = LineKind::Nothing;
    bool HasRunWords = false;  ///< It holds words that the run replaces before the line is classified.
    bool HasEquals = false;    ///< A command is followed by "=".
    std::size_t Number = 0;    ///< Counted from 1.
    std::size_t Column = 0;    ///< Where Text begins in the file's line, from 0.
    std::wstring_view Text;    ///< The whole line without what is around it.
    std::wstring_view Name;    ///< Of a label, a declaration or the variable that is assigned to.
    PreparedText Argument;   ///< What stands behind the "=" or the first word; of a condition the left side.
    PreparedText RightSide;  ///< Of a condition.
    Operator Compare = Operator::None;      ///< Of a condition; None for text that is no condition.
    std::optional<std::uint32_t> Variable;  ///< The variable that is assigned to, once it is known.
    const CommandWord* Command = nullptr;
    const OptionWord* Option = nullptr;
};

/// The next line of `rest`, which loses it with its line end: no longer than a line may be, and no further
/// than a NUL.
std::wstring_view TakeRawLine(std::wstring_view& rest) noexcept;

/// `text`, without tabs and without what is around it, as a line. `number` and `column` say where it stands.
Line ClassifyLine(std::wstring_view text, std::size_t number, std::size_t column);

/// The name that a label line or a goto gives: without the ":" at its end and blanks around.
std::wstring_view LabelName(std::wstring_view text) noexcept;

/// Whether `unit` at the start of an assigned text makes it an operation with numbers.
constexpr bool IsNumberOperator(wchar_t unit) noexcept {
    return unit == L'+' || unit == L'-' || unit == L'*' || unit == L'/' || unit == L'%';
}

/// The word that stands for the number of selected items, and those for the script's name and folder. They
/// are replaced before a line is classified.
inline constexpr std::wstring_view kSelectedCountWord = L"?SelectedCount?";
inline constexpr std::wstring_view kScriptNameWord = L"?ScriptName?";
inline constexpr std::wstring_view kScriptPathWord = L"?ScriptPath?";

/// A script's text, taken apart.
class Source {
public:
    /// Takes over `text`, a file's units without a mark at their start.
    explicit Source(std::wstring text);
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;
    ~Source() = default;

    /// The lines up to the one that ends the script, in order, without those that are nothing. Labels and
    /// "debug" are among them.
    std::span<Line> Lines() noexcept { return lines_; }
    std::span<const Line> Lines() const noexcept { return lines_; }

    /// Whether a line has a word that stands for a part of the selected item.
    bool WorksOnSelection() const noexcept { return worksOnSelection_; }

private:
    bool TakeLine(std::wstring_view text);

    std::wstring text_;
    std::vector<Line> lines_;
    std::size_t count_ = 0;
    bool worksOnSelection_ = false;
};

}  // namespace ferry::script
