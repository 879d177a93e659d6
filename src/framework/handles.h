// Owners of the objects that windows are made with.
#pragma once

#include <windows.h>
// After windows.h, which the shell's headers build on.
#include <shellapi.h>

#include "base/handles_win32.h"

namespace ferry::framework {

/// A window without an owner object of its own that ends it. Only its own thread may end it.
using WindowHandle = base::UniqueResource<base::ReleasedBy<HWND, &DestroyWindow>>;

/// A popup menu.
using MenuHandle = base::UniqueResource<base::ReleasedBy<HMENU, &DestroyMenu>>;

/// An icon that was loaded for one window.
using IconHandle = base::UniqueResource<base::ReleasedBy<HICON, &DestroyIcon>>;

/// A font.
using FontHandle = base::UniqueResource<base::ReleasedBy<HFONT, &DeleteObject>>;

/// A drawing surface in memory.
using MemorySurface = base::UniqueResource<base::ReleasedBy<HDC, &DeleteDC>>;

/// The list of files that came with WM_DROPFILES.
using DropHandle = base::UniqueResource<base::ReleasedBy<HDROP, &DragFinish>>;

}  // namespace ferry::framework
