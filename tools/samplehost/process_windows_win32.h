// Windows of another process.
#pragma once

#include <windows.h>

#include <functional>

namespace ferry::samplehost {

/// The topmost visible window of process `processId` that `isWanted`; null when there is none.
HWND FindVisibleWindow(DWORD processId, const std::function<bool(HWND)>& isWanted);

}  // namespace ferry::samplehost
