// UTF-16 text and its bytes. One `wchar_t` holds one UTF-16 unit on every host.
#include "base/utf16.h"

#include <algorithm>

namespace ferry::base {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowSurrogate(char32_t unit) noexcept {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void AppendUnits(std::wstring& text, char32_t point) {
    if (point < 0x10000) {
        text.push_back(static_cast<wchar_t>(point));
        return;
    }
    text.push_back(static_cast<wchar_t>(0xD800 + ((point - 0x10000) >> 10)));
    text.push_back(static_cast<wchar_t>(0xDC00 + ((point - 0x10000) & 0x3FF)));
}

void AppendBytes(std::string& text, char32_t point) {
    const auto put = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (point < 0x80) {
        put(point);
        return;
    }
    if (point < 0x800) {
        put(0xC0 | (point >> 6));
    } else {
        if (point < 0x10000) {
            put(0xE0 | (point >> 12));
        } else {
            put(0xF0 | (point >> 18));
            put(0x80 | ((point >> 12) & 0x3F));
        }
        put(0x80 | ((point >> 6) & 0x3F));
    }
    put(0x80 | (point & 0x3F));
}

/// What a lead byte promises: how many bytes follow, and the range of the first of them. The range
/// shuts out overlong forms, surrogates and points above U+10FFFF.
struct Lead {
    int Followers = 0;
    unsigned First = 0x80;
    unsigned Last = 0xBF;
};

Lead LeadOf(unsigned byte) noexcept {
    if (byte >= 0xC2 && byte <= 0xDF) {
        return {1, 0x80, 0xBF};
    }
    if (byte >= 0xE0 && byte <= 0xEF) {
        return {2, byte == 0xE0 ? 0xA0u : 0x80u, byte == 0xED ? 0x9Fu : 0xBFu};
    }
    if (byte >= 0xF0 && byte <= 0xF4) {
        return {3, byte == 0xF0 ? 0x90u : 0x80u, byte == 0xF4 ? 0x8Fu : 0xBFu};
    }
    return {};
}

/// Takes one code point off the front of the non-empty `text`. Of an ill-formed sequence it takes
/// the longest start of a well-formed one, so that the reader is back in step at once.
char32_t TakePoint(std::string_view& text) noexcept {
    const auto byteAt = [&text](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const unsigned first = byteAt(0);
    Lead lead = LeadOf(first);
    if (lead.Followers == 0) {
        text.remove_prefix(1);
        return first < 0x80 ? first : kReplacement;
    }
    char32_t point = first & (0x3Fu >> lead.Followers);
    std::size_t taken = 1;
    for (; lead.Followers > 0; --lead.Followers) {
        if (taken == text.size() || byteAt(taken) < lead.First || byteAt(taken) > lead.Last) {
            text.remove_prefix(taken);
            return kReplacement;
        }
        point = (point << 6) | (byteAt(taken) & 0x3Fu);
        lead.First = 0x80;
        lead.Last = 0xBF;
        ++taken;
    }
    text.remove_prefix(taken);
    return point;
}

}  // namespace

std::wstring UnitsFromBytes(std::span<const std::byte> bytes) {
    std::wstring units(bytes.size() / 2, L'\0');
    for (std::size_t i = 0; i < units.size(); ++i) {
        const auto low = std::to_integer<unsigned>(bytes[2 * i]);
        const auto high = std::to_integer<unsigned>(bytes[2 * i + 1]);
        units[i] = static_cast<wchar_t>(low | (high << 8));
    }
    return units;
}

std::wstring TextFromBytes(std::span<const std::byte> bytes) {
    std::wstring text = UnitsFromBytes(bytes);
    text.resize(std::min(text.find(L'\0'), text.size()));
    return text;
}

std::vector<std::byte> BytesFromUnits(std::wstring_view units) {
    std::vector<std::byte> bytes(units.size() * 2);
    for (std::size_t i = 0; i < units.size(); ++i) {
        const auto unit = static_cast<char32_t>(units[i]);
        bytes[2 * i] = static_cast<std::byte>(unit & 0xFF);
        bytes[2 * i + 1] = static_cast<std::byte>((unit >> 8) & 0xFF);
    }
    return bytes;
}

std::wstring FromUtf8(std::string_view text) {
    std::wstring units;
    units.reserve(text.size());
    while (!text.empty()) {
        AppendUnits(units, TakePoint(text));
    }
    return units;
}

std::string ToUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto point = static_cast<char32_t>(text[i]);
        const char32_t next = i + 1 < text.size() ? static_cast<char32_t>(text[i + 1]) : 0;
        if (IsHighSurrogate(point) && IsLowSurrogate(next)) {
            point = 0x10000 + ((point - 0xD800) << 10) + (next - 0xDC00);
            ++i;
        } else if (IsHighSurrogate(point) || IsLowSurrogate(point)) {
            point = kReplacement;
        }
        AppendBytes(bytes, point);
    }
    return bytes;
}

}  // namespace ferry::base
