// Paths as Windows reads them, on every host.
#pragma once

#include <string>
#include <string_view>

namespace ferry::scripttools {

/// The absolute form of `path` for a process whose current folder is `currentFolder`, by the rules of
/// GetFullPathNameW: "/" is a separator too, "." and ".." are worked out, a drive without a separator behind
/// it means that drive's current folder, and dots and blanks at the end go. Empty for an empty path. A drive
/// other than that of `currentFolder` has its root for current folder; devices are no names here.
std::wstring FullWindowsPath(std::wstring_view path, std::wstring_view currentFolder);

/// How many units of a full path are its root: the drive with its separator, or server and share.
std::size_t RootLength(std::wstring_view fullPath) noexcept;

}  // namespace ferry::scripttools
