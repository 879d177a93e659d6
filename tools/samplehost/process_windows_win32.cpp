#include "process_windows_win32.h"

namespace ferry::samplehost {
namespace {

struct Search {
    DWORD ProcessId;
    const std::function<bool(HWND)>& IsWanted;
    HWND Found = nullptr;
};

BOOL CALLBACK VisitWindow(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner != search.ProcessId || !IsWindowVisible(window) || !search.IsWanted(window))
        return TRUE;
    search.Found = window;
    return FALSE;
}

}  // namespace

HWND FindVisibleWindow(DWORD processId, const std::function<bool(HWND)>& isWanted) {
    Search search{processId, isWanted};
    EnumWindows(VisitWindow, reinterpret_cast<LPARAM>(&search));  // stops early when found
    return search.Found;
}

}  // namespace ferry::samplehost
