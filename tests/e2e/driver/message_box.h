// The message boxes of a process: their texts and their buttons.
#pragma once

#include <windows.h>

#include <string>

namespace ferry::e2e {

/// A message box that a process shows.
struct ShownBox {
    HWND Window = nullptr;
    std::wstring Text;
};

/// The message box of process `processId`, or one without a window.
ShownBox FindMessageBox(DWORD processId);

/// Waits for a message box; one without a window when none came.
ShownBox WaitForMessageBox(DWORD processId);

/// Presses the box's first button, or the button `id`, and waits until the box is gone.
bool DismissMessageBox(const ShownBox& box, int id = 0);

/// The text of a window of another process.
std::wstring RemoteText(HWND window);

/// The class name of a window.
std::wstring ClassOf(HWND window);

}  // namespace ferry::e2e
