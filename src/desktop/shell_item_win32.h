// Shell items for paths.
#pragma once

#include <windows.h>
// After windows.h, which the shell's headers build on.
#include <shobjidl.h>

#include <string_view>

#include "base/com_ptr_win32.h"
#include "files/ports.h"

namespace ferry::desktop {

/// Puts the shell item of the existing file or folder at `path` into `item`. The result of the shell's
/// parsing, or "file not found" where the shell parsed another item; on a failure `item` holds nothing.
HRESULT MakeShellItem(std::wstring_view path, files::FileInfo& info, base::ComPtr<IShellItem>& item);

}  // namespace ferry::desktop
