#include "script/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

#include "base/text.h"

namespace ferry::script {

namespace {

/// What stands in front of a number's digits, taken off `text`: white space and a sign; whether that is a
/// minus.
bool TakeSign(std::wstring_view& text) noexcept {
    while (!text.empty() && base::IsSpace(text.front())) {
        text.remove_prefix(1);
    }
    const bool isNegative = text.starts_with(L'-');
    if (isNegative || text.starts_with(L'+')) {
        text.remove_prefix(1);
    }
    return isNegative;
}

/// The value of a digit of any base up to 16; base::kNoDigit for another unit.
int HexDigitOf(wchar_t unit) noexcept {
    const wchar_t small = base::LowerAscii(unit);
    return small >= L'a' && small <= L'f' ? small - L'a' + 10 : base::DigitOf(unit);
}

/// The number that the digits at the start of `text` make in `radix`, at most `limit`.
std::uint64_t Magnitude(std::wstring_view text, unsigned radix, std::uint64_t limit) noexcept {
    std::uint64_t magnitude = 0;
    for (const wchar_t unit : text) {
        const int digit = HexDigitOf(unit);
        if (digit == base::kNoDigit || static_cast<unsigned>(digit) >= radix) {
            break;
        }
        const auto value = static_cast<std::uint64_t>(digit);
        magnitude = magnitude > (limit - std::min(value, limit)) / radix ? limit : magnitude * radix + value;
    }
    return magnitude;
}

/// The same with the sign, in the range of `Number`.
template <class Number>
Number Signed(std::wstring_view digits, unsigned radix, bool isNegative) noexcept {
    // One above the largest number is the magnitude of the smallest.
    constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<Number>::max());
    const std::uint64_t magnitude = Magnitude(digits, radix, kLargest + (isNegative ? 1 : 0));
    return static_cast<Number>(isNegative ? std::uint64_t{0} - magnitude : magnitude);
}

bool HasHexPrefix(std::wstring_view text) noexcept {
    return text.size() >= 2 && text[0] == L'0' && base::LowerAscii(text[1]) == L'x';
}

bool IsAsciiHexDigit(wchar_t unit) noexcept {
    const wchar_t small = base::LowerAscii(unit);
    return base::IsDigit(unit) || (small >= L'a' && small <= L'f');
}

/// `text` without its blanks.
std::wstring WithoutBlanks(std::wstring_view text) {
    std::wstring packed(text);
    std::erase(packed, L' ');
    return packed;
}

/// Whether `packed`, which has no blanks, is "0x" with hexadecimal digits behind.
bool IsHexNumber(std::wstring_view packed) noexcept {
    return packed.size() > 2 && packed.starts_with(L"0x") &&
           std::ranges::all_of(packed.substr(2), IsAsciiHexDigit);
}

}  // namespace

std::int64_t ToInt64(std::wstring_view text) noexcept {
    const bool isNegative = TakeSign(text);
    return Signed<std::int64_t>(text, 10, isNegative);
}

std::int32_t ToLong(std::wstring_view text) noexcept {
    const bool isNegative = TakeSign(text);
    if (HasHexPrefix(text)) {
        return Signed<std::int32_t>(text.substr(2), 16, isNegative);
    }
    return Signed<std::int32_t>(text, text.starts_with(L'0') ? 8 : 10, isNegative);
}

std::int64_t ToOperand(std::wstring_view text) noexcept {
    return text.find(L'x') != std::wstring_view::npos ? ToLong(text) : ToInt64(text);
}

std::int32_t ToStyle(std::wstring_view text) noexcept {
    return text.find(L'x') != std::wstring_view::npos ? ToLong(text) : base::ToInt(text);
}

bool IsNumeric(std::wstring_view text) noexcept {
    const std::wstring packed = WithoutBlanks(text);
    return IsHexNumber(packed) || std::ranges::all_of(packed, base::IsDigit);
}

void NormaliseNumber(std::wstring& text) {
    if (text.find(L'x') == std::wstring::npos) {
        return;
    }
    const std::wstring packed = WithoutBlanks(text);
    if (IsHexNumber(packed)) {
        constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
        text = std::to_wstring(Magnitude(std::wstring_view(packed).substr(2), 16, kLargest));
    }
}

int ToArgument(std::wstring_view text) {
    std::wstring number(text);
    NormaliseNumber(number);
    return base::ToInt(number);
}

std::optional<std::int64_t> ExactNumber(std::wstring_view text) noexcept {
    const bool isNegative = text.starts_with(L'-');
    const std::wstring_view digits = text.substr(isNegative ? 1 : 0);
    // Up to 18 digits cannot leave the range; longer numbers are treated as texts, which is slower, not
    // wrong.
    constexpr std::size_t kSafeDigits = 18;
    if (digits.empty() || digits.size() > kSafeDigits || !std::ranges::all_of(digits, base::IsDigit)) {
        return std::nullopt;
    }
    if (digits.front() == L'0' && (digits.size() > 1 || isNegative)) {
        return std::nullopt;
    }
    return ToInt64(text);
}

void WriteNumber(std::wstring& text, std::int64_t number) {
    std::array<char, 24> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.assign(digits.data(), end);
}

}  // namespace ferry::script
