// Shell items for paths.
#pragma once

#include <windows.h>
// After windows.h, which the shell's headers build on.
#include <shobjidl.h>

#include <string>
#include <string_view>

#include "base/com_ptr_win32.h"
#include "files/ports.h"

namespace ferry::desktop {

/// Puts the shell item of the existing file or folder at `path` into `item`. The result of the shell's
/// parsing, or "file not found" where the shell parsed another item; on a failure `item` holds nothing.
HRESULT MakeShellItem(std::wstring_view path, files::FileInfo& info, base::ComPtr<IShellItem>& item);

/// Makes the shell items of a run. To take a whole path apart costs the shell far more than to find a name in
/// a folder, and most items of a run lie beside the one before: such an item is made by its folder.
class ShellItemMaker {
public:
    /// `info` must outlive this object.
    explicit ShellItemMaker(files::FileInfo& info) noexcept : info_(info) {}

    /// As MakeShellItem does.
    HRESULT Make(std::wstring_view path, base::ComPtr<IShellItem>& item);

private:
    bool MakeBeside(std::wstring_view path, base::ComPtr<IShellItem>& item);
    bool FindFolder();
    void Keep(std::wstring_view path, IShellItem& item);

    files::FileInfo& info_;
    // Of the item that was last made of a whole path: what stands before its name, the item itself until its
    // folder is asked for, and that folder.
    std::wstring parent_;
    base::ComPtr<IShellItem> whole_;
    base::ComPtr<IShellFolder> folder_;
};

}  // namespace ferry::desktop
