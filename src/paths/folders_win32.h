// Makes folders at any path length.
#pragma once

#include <string_view>

namespace ferry::paths {

/// Makes the folder at `path` with its missing parents; it owns no window while it does.
/// A result code as of SHCreateDirectory: 0 when it was made, 183 when it is there already, 1223
/// when the user cancelled, another system error otherwise.
int MakeFolder(std::wstring_view path);

}  // namespace ferry::paths
