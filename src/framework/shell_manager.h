// The shell's services for dialogs: the folder browser and the system's small icons.
#pragma once

#include <windows.h>
#include <commctrl.h>
#include <commoncontrols.h>

#include <future>
#include <optional>
#include <string>

#include "base/com_ptr_win32.h"

namespace ferry::framework {

/// One per application, on the user-interface thread.
class CShellManager {
public:
    /// Begins to fetch the icons on a thread of its own: the system makes their list for each process
    /// anew, which takes about as long as everything else until the first dialog is made.
    CShellManager();

    /// Lets the user choose a folder, starting at `start` when it exists. Nothing when the user
    /// cancelled or chose something that has no path.
    std::optional<std::wstring> BrowseForFolder(HWND owner, const std::wstring& prompt,
                                                const std::wstring& start);

    /// The system's list of small icons for windows of `dpi` dots per inch, valid as long as this object;
    /// null when there is none. The system makes its icons in few sizes: the largest of them that fits.
    HIMAGELIST SmallIcons(UINT dpi);

private:
    std::future<base::ComPtr<IImageList>> fetchedIcons_;
    base::ComPtr<IImageList> smallIcons_;
    base::ComPtr<IImageList> largerIcons_[2];
};

}  // namespace ferry::framework
