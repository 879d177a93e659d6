#include "dialogs/busy_dialog.h"

#include <utility>

#include "ids.h"

namespace ferry::dialogs {

CDlgBusy::CDlgBusy(Services& services) : CDialogEx(IDD_BUSY), services_(services) {}

void CDlgBusy::SetFirstLine(std::wstring text) {
    firstLine_ = std::move(text);
    ShowLine(IDC_BUSY_TITLE, firstLine_);
}

void CDlgBusy::SetSecondLine(std::wstring text) {
    secondLine_ = std::move(text);
    ShowLine(IDC_BUSY_ITEM, secondLine_);
}

// One line at a time: a run changes the second for every file, and drawing the first again each
// time would cost more than moving a small file.
void CDlgBusy::ShowLine(int control, const std::wstring& text) const {
    if (Handle() != nullptr) {
        SetDlgItemTextW(Handle(), control, text.c_str());
    }
}

bool CDlgBusy::OnInitDialog() {
    services_.Localiser.Localise(IDD_BUSY, Handle());
    bar_.Attach(Item(IDC_BUSY_BAR));
    ShowWindow(Item(IDCANCEL), cancellable_ ? SW_SHOW : SW_HIDE);
    ShowLine(IDC_BUSY_TITLE, firstLine_);
    ShowLine(IDC_BUSY_ITEM, secondLine_);
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
