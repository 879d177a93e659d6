#include "desktop/script_boxes_win32.h"

#include <windows.h>

namespace ferry::desktop {

int ScriptBoxes::Show(const std::wstring& text, std::uint32_t style) {
    // To a person a script speaks for the host, whose buttons and menus run it.
    return MessageBoxW(GetActiveWindow(), text.c_str(), L"Kiv", style);
}

}  // namespace ferry::desktop
