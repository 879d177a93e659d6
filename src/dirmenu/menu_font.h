// Measures texts as menus draw them.
#pragma once

#include <windows.h>

#include <string_view>

#include "framework/handles.h"

namespace ferry::dirmenu {

/// The font of menus, as the system's settings name it when the object is made.
class MenuFont {
public:
    MenuFont();

    /// The width of `text` in pixels of a window of the system's scaling; 0 where it cannot be measured.
    int WidthOf(std::wstring_view text) const noexcept;

private:
    // In this order: a font that is selected into a surface cannot be deleted.
    framework::FontHandle font_;
    framework::MemorySurface surface_;
};

/// How wide a name in a menu over `window` may be, in the pixels of MenuFont: a menu and the submenu beside
/// it have to find room on the monitor.
int WidestName(HWND window) noexcept;

}  // namespace ferry::dirmenu
