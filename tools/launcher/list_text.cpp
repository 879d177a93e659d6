#include "launcher/list_text.h"

#include <algorithm>

#include "base/utf16.h"

namespace ferry::launcher {
namespace {

enum class Encoding { Utf8, LittleEndian, BigEndian };

struct Mark {
    Encoding Kind = Encoding::Utf8;
    std::size_t ByteCount = 0;
};

unsigned ByteAt(std::span<const std::byte> bytes, std::size_t index) noexcept {
    return std::to_integer<unsigned>(bytes[index]);
}

/// How the bytes are to be read. No path begins with a NUL, and the first unit of one is mostly ASCII: a
/// drive's letter, a backslash, a quote.
Mark MarkOf(std::span<const std::byte> bytes) noexcept {
    if (bytes.size() >= 3 && ByteAt(bytes, 0) == 0xEF && ByteAt(bytes, 1) == 0xBB && ByteAt(bytes, 2) == 0xBF)
        return {Encoding::Utf8, 3};
    if (bytes.size() < 2)
        return {};
    const unsigned first = ByteAt(bytes, 0);
    const unsigned second = ByteAt(bytes, 1);
    if (first == 0xFF && second == 0xFE)
        return {Encoding::LittleEndian, 2};
    if (first == 0xFE && second == 0xFF)
        return {Encoding::BigEndian, 2};
    if (first != 0 && second == 0)
        return {Encoding::LittleEndian, 0};
    if (first == 0 && second != 0)
        return {Encoding::BigEndian, 0};
    return {};
}

std::wstring WithBytesSwapped(std::wstring units) {
    for (wchar_t& unit : units) {
        const auto value = static_cast<char16_t>(unit);
        unit = static_cast<wchar_t>(((value & 0xFF) << 8) | ((value >> 8) & 0xFF));
    }
    return units;
}

}  // namespace

std::optional<std::wstring> DecodeList(std::span<const std::byte> bytes) {
    const Mark mark = MarkOf(bytes);
    const auto content = bytes.subspan(mark.ByteCount);
    if (mark.Kind == Encoding::LittleEndian)
        return base::UnitsFromBytes(content);
    if (mark.Kind == Encoding::BigEndian)
        return WithBytesSwapped(base::UnitsFromBytes(content));
    const std::string_view text(reinterpret_cast<const char*>(content.data()), content.size());
    std::wstring units = base::FromUtf8(text);
    // What is ill-formed does not come back as it was. A marked text is UTF-8 whatever is in it.
    if (mark.ByteCount == 0 && base::ToUtf8(units) != text)
        return std::nullopt;
    return units;
}

std::vector<std::wstring> PathsOfList(std::wstring_view text) {
    constexpr std::wstring_view kLineEnds(L"\r\n\0", 3);
    std::vector<std::wstring> paths;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of(kLineEnds), text.size());
        std::wstring_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.size() >= 2 && line.starts_with(L'"') && line.ends_with(L'"'))
            line = line.substr(1, line.size() - 2);
        if (!line.empty())
            paths.emplace_back(line);
    }
    return paths;
}

}  // namespace ferry::launcher
