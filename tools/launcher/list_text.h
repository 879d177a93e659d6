// Lists of paths, as files and pipes carry them.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ferry::launcher {

/// The text of a list: UTF-8, UTF-16LE or UTF-16BE, told by the byte-order mark, which is not part of it.
/// Without a mark it is UTF-16 where the first unit has one byte of 0, else UTF-8. Nothing when bytes that
/// are neither marked nor UTF-16 are not UTF-8: they are in a code page that only the system knows.
std::optional<std::wstring> DecodeList(std::span<const std::byte> bytes);

/// The paths in a list's text, one a line; a NUL ends a line, too. Empty lines are left out, and the double
/// quotes around a path, with which some programs write it.
std::vector<std::wstring> PathsOfList(std::wstring_view text);

}  // namespace ferry::launcher
