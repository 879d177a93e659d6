#include "e2e/driver/process_windows.h"

#include "samplehost/process_windows_win32.h"
#include "support/poll_win32.h"

namespace ferry::e2e {

using test::WaitUntil;

HWND FindWindowOf(DWORD processId, const std::wstring& title) {
    return samplehost::FindVisibleWindow(processId, [&](HWND window) {
        // Does not wait for the other process, which may be busy.
        wchar_t text[128] = {};
        GetWindowTextW(window, text, 128);
        return title == text;
    });
}

HWND WaitForWindowOf(DWORD processId, const std::wstring& title) {
    HWND window = nullptr;
    WaitUntil([&] { return (window = FindWindowOf(processId, title)) != nullptr; });
    return window;
}

}  // namespace ferry::e2e
