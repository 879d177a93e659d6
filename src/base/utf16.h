// UTF-16 text and its bytes. One `wchar_t` holds one UTF-16 unit on every host.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ferry::base {

/// The UTF-16 units of little-endian `bytes`; an odd last byte is left out.
std::wstring UnitsFromBytes(std::span<const std::byte> bytes);

/// The same up to the first NUL: what others hand over as a text.
std::wstring TextFromBytes(std::span<const std::byte> bytes);

/// The little-endian bytes of UTF-16 `units`, without a byte-order mark or a terminator.
std::vector<std::byte> BytesFromUnits(std::wstring_view units);

/// UTF-16 units from UTF-8; ill-formed sequences become U+FFFD.
std::wstring FromUtf8(std::string_view text);

/// UTF-8 from UTF-16 units; an unpaired surrogate becomes U+FFFD.
std::string ToUtf8(std::wstring_view text);

}  // namespace ferry::base
