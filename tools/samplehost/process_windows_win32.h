// Processes and their windows.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace ferry::samplehost {

/// The topmost visible window of process `processId` that `isWanted`; null when there is none.
HWND FindVisibleWindow(DWORD processId, const std::function<bool(HWND)>& isWanted);

/// CreateProcessW, with inheritance only where `start` names standard handles; once more when the system
/// fails by an error of its own. Wine does so once in some thousand times, and nothing of the program has run
/// then. The output tells of it.
bool StartProcess(const std::wstring& path, std::wstring& line, DWORD flags, STARTUPINFOW& start,
                  PROCESS_INFORMATION& info);

}  // namespace ferry::samplehost
