// Owners of the objects that windows are made with.
#pragma once

#include <windows.h>

#include "base/unique_resource.h"

namespace ferry::framework {

struct MenuTraits {
    using Value = HMENU;
    static Value Nothing() noexcept { return nullptr; }
    static void Release(Value menu) noexcept { DestroyMenu(menu); }
};

/// A popup menu.
using MenuHandle = base::UniqueResource<MenuTraits>;

}  // namespace ferry::framework
