// Text rules that every part of the program shares: splitting, trimming, numbers.
#include "base/text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <limits>

namespace ferry::base {

namespace {

/// The zeros of the scripts whose digits the C library of Windows reads, in order; nine more digits follow
/// each of them.
constexpr wchar_t kZeros[] = {
    L'0',   0x0660, 0x06F0, 0x0966, 0x09E6, 0x0A66, 0x0AE6, 0x0B66, 0x0C66,
    0x0CE6, 0x0D66, 0x0E50, 0x0ED0, 0x0F20, 0x1040, 0x17E0, 0x1810, 0xFF10,
};

}  // namespace

int DigitOf(wchar_t unit) noexcept {
    const auto* above = std::ranges::upper_bound(kZeros, unit);
    if (above == std::begin(kZeros)) {
        return kNoDigit;
    }
    const int value = unit - *std::prev(above);
    return value < 10 ? value : kNoDigit;
}

std::vector<std::wstring_view> Split(std::wstring_view text, wchar_t separator) {
    text = text.substr(0, text.find(L'\0'));
    std::vector<std::wstring_view> pieces;
    if (text.empty()) {
        return pieces;
    }
    for (;;) {
        const std::size_t end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == std::wstring_view::npos) {
            return pieces;
        }
        text.remove_prefix(end + 1);
    }
}

int ToInt(std::wstring_view text) noexcept {
    std::size_t at = 0;
    while (at < text.size() && IsSpace(text[at])) {
        ++at;
    }
    bool negative = false;
    if (at < text.size() && (text[at] == L'-' || text[at] == L'+')) {
        negative = text[at] == L'-';
        ++at;
    }
    // One above the largest int is the magnitude of the smallest.
    constexpr std::int64_t kLargest = std::numeric_limits<int>::max();
    const std::int64_t limit = negative ? kLargest + 1 : kLargest;
    std::int64_t magnitude = 0;
    for (; at < text.size(); ++at) {
        const int digit = DigitOf(text[at]);
        if (digit == kNoDigit) {
            break;
        }
        magnitude = std::min(limit, magnitude * 10 + digit);
    }
    return static_cast<int>(negative ? -magnitude : magnitude);
}

bool IsSpace(wchar_t unit) noexcept {
    if (unit <= 0x20) {
        return unit == 0x20 || (unit >= 0x09 && unit <= 0x0D);
    }
    if (unit < 0x1680) {
        return unit == 0x85 || unit == 0xA0;
    }
    if (unit >= 0x2000 && unit <= 0x200A) {
        return true;
    }
    return unit == 0x1680 || unit == 0x2028 || unit == 0x2029 || unit == 0x202F || unit == 0x205F ||
           unit == 0x3000;
}

bool IsDriveLetter(wchar_t unit) noexcept {
    return LowerAscii(unit) >= L'a' && LowerAscii(unit) <= L'z';
}

std::wstring_view Trim(std::wstring_view text) noexcept {
    text = TrimRight(text);
    std::size_t begin = 0;
    while (begin < text.size() && IsSpace(text[begin])) {
        ++begin;
    }
    return text.substr(begin);
}

std::wstring_view TrimRight(std::wstring_view text) noexcept {
    while (!text.empty() && IsSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::wstring ReplaceAll(std::wstring_view text, std::wstring_view from, std::wstring_view to) {
    std::wstring result;
    if (from.empty()) {
        return result.assign(text);
    }
    result.reserve(text.size());
    for (;;) {
        const std::size_t found = text.find(from);
        result.append(text.substr(0, found));
        if (found == std::wstring_view::npos) {
            return result;
        }
        result.append(to);
        text.remove_prefix(found + from.size());
    }
}

bool EqualsIgnoringAsciiCase(std::wstring_view left, std::wstring_view right) noexcept {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](wchar_t a, wchar_t b) { return LowerAscii(a) == LowerAscii(b); });
}

}  // namespace ferry::base
