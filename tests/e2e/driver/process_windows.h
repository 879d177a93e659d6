// The windows that another process shows, by their titles: progress, questions of the shell.
#pragma once

#include <windows.h>

#include <string>

namespace ferry::e2e {

/// The visible window of process `processId` with exactly this title; null when there is none.
HWND FindWindowOf(DWORD processId, const std::wstring& title);

/// Waits for such a window; null when it does not come.
HWND WaitForWindowOf(DWORD processId, const std::wstring& title);

}  // namespace ferry::e2e
