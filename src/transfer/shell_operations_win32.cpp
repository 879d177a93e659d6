#include "transfer/shell_operations_win32.h"

// After windows.h, which the shell's headers build on.
#include <shobjidl.h>

#include "base/com_ptr_win32.h"
#include "paths/path_helpers_win32.h"
#include "paths/shell_item_win32.h"

namespace ferry::transfer {
namespace {

/// What stands for a result when there is no operation object.
constexpr std::int32_t kNoOperation = 1;

/// Every kind of server that may supply the object: in-process and its handler, local, remote.
constexpr DWORD kAnyServer =
    CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER | CLSCTX_LOCAL_SERVER | CLSCTX_REMOTE_SERVER;

/// What every batch has: undo, no connected items, no copied security attributes.
constexpr std::uint32_t kBatchFlags = kFlagAllowUndo | kFlagNoConnectedElements | kFlagNoCopySecurity;

base::ComPtr<IFileOperation> MakeOperation() {
    base::ComPtr<IFileOperation> operation;
    // A failure leaves the pointer empty, which says it all.
    CoCreateInstance(CLSID_FileOperation, nullptr, kAnyServer, IID_PPV_ARGS(operation.Put()));
    return operation;
}

/// Queues `source` under its own name; an item that the shell cannot parse is left out.
void Queue(const base::ComPtr<IFileOperation>& operation, std::wstring_view source, std::wstring_view folder,
           std::uint32_t function) {
    base::ComPtr<IShellItem> sourceItem;
    base::ComPtr<IShellItem> folderItem;
    if (FAILED(paths::MakeShellItem(source, sourceItem)) ||
        FAILED(paths::MakeShellItem(folder, folderItem))) {
        return;
    }
    // A failure to queue shows in what PerformOperations answers.
    if (function == kFunctionCopy) {
        operation->CopyItems(sourceItem.Get(), folderItem.Get());
    } else {
        operation->MoveItems(sourceItem.Get(), folderItem.Get());
    }
}

void QueueUnderNewName(const base::ComPtr<IFileOperation>& operation, const ShellTransfer& transfer) {
    const std::wstring target = std::wstring(transfer.TargetFolder) + std::wstring(transfer.NewName);
    if (transfer.Function == kFunctionCopy) {
        paths::QueueCopy(operation.Get(), transfer.Source, target);
    } else {
        paths::QueueMove(operation.Get(), transfer.Source, target);
    }
}

std::int32_t Perform(const base::ComPtr<IFileOperation>& operation, HWND owner, DWORD flags) {
    operation->SetOwnerWindow(owner);
    operation->SetOperationFlags(flags);
    return operation->PerformOperations();
}

}  // namespace

ShellOutcome WindowsShellOperations::TransferFile(const ShellTransfer& transfer) {
    const auto operation = MakeOperation();
    if (!operation) {
        return {kNoOperation, false};
    }
    if (transfer.NewName.empty()) {
        Queue(operation, transfer.Source, transfer.TargetFolder, transfer.Function);
    } else {
        QueueUnderNewName(operation, transfer);
    }
    const std::int32_t result = Perform(operation, owner_, transfer.Flags);
    BOOL aborted = FALSE;
    if (transfer.AskAborted) {
        operation->GetAnyOperationsAborted(&aborted);
    }
    return {result, aborted != FALSE};
}

std::int32_t WindowsShellOperations::TransferBatch(const base::TextList& sources,
                                                   std::wstring_view destination, std::uint32_t function,
                                                   std::uint32_t flags) {
    const auto operation = MakeOperation();
    if (!operation) {
        return kNoOperation;
    }
    for (const std::wstring_view source : sources) {
        Queue(operation, source, destination, function);
    }
    return Perform(operation, GetDesktopWindow(), (flags & 0xFFFF) | kBatchFlags);
}

}  // namespace ferry::transfer
