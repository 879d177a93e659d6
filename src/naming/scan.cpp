#include "naming/scan.h"

#include <cstdint>
#include <limits>

#include "base/text.h"

namespace ferry::naming {

namespace {

void SkipSpace(std::wstring_view& rest) noexcept {
    while (!rest.empty() && base::IsSpace(rest.front())) {
        rest.remove_prefix(1);
    }
}

bool StartsWithDigit(std::wstring_view rest) noexcept {
    return !rest.empty() && base::IsDigit(rest.front());
}

/// Takes the units up to white space off `rest`; nothing when there are none, or too many.
std::optional<std::wstring_view> TakeField(std::wstring_view& rest, std::size_t capacity) noexcept {
    SkipSpace(rest);
    std::size_t length = 0;
    while (length < rest.size() && !base::IsSpace(rest[length])) {
        ++length;
    }
    if (length == 0 || length >= capacity) {
        return std::nullopt;
    }
    const std::wstring_view field = rest.substr(0, length);
    rest.remove_prefix(length);
    return field;
}

/// Takes a signed decimal number off `rest`; nothing when there is none.
std::optional<int> TakeNumber(std::wstring_view& rest) noexcept {
    SkipSpace(rest);
    const bool isNegative = rest.starts_with(L'-');
    if (isNegative || rest.starts_with(L'+')) {
        rest.remove_prefix(1);
    }
    if (!StartsWithDigit(rest)) {
        return std::nullopt;
    }
    // One above the largest number is the magnitude of the smallest.
    constexpr std::uint64_t kLargest = std::numeric_limits<std::int64_t>::max();
    const std::uint64_t limit = isNegative ? kLargest + 1 : kLargest;
    std::uint64_t magnitude = 0;
    for (; StartsWithDigit(rest); rest.remove_prefix(1)) {
        const auto digit = static_cast<std::uint64_t>(rest.front() - L'0');
        magnitude = magnitude > (limit - digit) / 10 ? limit : magnitude * 10 + digit;
    }
    return static_cast<int>(static_cast<std::uint32_t>(isNegative ? 0 - magnitude : magnitude));
}

/// Takes one unit of the pattern that stands for itself, or white space of any length.
bool TakeLiteral(std::wstring_view& rest, wchar_t literal) noexcept {
    if (base::IsSpace(literal)) {
        SkipSpace(rest);
        return true;
    }
    if (!rest.starts_with(literal)) {
        return false;
    }
    rest.remove_prefix(1);
    return true;
}

}  // namespace

Scanned Scan(std::wstring_view text, std::wstring_view pattern, std::size_t fieldCapacity) {
    text = text.substr(0, text.find(L'\0'));
    Scanned scanned;
    while (!pattern.empty()) {
        if (pattern.starts_with(L"%d")) {
            scanned.Number = TakeNumber(text);
            if (!scanned.Number) {
                return scanned;
            }
            pattern.remove_prefix(2);
        } else if (pattern.starts_with(L"%s")) {
            const auto field = TakeField(text, fieldCapacity);
            if (!field) {
                return scanned;
            }
            scanned.Field = *field;
            pattern.remove_prefix(2);
        } else {
            if (!TakeLiteral(text, pattern.front())) {
                return scanned;
            }
            pattern.remove_prefix(1);
        }
    }
    return scanned;
}

}  // namespace ferry::naming
