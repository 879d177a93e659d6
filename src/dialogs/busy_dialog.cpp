#include "dialogs/busy_dialog.h"

#include <utility>

#include "ids.h"

namespace ferry::dialogs {

namespace {

constexpr UINT_PTR kShowTimerId = 1;

}  // namespace

CDlgBusy::CDlgBusy(DialogLocaliser& localiser) : CDialogEx(IDD_BUSY, localiser) {}

void CDlgBusy::SetFirstLine(std::wstring text) {
    firstLine_ = std::move(text);
    ShowLine(IDC_BUSY_TITLE, firstLine_);
}

void CDlgBusy::SetSecondLine(std::wstring_view text) {
    secondLine_ = text;
    ShowSoon();
}

void CDlgBusy::StartSteps(std::uint32_t count) {
    stepsDone_ = 0;
    steps_ = count;
    ShowSoon();
}

void CDlgBusy::StepIt() {
    // Of very many items the bar knows the count without its high bits only. Then there are more
    // steps than it has, and it starts over, as a bar does that gets a message for each.
    if (++stepsDone_ > steps_) {
        stepsDone_ = steps_ == 0 ? 0 : stepsDone_ % steps_;
    }
    ShowSoon();
}

void CDlgBusy::ShowSoon() {
    if (Handle() == nullptr || showsSoon_)
        return;
    showsSoon_ = SetTimer(Handle(), kShowTimerId, kShowDelayMs, nullptr) != 0;
    if (!showsSoon_) {
        ShowState();
    }
}

std::span<const framework::Route> CDlgBusy::Routes() const {
    static constexpr framework::Route kRoutes[] = {
        framework::OnMessage<&CDlgBusy::OnShowTimer>(WM_TIMER),
    };
    return kRoutes;
}

framework::Answer CDlgBusy::OnShowTimer(WPARAM id, LPARAM) {
    if (id != kShowTimerId)
        return std::nullopt;
    KillTimer(Handle(), kShowTimerId);
    showsSoon_ = false;
    ShowState();
    return 0;
}

void CDlgBusy::ShowState() const {
    ShowLine(IDC_BUSY_ITEM, secondLine_);
    bar_.Show(stepsDone_, steps_);
}

void CDlgBusy::ShowLine(int control, const std::wstring& text) const {
    if (Handle() != nullptr) {
        SetDlgItemTextW(Handle(), control, text.c_str());
    }
}

bool CDlgBusy::OnInitDialog() {
    Localise();
    bar_.Attach(Item(IDC_BUSY_BAR));
    showsSoon_ = false;
    ShowWindow(Item(IDCANCEL), cancellable_ ? SW_SHOW : SW_HIDE);
    ShowLine(IDC_BUSY_TITLE, firstLine_);
    ShowState();
    return true;
}

void CDlgBusy::OnCancel() {
    if (cancellable_) {
        cancelRequested_ = true;
        EndDialog(IDCANCEL);
    }
}

void CDlgBusy::DestroyWindow() {
    if (Handle() != nullptr) {
        EndDialog(0);
    }
    CDialogEx::DestroyWindow();
}

}  // namespace ferry::dialogs
