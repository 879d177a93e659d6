// The start of the transfer: checks, preparations, and the run itself.
#include <windows.h>

#include "base/com_ptr_win32.h"
#include "base/message_box_win32.h"
#include "base/text.h"
#include "dialogs/ferry_dialog.h"
#include "dialogs/run_windows.h"
#include "hostlink/host_messages_win32.h"
#include "ids.h"
#include "transfer/batch_run.h"
#include "transfer/destination.h"
#include "transfer/file_system_win32.h"
#include "transfer/individual_run.h"
#include "transfer/shell_operations_win32.h"

namespace ferry::dialogs {

void CFerryDlg::OnOK() {
    transfer::TransferRequest request;
    // A run takes the messages of its thread, so another program's press can come in the middle of one.
    if (hasStarted_ || !MakeRequest(request)) {
        return;
    }
    hasStarted_ = true;
    if (!IsShiftHeld()) {
        transfer::SaveTransferSettings(services_.Settings, request.Settings);
    }
    for (std::size_t index = 0; index < list_.Items().Size(); ++index) {
        request.Sources.Append(list_.Items().Path(index));
    }
    if (request.Settings.OpenTarget != 0) {
        TellHostToOpen(request.Destination);
    }
    EndDialog(IDOK);
    RunTransfer(request);
}

bool CFerryDlg::MakeRequest(transfer::TransferRequest& request) {
    if (!ExchangeForm(true) || list_.Items().Size() == 0) {
        return false;
    }
    form_.Destination = base::Trim(form_.Destination);
    PostMessageW(destination_.Edit(), EM_SETSEL, static_cast<WPARAM>(-1), -1);
    transfer::WorkingDestination destination = transfer::MakeWorkingDestination(form_.Destination);
    if (destination.Message != 0) {
        ShowMessage(destination.Message);
        return false;
    }
    transfer::WindowsFileSystem fileSystem;
    const transfer::EnsuredFolder folder = transfer::EnsureDestinationFolder(fileSystem, destination.Path);
    if (folder.Outcome != transfer::FolderOutcome::Ready) {
        if (folder.Outcome == transfer::FolderOutcome::Failed) {
            ShowMessage(folder.Message);
        }
        return false;
    }
    request.Destination = std::move(destination.Path);
    request.What = static_cast<transfer::Operation>(form_.Operation);
    request.Settings = static_cast<const transfer::TransferSettings&>(form_);
    return true;
}

void CFerryDlg::ShowMessage(std::uint16_t number) {
    base::ShowMessageBox(services_.Messages.Fetch(number), MB_OK | MB_ICONEXCLAMATION);
}

void CFerryDlg::TellHostToOpen(const std::wstring& destination) {
    if (const HWND host = hostlink::FindHostWindow(); host != nullptr) {
        hostlink::SendText(host, Handle(), hostlink::kShowFolderCode, destination);
    }
}

void CFerryDlg::RunTransfer(const transfer::TransferRequest& request) {
    const base::ComApartment com;
    transfer::WindowsShellOperations shell(Handle());
    if (request.Settings.Mode == static_cast<std::uint32_t>(transfer::WorkingMode::Batch)) {
        transfer::RunBatch(request, shell);
        return;
    }
    transfer::WindowsFileSystem fileSystem;
    ProgressWindow progress(services_, Handle(), request.What);
    QuestionWindows questions(services_, progress, Handle());
    transfer::IndividualRun(request, fileSystem, shell, questions, progress).Run();
}

}  // namespace ferry::dialogs
