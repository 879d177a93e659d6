// Owners of the objects that windows are made with.
#pragma once

#include <windows.h>
// After windows.h, which the shell's headers build on.
#include <shellapi.h>

#include "base/handles_win32.h"

namespace ferry::framework {

/// A popup menu.
using MenuHandle = base::UniqueResource<base::ReleasedBy<HMENU, &DestroyMenu>>;

/// An icon that was loaded for one window.
using IconHandle = base::UniqueResource<base::ReleasedBy<HICON, &DestroyIcon>>;

/// The list of files that came with WM_DROPFILES.
using DropHandle = base::UniqueResource<base::ReleasedBy<HDROP, &DragFinish>>;

}  // namespace ferry::framework
