#include "e2e/driver/process_windows.h"

#include "e2e/driver/poll.h"
#include "samplehost/shared_block_win32.h"

namespace ferry::e2e {
namespace {

struct TitleSearch {
    DWORD ProcessId;
    const std::wstring& Title;
    HWND Found;
};

BOOL CALLBACK VisitWindow(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<TitleSearch*>(parameter);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner != search.ProcessId || !IsWindowVisible(window))
        return TRUE;
    // Does not wait for the other process, which may be busy.
    wchar_t title[128] = {};
    GetWindowTextW(window, title, 128);
    if (search.Title != title)
        return TRUE;
    search.Found = window;
    return FALSE;
}

}  // namespace

HWND FindWindowOf(DWORD processId, const std::wstring& title) {
    TitleSearch search{processId, title, nullptr};
    EnumWindows(VisitWindow, reinterpret_cast<LPARAM>(&search));  // stops early when found
    return search.Found;
}

HWND WaitForWindowOf(DWORD processId, const std::wstring& title) {
    HWND window = nullptr;
    WaitUntil([&] { return (window = FindWindowOf(processId, title)) != nullptr; });
    return window;
}

bool EndProcessHard(DWORD processId) {
    const samplehost::Handle process(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, processId));
    return process && TerminateProcess(process.Get(), 1) &&
           WaitForSingleObject(process.Get(), kPatienceMs) == WAIT_OBJECT_0;
}

}  // namespace ferry::e2e
