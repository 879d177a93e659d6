// Lines, numbers and patterns of scripts, read the slow way.
#include "core/script/literal/literal_text.h"

#include <algorithm>
#include <limits>
#include <span>

#include "base/case_order.h"
#include "base/text.h"

namespace ferry::script::literal {
namespace {

constexpr wchar_t kMark = 0xFEFF;

bool IsHexDigit(wchar_t unit) {
    return base::IsDigit(unit) || (unit >= L'a' && unit <= L'f') || (unit >= L'A' && unit <= L'F');
}

/// Whether the C library of Windows, which knows the decimal digits of every script, reads it.
bool IsReadDigit(wchar_t unit) {
    return IsHexDigit(unit) || base::DigitOf(unit) != base::kNoDigit;
}

unsigned HexValue(wchar_t unit) {
    if (base::DigitOf(unit) != base::kNoDigit)
        return static_cast<unsigned>(base::DigitOf(unit));
    return static_cast<unsigned>(base::LowerAscii(unit) - L'a') + 10;
}

/// Digits of `base` from `at` on, as far as they go, at most `limit`.
std::uint64_t Magnitude(const std::wstring& text, std::size_t at, unsigned base, std::uint64_t limit) {
    std::uint64_t value = 0;
    for (; at < text.size() && IsReadDigit(text[at]) && HexValue(text[at]) < base; ++at) {
        const std::uint64_t digit = HexValue(text[at]);
        value = value > (limit - digit) / base ? limit : value * base + digit;
    }
    return value;
}

/// Where the digits begin, and whether a "-" is before them.
struct Start {
    std::size_t At = 0;
    bool IsNegative = false;
};

Start StartOfNumber(const std::wstring& text) {
    Start start;
    while (start.At < text.size() && base::IsSpace(text[start.At]))
        ++start.At;
    if (start.At < text.size() && (text[start.At] == L'-' || text[start.At] == L'+')) {
        start.IsNegative = text[start.At] == L'-';
        ++start.At;
    }
    return start;
}

/// The number at `start`, the nearest one that `Type` can hold.
template <typename Type>
Type NumberAt(const std::wstring& text, Start start, unsigned base) {
    const auto largest = static_cast<std::uint64_t>(std::numeric_limits<Type>::max());
    const std::uint64_t limit = start.IsNegative ? largest + 1 : largest;
    const std::uint64_t value = Magnitude(text, start.At, base, limit);
    return static_cast<Type>(start.IsNegative ? 0 - value : value);
}

}  // namespace

std::optional<wchar_t> UnitFile::Unit() {
    std::byte bytes[2] = {};
    std::size_t count = 0;
    while (count < 2) {
        const std::size_t more = file_->Read(std::span(bytes).subspan(count));
        if (more == 0)
            return std::nullopt;
        count += more;
    }
    return static_cast<wchar_t>(std::to_integer<unsigned>(bytes[0]) |
                                (std::to_integer<unsigned>(bytes[1]) << 8));
}

std::optional<wchar_t> UnitFile::Next() {
    std::optional<wchar_t> unit = Unit();
    if (isAtStart_ && unit == kMark)
        unit = Unit();
    isAtStart_ = false;
    return unit;
}

std::optional<std::wstring> NextLine(UnitFile& file) {
    std::optional<wchar_t> unit = file.Next();
    if (!unit)
        return std::nullopt;
    std::wstring line;
    for (; unit && unit != L'\n'; unit = file.Next())
        line.push_back(*unit);
    if (unit == L'\n' && line.ends_with(L'\r'))
        line.pop_back();
    return line;
}

std::vector<std::wstring> ScriptLines(std::unique_ptr<InFile> file) {
    UnitFile units(std::move(file));
    std::vector<std::wstring> lines;
    while (std::optional<std::wstring> line = NextLine(units)) {
        line->resize(std::min(line->size(), kLongestLine));
        lines.push_back(line->substr(0, line->find(L'\0')));
    }
    return lines;
}

std::wstring Normalised(std::wstring line) {
    std::ranges::replace(line, L'\t', L' ');
    return Trimmed(line);
}

std::wstring FirstWord(const std::wstring& text) {
    return text.substr(0, text.find(L' '));
}

std::wstring BehindFirstWord(const std::wstring& line) {
    return Trimmed(line.substr(FirstWord(line).size()));
}

std::wstring Trimmed(const std::wstring& text) {
    return std::wstring(base::Trim(text));
}

std::wstring Small(const std::wstring& text) {
    return base::SmallLetters(text);
}

bool IsSame(const std::wstring& one, const std::wstring& other) {
    return Small(one) == Small(other);
}

std::vector<std::wstring> Pieces(const std::wstring& text) {
    std::vector<std::wstring> pieces;
    if (text.empty())
        return pieces;
    pieces.emplace_back();
    for (const wchar_t unit : text) {
        if (unit == L',')
            pieces.emplace_back();
        else
            pieces.back().push_back(unit);
    }
    return pieces;
}

std::wstring Replaced(const std::wstring& text, const std::wstring& from, const std::wstring& to) {
    if (from.empty())
        return text;
    std::wstring result;
    std::size_t seen = 0;
    for (std::size_t at = text.find(from); at != std::wstring::npos; at = text.find(from, seen)) {
        result += text.substr(seen, at - seen) + to;
        seen = at + from.size();
    }
    return result + text.substr(seen);
}

std::size_t ReplacedSize(const std::wstring& text, const std::wstring& from, const std::wstring& to) {
    std::size_t size = text.size();
    if (from.empty())
        return size;
    for (std::size_t at = text.find(from); at != std::wstring::npos; at = text.find(from, at + from.size()))
        size += to.size() - from.size();
    return size;
}

std::int32_t Number(const std::wstring& text) {
    return NumberAt<std::int32_t>(text, StartOfNumber(text), 10);
}

std::int32_t NumberOfAnyBase(const std::wstring& text) {
    Start start = StartOfNumber(text);
    const auto unitAt = [&text](std::size_t at) { return at < text.size() ? text[at] : L'\0'; };
    if (unitAt(start.At) != L'0')
        return NumberAt<std::int32_t>(text, start, 10);
    if (base::LowerAscii(unitAt(start.At + 1)) != L'x' || !IsReadDigit(unitAt(start.At + 2)))
        return NumberAt<std::int32_t>(text, start, 8);
    start.At += 2;
    return NumberAt<std::int32_t>(text, start, 16);
}

std::int64_t LongNumber(const std::wstring& text) {
    if (text.find(L'x') != std::wstring::npos)
        return NumberOfAnyBase(text);
    return NumberAt<std::int64_t>(text, StartOfNumber(text), 10);
}

std::wstring NumberInDecimal(const std::wstring& text) {
    const std::wstring dense = Replaced(text, L" ", L"");
    if (dense.size() < 3 || !dense.starts_with(L"0x"))
        return text;
    if (!std::ranges::all_of(dense.substr(2), IsHexDigit))
        return text;
    constexpr std::uint64_t kLargest = std::numeric_limits<std::int64_t>::max();
    return std::to_wstring(Magnitude(dense, 2, 16, kLargest));
}

bool IsLike(const std::wstring& text, const std::wstring& pattern) {
    // The rows below take an hour for two long texts, even where there is nothing to try.
    if (pattern.find_first_of(L"*?") == std::wstring::npos)
        return text == pattern;
    // Row by row: which starts of the text are as the start of the pattern has it.
    std::vector<bool> fits(text.size() + 1, false);
    fits[0] = true;
    for (const wchar_t unit : pattern) {
        std::vector<bool> next(text.size() + 1, false);
        for (std::size_t end = 0; end <= text.size(); ++end) {
            if (unit == L'*')
                next[end] = fits[end] || (end > 0 && next[end - 1]);
            else if (end > 0 && (unit == L'?' || unit == text[end - 1]))
                next[end] = fits[end - 1];
        }
        fits = next;
    }
    return fits[text.size()];
}

}  // namespace ferry::script::literal
