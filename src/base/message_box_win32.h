// The plain message box of the adapters.
#pragma once

#include <windows.h>

#include <string>

namespace ferry::base {

/// Shows `text` under the program's name, over the thread's active window if there is one.
/// `style` is made of the MB_ flags; the answer is the number of the button.
inline int ShowMessageBox(const std::wstring& text, UINT style) {
    return MessageBoxW(GetActiveWindow(), text.c_str(), L"Ferry", style);
}

}  // namespace ferry::base
