// Shell items for paths.
#pragma once

#include <windows.h>
// After windows.h, which the shell's headers build on.
#include <shobjidl.h>

#include <string_view>

#include "base/com_ptr_win32.h"

namespace ferry::desktop {

/// Puts the shell item of the existing file or folder at `path` into `item`.
/// The result of the shell's parsing; on a failure `item` holds nothing.
HRESULT MakeShellItem(std::wstring_view path, base::ComPtr<IShellItem>& item);

}  // namespace ferry::desktop
