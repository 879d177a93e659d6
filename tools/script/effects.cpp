#include "effects.h"

#include <utility>

#include "base/text.h"

namespace ferry::scripttools {

namespace {

constexpr unsigned kBitsOfDigit = 4;

std::optional<unsigned> ValueOfDigit(wchar_t digit) noexcept {
    if (base::IsDigit(digit))
        return static_cast<unsigned>(digit - L'0');
    const wchar_t small = base::LowerAscii(digit);
    if (small < L'a' || small > L'f')
        return std::nullopt;
    return static_cast<unsigned>(small - L'a' + 10);
}

}  // namespace

void EffectLog::Add(std::wstring_view kind, std::wstring text, std::optional<std::size_t> byteCount) {
    length_ += text.size();
    effects_.push_back({std::wstring(kind), std::move(text), byteCount});
    if (listener_)
        listener_(effects_.back());
}

std::wstring HexDigits(std::span<const std::byte> bytes) {
    constexpr std::wstring_view kDigits = L"0123456789abcdef";
    std::wstring digits;
    digits.reserve(bytes.size() * 2);
    for (const std::byte value : bytes) {
        digits += kDigits[std::to_integer<std::size_t>(value >> kBitsOfDigit)];
        digits += kDigits[std::to_integer<std::size_t>(value & std::byte{0x0F})];
    }
    return digits;
}

std::optional<Bytes> BytesFromHex(std::wstring_view digits) {
    if (digits.size() % 2 != 0)
        return std::nullopt;
    Bytes bytes;
    bytes.reserve(digits.size() / 2);
    for (std::size_t at = 0; at < digits.size(); at += 2) {
        const auto high = ValueOfDigit(digits[at]);
        const auto low = ValueOfDigit(digits[at + 1]);
        if (!high || !low)
            return std::nullopt;
        bytes.push_back(static_cast<std::byte>(*high << kBitsOfDigit | *low));
    }
    return bytes;
}

}  // namespace ferry::scripttools
