// The least that shows the confirmation dialog: the same template, the same manifest, nothing in it.
#include <windows.h>
#include <commctrl.h>

#include "ids.h"

namespace {

// The classes that the template names besides the system's own.
constexpr DWORD kControlClasses = 0xFF;

INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG)
        return TRUE;
    if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL)
        return EndDialog(dialog, IDCANCEL);
    return FALSE;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int) {
    const INITCOMMONCONTROLSEX controls{sizeof controls, kControlClasses};
    InitCommonControlsEx(&controls);
    const INT_PTR end = DialogBoxParamW(instance, MAKEINTRESOURCEW(IDD_FERRY), nullptr, DialogProc, 0);
    return end == -1 ? 1 : 0;
}
