// Paths of items: joining, and the names that the shell picks when a name is taken.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ferry::fileop {

/// `folder` and `name` with exactly one separator between them.
std::wstring JoinPath(std::wstring_view folder, std::wstring_view name);

/// The text after the last separator; trailing separators do not count.
/// Empty for a drive root and for an empty path.
std::wstring_view NameOf(std::wstring_view path) noexcept;

/// The text before the last separator, without it; a drive root keeps its separator.
std::wstring_view FolderOf(std::wstring_view path) noexcept;

/// Whether `name` can name one item: not empty, not "." or "..", none of \ / : * ? " < > |.
bool IsItemName(std::wstring_view name) noexcept;

/// How the shell marks a picked name.
enum class FreeNameStyle {
    Copy,    ///< "a - Copy.txt", "a - Copy (2).txt": the copy lies beside its source.
    Number,  ///< "a (2).txt", "a (3).txt": the name is taken in another folder.
};

/// The `attempt`-th name to try for `name`, counted from 1. A file keeps its extension at the
/// end; a folder has none.
std::wstring FreeName(std::wstring_view name, bool isFolder, FreeNameStyle style, std::uint32_t attempt);

}  // namespace ferry::fileop
