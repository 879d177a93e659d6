// What the headers do not say about the windows of menus, and the owner of a hook that looks into them.
#pragma once

#include <windows.h>

#include "base/handles_win32.h"

namespace ferry::test {

/// The class of the window that shows a menu.
inline constexpr wchar_t kMenuClass[] = L"#32768";

/// Asks such a window for its menu; MinGW's headers do not name it.
inline constexpr UINT kGetMenuMessage = 0x01E1;

using HookHandle = base::UniqueResource<base::ReleasedBy<HHOOK, &UnhookWindowsHookEx>>;

}  // namespace ferry::test
