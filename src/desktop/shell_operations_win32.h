// The shell's file operation behind the port of the runs.
#pragma once

#include <windows.h>
// After windows.h, which the shell's headers build on.
#include <shobjidl.h>

#include <string>

#include "base/com_ptr_win32.h"
#include "desktop/shell_item_win32.h"
#include "transfer/ports.h"

namespace ferry::desktop {

/// Hands transfers to the shell. Before the first one the thread must have initialised COM, and then keep it
/// so as long as this lives.
class WindowsShellOperations : public transfer::ShellOperations {
public:
    /// `owner` owns what the shell shows during single transfers; a batch outlives that window
    /// and belongs to the desktop. `info` must outlive this object.
    WindowsShellOperations(HWND owner, files::FileInfo& info) noexcept
        : owner_(owner), info_(info), sources_(info) {}

    transfer::ShellOutcome Transfer(const transfer::ShellTransfer& transfer) override;
    transfer::BatchOutcome TransferAll(const base::TextList& sources,
                                       const transfer::ShellTransfer& batch) override;
    void NotifyFolderMade(std::wstring_view path) override;

private:
    transfer::ShellOutcome Queue(IFileOperation& operation, const transfer::ShellTransfer& transfer);
    HRESULT FindFolder(std::wstring_view folder);

    HWND owner_;
    files::FileInfo& info_;
    ShellItemMaker sources_;
    // The item of the folder that was last transferred into: as a rule the next one goes there, too.
    std::wstring folder_;
    base::ComPtr<IShellItem> folderItem_;
};

}  // namespace ferry::desktop
