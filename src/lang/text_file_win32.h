// Whole UTF-16 text files, read and written through the C library as the host does.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ferry::lang {

/// The units of the file at `path`, or nothing when it cannot be opened. While it is read nobody
/// else may write to it.
std::optional<std::wstring> ReadTextFile(std::wstring_view path);

/// Writes `units` as the file at `path`, whose folder must exist. False when that failed; then no
/// part of the file is left behind.
bool WriteTextFile(std::wstring_view path, std::wstring_view units);

}  // namespace ferry::lang
