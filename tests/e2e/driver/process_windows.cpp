#include "e2e/driver/process_windows.h"

#include "base/handles_win32.h"
#include "e2e/driver/poll.h"
#include "samplehost/process_windows_win32.h"

namespace ferry::e2e {

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

bool EndProcessHard(DWORD processId) {
    const base::ProcessHandle process(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, processId));
    return process && TerminateProcess(process.Get(), 1) &&
           WaitForSingleObject(process.Get(), kPatienceMs) == WAIT_OBJECT_0;
}

}  // namespace ferry::e2e
