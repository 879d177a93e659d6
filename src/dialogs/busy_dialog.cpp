#include "dialogs/busy_dialog.h"

#include <utility>

#include "ids.h"

namespace ferry::dialogs {

CDlgBusy::CDlgBusy(Services& services) : CDialogEx(IDD_BUSY), services_(services) {}

void CDlgBusy::SetFirstLine(std::wstring text) {
    firstLine_ = std::move(text);
    ShowLines();
}

void CDlgBusy::SetSecondLine(std::wstring text) {
    secondLine_ = std::move(text);
    ShowLines();
}

void CDlgBusy::ShowLines() const {
    if (Handle() != nullptr) {
        SetDlgItemTextW(Handle(), IDC_BUSY_TITLE, firstLine_.c_str());
        SetDlgItemTextW(Handle(), IDC_BUSY_ITEM, secondLine_.c_str());
    }
}

bool CDlgBusy::OnInitDialog() {
    services_.Localiser.Localise(IDD_BUSY, Handle());
    bar_.Attach(Item(IDC_BUSY_BAR));
    ShowWindow(Item(IDCANCEL), cancellable_ ? SW_SHOW : SW_HIDE);
    ShowLines();
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
