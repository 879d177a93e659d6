// The absolute form of a path.
#pragma once

#include <string>

namespace ferry::script {

/// The absolute form of `path` (GetFullPathNameW), at any length; `path` itself when there is none.
std::wstring FullPathName(const std::wstring& path);

}  // namespace ferry::script
