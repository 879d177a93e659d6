// Asks for files and folders, at any path length.
#pragma once

#include <windows.h>

#include <string_view>

#include "base/handles_win32.h"

namespace ferry::process {

/// Starts a search for `pattern` and puts the first match into `data`.
/// Owns nothing when there is no match; the last error says why. The short name in `data` is not
/// filled.
base::FindHandle FindFirst(std::wstring_view pattern, WIN32_FIND_DATAW& data);

/// The attribute bits of the item at `path`, or INVALID_FILE_ATTRIBUTES.
DWORD FileAttributes(std::wstring_view path);

}  // namespace ferry::process
