#include "desktop/script_boxes_win32.h"

#include "desktop/message_boxes_win32.h"

namespace ferry::desktop {

int ScriptBoxes::Show(const std::wstring& text, std::uint32_t style) {
    // To a person a script speaks for the host, whose buttons and menus run it.
    return MessageBoxW(OwnerOfBox(under_), text.c_str(), L"Kiv", style);
}

}  // namespace ferry::desktop
