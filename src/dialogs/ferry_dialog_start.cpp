// The start of the transfer: checks, preparations, and the run itself.
#include <windows.h>

#include "base/com_ptr_win32.h"
#include "desktop/host_messages.h"
#include "desktop/session_hold.h"
#include "dialogs/ferry_dialog.h"
#include "dialogs/report_dialog.h"
#include "dialogs/run_windows.h"
#include "ids.h"
#include "transfer/batch_run.h"
#include "transfer/individual_run.h"

namespace ferry::dialogs {

void CFerryDlg::OnOK() {
    // A run takes the messages of its thread, and so does a favourite's script: another program's press can
    // come in the middle of one.
    if (hasStarted_ || favouriteUse_ != FavouriteUse::None)
        return;
    std::optional<transfer::TransferRequest> request = MakeRequest();
    if (!request)
        return;
    hasStarted_ = true;
    if (!IsToBeForgotten()) {
        transfer::SaveTransferSettings(services_.Settings, request->Settings);
    }
    // A list of its own, since a drop can still change the dialog's while the run takes messages.
    for (std::size_t index = 0; index < list_.Items().Size(); ++index) {
        request->Sources.Append(list_.Items().Path(index));
    }
    if (request->Settings.OpenTarget != 0) {
        TellHostToOpen(request->Destination);
    }
    EndDialog(IDOK);
    RunTransfer(*request);
}

std::optional<transfer::TransferRequest> CFerryDlg::MakeRequest() {
    if (!ExchangeForm(framework::Exchange::FromControls) || list_.Items().Size() == 0) {
        return std::nullopt;
    }
    // Where the start is refused, the caret stands behind the text, which the focus would select.
    PostMessageW(destination_.Edit(), EM_SETSEL, static_cast<WPARAM>(-1), -1);
    const auto shell = services_.MakeShellOperations(Handle());
    confirmation::Start start =
        confirmation::PrepareStart(form_, services_.Files, services_.FileChanges, *shell);
    if (start.Message != 0) {
        ShowMessage(start.Message);
    }
    return std::move(start.Request);
}

void CFerryDlg::ShowMessage(std::uint16_t number) {
    services_.Speaker.Tell(services_.Messages.Fetch(number), lang::Tone::Warning);
}

void CFerryDlg::TellHostToOpen(const std::wstring& destination) {
    if (const HWND host = desktop::FindHostWindow(); host != nullptr) {
        desktop::SendText(host, Handle(), desktop::kShowFolderCode, destination);
    }
}

void CFerryDlg::RunTransfer(const transfer::TransferRequest& request) {
    const base::ComApartment com;
    const desktop::SessionHold hold(Handle(), RunTitle(services_.Messages, request.What));
    const auto shell = services_.MakeShellOperations(Handle());
    if (request.Settings.Mode == static_cast<std::uint32_t>(transfer::WorkingMode::Batch)) {
        ReportLeftovers(services_.Localiser, Handle(), transfer::RunBatch(request, *shell));
        return;
    }
    ReportLeftovers(services_.Localiser, Handle(), RunItemByItem(request, *shell));
}

/// In the middle of a file or of a script nobody logs off.
framework::Answer CFerryDlg::OnSessionEnds(WPARAM, LPARAM) const {
    return hasStarted_ || favouriteUse_ == FavouriteUse::Running ? framework::Answer(FALSE) : std::nullopt;
}

transfer::Leftovers CFerryDlg::RunItemByItem(const transfer::TransferRequest& request,
                                             transfer::ShellOperations& shell) {
    ProgressWindow progress(services_, Handle(), request.What);
    QuestionWindows questions(services_, progress, Handle());
    transfer::IndividualRun run(request, {services_.Files, services_.Folders, services_.FileChanges, shell,
                                          services_.Clock, questions, progress});
    run.Run();
    return run.Left();
}

}  // namespace ferry::dialogs
