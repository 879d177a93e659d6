#include "dialogs/run_windows.h"

#include "base/text.h"
#include "confirmation/answers.h"
#include "confirmation/policies.h"
#include "desktop/window_placement.h"
#include "dialogs/file_mode_dialog.h"
#include "dialogs/input_dialog.h"
#include "framework/messages.h"
#include "ids.h"

namespace ferry::dialogs {

namespace {

constexpr std::uint16_t kMovingTitle = 5953;
constexpr std::uint16_t kCopyingTitle = 5954;

}  // namespace

std::wstring RunTitle(lang::Catalogue& messages, transfer::Operation operation) {
    return messages.Fetch(operation == transfer::Operation::Move ? kMovingTitle : kCopyingTitle);
}

ProgressWindow::ProgressWindow(Services& services, HWND confirmation, transfer::Operation operation)
    : confirmation_(confirmation), dialog_(services.Localiser) {
    dialog_.SetCancellable(true);
    dialog_.SetFirstLine(RunTitle(services.Messages, operation));
    dialog_.Create(confirmation);
    EnableWindow(confirmation, FALSE);
}

ProgressWindow::~ProgressWindow() {
    EnableWindow(confirmation_, TRUE);
    dialog_.DestroyWindow();
}

void ProgressWindow::SetRange(std::uint32_t count) {
    dialog_.StartSteps(count);
}

bool ProgressWindow::DrainAndTakeCancel(transfer::Pause at) {
    const ULONGLONG now = GetTickCount64();
    if (at == transfer::Pause::Listing && now - lastDrain_ < kShowDelayMs)
        return false;
    lastDrain_ = now;
    // A thread that is to end ends its run at this point.
    if (!framework::HandleWaitingMessages(
            [this](MSG& message) { return dialog_.HandleDialogMessage(message); }))
        return true;
    return dialog_.TakeCancelRequest();
}

void ProgressWindow::Step() {
    dialog_.StepIt();
}

void ProgressWindow::ShowItem(std::wstring_view name) {
    dialog_.SetSecondLine(name);
}

void ProgressWindow::ShowNow() {
    dialog_.ShowNow();
}

int ProgressWindow::Ask(framework::CDialog& question, int stopped) {
    ShowNow();
    // The question has no button of its own in the taskbar.
    desktop::FlashIfElsewhere(Window());
    question.SetCompanion(&dialog_);
    dialog_.OnStop([&question, stopped] { question.EndDialog(stopped); });
    const int answer = question.DoModal();
    dialog_.OnStop({});
    return answer;
}

transfer::CollisionAnswer QuestionWindows::AskCollision(std::wstring_view name) {
    CDlgFileMode dialog(services_, confirmation_, std::wstring(name));
    const int button = progress_.Ask(dialog, IDC_STOP_ALL);
    return {confirmation::CollisionChoiceOf(button), transfer::PolicyOf(dialog.Choice())};
}

transfer::NameAnswer QuestionWindows::AskNewName(transfer::RenameKind kind, std::wstring_view path) {
    CDlgInput dialog(services_, confirmation_, RenameCaption(kind), std::wstring(path));
    const int button = progress_.Ask(dialog, IDC_APPLY_TO_ALL);
    return {confirmation::NameChoiceOf(button), dialog.Result()};
}

// The label of the policy that leads to the question, as the user read it there.
std::wstring QuestionWindows::RenameCaption(transfer::RenameKind kind) const {
    using transfer::CollisionPolicy;
    const int label = confirmation::ConfirmationChoice(kind == transfer::RenameKind::Incoming
                                                           ? CollisionPolicy::RenameIncoming
                                                           : CollisionPolicy::RenameExisting);
    return base::ReplaceAll(framework::WindowText(GetDlgItem(confirmation_, label)), L"&", L"");
}

void QuestionWindows::ShowError(std::uint16_t message) {
    services_.Speaker.Tell(services_.Messages.Fetch(message), lang::Tone::Error);
}

}  // namespace ferry::dialogs
