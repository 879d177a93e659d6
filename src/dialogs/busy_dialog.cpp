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
    // What follows a slow item may be slow, too, although that one's name was drawn just now.
    const ULONGLONG now = GetTickCount64();
    if (now - std::exchange(steppedAt_, now) >= kShowDelayMs)
        ShowNow();
    else
        ShowSoon();
}

void CDlgBusy::ShowSoon() {
    if (Handle() == nullptr)
        return;
    // The timer comes with the messages only, which nobody takes while a file is copied.
    if (GetTickCount64() - shownAt_ >= kShowDelayMs) {
        ShowNow();
        return;
    }
    if (showsSoon_)
        return;
    showsSoon_ = SetTimer(Handle(), kShowTimerId, kShowDelayMs, nullptr) != 0;
    if (!showsSoon_) {
        ShowState();
    }
}

std::span<const framework::Route> CDlgBusy::Routes() const {
    static constexpr framework::Route kRoutes[] = {
        framework::OnMessage<&CDlgBusy::OnShowTimer>(WM_TIMER),
        framework::OnMessage<&CDlgBusy::OnSessionEnds>(WM_QUERYENDSESSION),
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

void CDlgBusy::ShowNow() {
    if (Handle() == nullptr)
        return;
    ShowState();
    RedrawWindow(Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    // A look for messages shows the system that the window lives, which from here on counts how long it is
    // silent; some systems bring to the screen only then what was drawn. None is taken: nobody sends this
    // one.
    MSG message;
    PeekMessageW(&message, Handle(), WM_APP, WM_APP, PM_NOREMOVE);
}

void CDlgBusy::ShowState() {
    shownAt_ = GetTickCount64();
    ShowLine(IDC_BUSY_ITEM, secondLine_);
    bar_.Show(stepsDone_, steps_);
}

void CDlgBusy::ShowLine(int control, const std::wstring& text) const {
    if (Handle() != nullptr) {
        SetDlgItemTextW(Handle(), control, text.c_str());
    }
}

bool CDlgBusy::OnInitDialog() {
    // Its owner is hidden, so that the run would have no button in the taskbar.
    SetWindowLongPtrW(Handle(), GWL_EXSTYLE, GetWindowLongPtrW(Handle(), GWL_EXSTYLE) | WS_EX_APPWINDOW);
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
        // First, so that whoever hears it can make a window ready to be the next active one.
        if (tellStop_)
            tellStop_();
        EndDialog(IDCANCEL);
    }
}

/// An Escape that is held over from a question which it ended must not end the run as well.
bool CDlgBusy::PreTranslateMessage(MSG& message) {
    const bool isRepeated = (message.lParam & (KF_REPEAT << 16)) != 0;
    return message.message == WM_KEYDOWN && message.wParam == VK_ESCAPE && isRepeated;
}

void CDlgBusy::DestroyWindow() {
    if (Handle() != nullptr) {
        EndDialog(0);
    }
    CDialogEx::DestroyWindow();
}

}  // namespace ferry::dialogs
