// Owners of the objects that windows are made with.
#pragma once

#include <windows.h>
// After windows.h, which the shell's headers build on.
#include <shellapi.h>

#include "base/unique_resource.h"

namespace ferry::framework {

struct MenuTraits {
    using Value = HMENU;
    static Value Nothing() noexcept { return nullptr; }
    static void Release(Value menu) noexcept { DestroyMenu(menu); }
};

/// A popup menu.
using MenuHandle = base::UniqueResource<MenuTraits>;

struct DropTraits {
    using Value = HDROP;
    static Value Nothing() noexcept { return nullptr; }
    static void Release(Value drop) noexcept { DragFinish(drop); }
};

/// The list of files that came with WM_DROPFILES.
using DropHandle = base::UniqueResource<DropTraits>;

}  // namespace ferry::framework
