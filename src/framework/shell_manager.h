// The shell's services for dialogs: the folder browser and the system's small icons.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <optional>
#include <string>

namespace ferry::framework {

/// One per application, on the user-interface thread.
class CShellManager {
public:
    /// Lets the user choose a folder, starting at `start` when it exists. Nothing when the user
    /// cancelled or chose something that has no path.
    std::optional<std::wstring> BrowseForFolder(HWND owner, const std::wstring& prompt,
                                                const std::wstring& start);

    /// The system's list of small icons; owned by the system.
    HIMAGELIST SmallIcons();
};

}  // namespace ferry::framework
