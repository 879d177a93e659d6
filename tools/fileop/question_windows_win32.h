// The windows that ask about a taken name, a failure and a missing folder.
#pragma once

#include <windows.h>

#include <string>

#include "ports.h"

namespace ferry::fileop {

struct CollisionChoice {
    CollisionAnswer Answer = CollisionAnswer::Cancel;
    bool IsForAll = false;
};

/// Asks in a modal window titled "Replace or Skip Files"; Esc and a window that cannot be shown
/// mean Cancel. `owner` may be null.
CollisionChoice ShowCollisionWindow(HWND owner, const std::wstring& source, const std::wstring& target);

/// Tells about a failure in a modal window titled "Item Not Transferred".
ErrorAnswer ShowErrorWindow(HWND owner, const std::wstring& path, Result result);

/// Asks in a message box titled "Make Folder" whether the folder may be made.
bool ShowMakeFolderWindow(HWND owner, const std::wstring& path);

}  // namespace ferry::fileop
