// Lines, numbers and patterns of scripts, read the slow way.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "script/ports.h"

namespace ferry::script::literal {

/// The most units of a line; what stands behind them is not seen.
inline constexpr std::size_t kLongestLine = 32767;

/// The most units of any text that a script makes.
inline constexpr std::size_t kLongestText = 1048576;

/// The most variables that scripts have together.
inline constexpr std::size_t kMostVariables = 65536;

/// The most items that a script selects.
inline constexpr std::size_t kMostItems = 1048576;

/// A file that is read unit by unit, two bytes of UTF-16LE each; a mark at its start is read over.
class UnitFile {
public:
    explicit UnitFile(std::unique_ptr<InFile> file) : file_(std::move(file)) {}

    /// The next unit; nothing at the end, where an odd last byte is left over.
    std::optional<wchar_t> Next();

private:
    std::optional<wchar_t> Unit();

    std::unique_ptr<InFile> file_;
    bool isAtStart_ = true;
};

/// The next line without its end; nothing when no unit is left.
std::optional<std::wstring> NextLine(UnitFile& file);

/// The lines of a script as they are written, each up to a NUL and to its longest.
std::vector<std::wstring> ScriptLines(std::unique_ptr<InFile> file);

/// `line` with blanks for tabs, without white space at both ends.
std::wstring Normalised(std::wstring line);

/// The pieces of `text` between single blanks, the first one never empty in a normalised line.
std::wstring FirstWord(const std::wstring& text);

/// What stands behind the first word, without white space at both ends.
std::wstring BehindFirstWord(const std::wstring& line);

/// `text` without white space at both ends.
std::wstring Trimmed(const std::wstring& text);

/// `text` in small letters.
std::wstring Small(const std::wstring& text);

/// Whether both are equal, capitals and small letters alike.
bool IsSame(const std::wstring& one, const std::wstring& other);

/// The pieces of `text` between commas; none of an empty text.
std::vector<std::wstring> Pieces(const std::wstring& text);

/// `text` with `to` for every `from`, from left to right; not looked at again.
std::wstring Replaced(const std::wstring& text, const std::wstring& from, const std::wstring& to);

/// How many units `Replaced` would give.
std::size_t ReplacedSize(const std::wstring& text, const std::wstring& from, const std::wstring& to);

/// A number of 32 bits at the start of `text`.
std::int32_t Number(const std::wstring& text);

/// A number of 64 bits at the start of `text`; where an "x" is in it, one of 32 bits, hexadecimal behind "0x"
/// and octal behind "0".
std::int64_t LongNumber(const std::wstring& text);

/// The number of 32 bits at the start of `text`, hexadecimal behind "0x", octal behind "0".
std::int32_t NumberOfAnyBase(const std::wstring& text);

/// A hexadecimal text in decimal, blanks anywhere in it; any other text as it is.
std::wstring NumberInDecimal(const std::wstring& text);

/// Whether the whole `text` is as `pattern` has it: "*" for any text, "?" for one unit.
bool IsLike(const std::wstring& text, const std::wstring& pattern);

}  // namespace ferry::script::literal
