#include "desktop/shell_operations_win32.h"

// After windows.h, which the shell's headers build on.
#include <shlobj.h>

namespace ferry::desktop {

using transfer::BatchOutcome;
using transfer::Operation;
using transfer::ShellOutcome;
using transfer::ShellResult;
using transfer::ShellTransfer;

namespace {

/// Every kind of server that may supply the object: in-process and its handler, local, remote.
constexpr DWORD kAnyServer =
    CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER | CLSCTX_LOCAL_SERVER | CLSCTX_REMOTE_SERVER;

base::ComPtr<IFileOperation> MakeOperation() {
    base::ComPtr<IFileOperation> operation;
    // A failure leaves the pointer empty, which says it all.
    CoCreateInstance(CLSID_FileOperation, nullptr, kAnyServer, IID_PPV_ARGS(operation.Put()));
    return operation;
}

/// Performs what is queued. `queued` is what came of the queueing, which says more than a failure to perform
/// nothing.
ShellOutcome Perform(IFileOperation& operation, HWND owner, DWORD flags, const ShellOutcome& queued) {
    operation.SetOwnerWindow(owner);
    operation.SetOperationFlags(flags);
    const HRESULT code = operation.PerformOperations();
    if (code == S_FALSE)
        return {ShellResult::NoObject, code, false};
    if (queued.What != ShellResult::Done)
        return queued;
    return {FAILED(code) ? ShellResult::Failed : ShellResult::Done, code, false};
}

}  // namespace

ShellOutcome WindowsShellOperations::Transfer(const ShellTransfer& transfer) {
    const auto operation = MakeOperation();
    if (!operation)
        return {ShellResult::NoObject, S_FALSE, false};
    const ShellOutcome queued = Queue(*operation.Get(), transfer);
    ShellOutcome outcome = Perform(*operation.Get(), owner_, transfer.Flags, queued);
    if (transfer.AskAborted) {
        BOOL aborted = FALSE;
        operation->GetAnyOperationsAborted(&aborted);
        outcome.Aborted = aborted != FALSE;
    }
    return outcome;
}

BatchOutcome WindowsShellOperations::TransferAll(const base::TextList& sources, const ShellTransfer& batch) {
    BatchOutcome outcome;
    const auto operation = MakeOperation();
    if (!operation) {
        static_cast<ShellOutcome&>(outcome) = {ShellResult::NoObject, S_FALSE, false};
        return outcome;
    }
    ShellTransfer transfer = batch;
    ShellOutcome queued;
    for (const std::wstring_view source : sources) {
        transfer.Source = source;
        // A server that is away keeps a program waiting: once for the folder is enough.
        if (queued.What != ShellResult::NoFolderItem)
            queued = Queue(*operation.Get(), transfer);
        if (queued.What != ShellResult::Done)
            outcome.Left.push_back({source, queued.What, queued.Code});
    }
    static_cast<ShellOutcome&>(outcome) =
        Perform(*operation.Get(), GetDesktopWindow(), batch.Flags & 0xFFFF, {});
    return outcome;
}

void WindowsShellOperations::NotifyFolderMade(std::wstring_view path) {
    SHChangeNotify(SHCNE_MKDIR, SHCNF_PATHW, std::wstring(path).c_str(), nullptr);
}

ShellOutcome WindowsShellOperations::Queue(IFileOperation& operation, const ShellTransfer& transfer) {
    base::ComPtr<IShellItem> source;
    if (const HRESULT code = sources_.Make(transfer.Source, source); FAILED(code))
        return {ShellResult::NoSourceItem, code, false};
    if (const HRESULT code = FindFolder(transfer.TargetFolder); FAILED(code))
        return {ShellResult::NoFolderItem, code, false};
    const bool copies = transfer.What == Operation::Copy;
    HRESULT code = S_OK;
    if (transfer.NewName.empty()) {
        const auto queue = copies ? &IFileOperation::CopyItems : &IFileOperation::MoveItems;
        code = (operation.*queue)(source.Get(), folderItem_.Get());
    } else {
        const auto queue = copies ? &IFileOperation::CopyItem : &IFileOperation::MoveItem;
        const std::wstring name(transfer.NewName);
        code = (operation.*queue)(source.Get(), folderItem_.Get(), name.c_str(), nullptr);
    }
    return {FAILED(code) ? ShellResult::NotQueued : ShellResult::Done, code, false};
}

/// Puts the item of `folder` into folderItem_; none for an empty text.
HRESULT WindowsShellOperations::FindFolder(std::wstring_view folder) {
    if (folder == folder_)
        return S_OK;
    base::ComPtr<IShellItem> item;
    const HRESULT code = folder.empty() ? S_OK : MakeShellItem(folder, info_, item);
    if (FAILED(code))
        return code;
    folder_ = folder;
    folderItem_ = std::move(item);
    return S_OK;
}

}  // namespace ferry::desktop
