#include "encoding_check.h"

#include <algorithm>
#include <array>

namespace ferry::scripttools {

namespace {

bool StartsWith(std::span<const std::byte> bytes, std::initializer_list<unsigned char> start) {
    return bytes.size() >= start.size() &&
           std::ranges::equal(bytes.first(start.size()), start, [](std::byte one, unsigned char other) {
               return std::to_integer<unsigned char>(one) == other;
           });
}

/// How many of the bytes at `start` and every second one after it are 0.
std::size_t CountZeros(std::span<const std::byte> bytes, std::size_t start) {
    std::size_t count = 0;
    for (std::size_t at = start; at < bytes.size(); at += 2)
        count += bytes[at] == std::byte{0} ? 1 : 0;
    return count;
}

/// Whether no byte is 0. Every script has blanks or line ends, and each of them is half zero in UTF-16.
bool IsOneByteText(std::span<const std::byte> bytes) {
    return !bytes.empty() && CountZeros(bytes, 0) == 0 && CountZeros(bytes, 1) == 0;
}

}  // namespace

std::wstring WrongEncoding(std::span<const std::byte> script) {
    if (StartsWith(script, {0xFF, 0xFE}))
        return {};
    if (StartsWith(script, {0xEF, 0xBB, 0xBF}) || IsOneByteText(script))
        return L"This file is not UTF-16LE but UTF-8 or the like; save it as UTF-16LE (\"Unicode\").";
    if (StartsWith(script, {0xFE, 0xFF}) || CountZeros(script, 0) > CountZeros(script, 1))
        return L"This file is UTF-16BE; save it as UTF-16LE (\"Unicode\").";
    return {};
}

}  // namespace ferry::scripttools
