#include "process_windows_win32.h"

#include <cstdio>

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

bool StartProcess(const std::wstring& path, std::wstring& line, DWORD flags, STARTUPINFOW& start,
                  PROCESS_INFORMATION& info) {
    const BOOL inherits = (start.dwFlags & STARTF_USESTDHANDLES) != 0;
    const auto create = [&] {
        return CreateProcessW(path.c_str(), line.data(), nullptr, nullptr, inherits, flags, nullptr, nullptr,
                              &start, &info) != FALSE;
    };
    if (create())
        return true;
    if (GetLastError() != ERROR_INTERNAL_ERROR)
        return false;
    std::puts("not started by the system, once more");
    return create();
}

}  // namespace ferry::samplehost
