#include "progress_window_win32.h"

#include <commctrl.h>

#include "module_win32.h"
#include "resource.h"

namespace ferry::fileop {
namespace {

constexpr UINT kMarqueeStepMs = 50;

}  // namespace

ProgressWindow::ProgressWindow(HWND owner, const std::wstring& message) {
    const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_PROGRESS_CLASS};
    InitCommonControlsEx(&classes);
    window_ = CreateDialogParamW(ModuleHandle(), MAKEINTRESOURCEW(IDD_PROGRESS), owner, Procedure,
                                 reinterpret_cast<LPARAM>(this));
    if (window_ == nullptr) {
        return;
    }
    SetDlgItemTextW(window_, IDC_TEXT, message.empty() ? L"Files are being transferred." : message.c_str());
    SendDlgItemMessageW(window_, IDC_BAR, PBM_SETMARQUEE, TRUE, kMarqueeStepMs);
    ShowWindow(window_, SW_SHOW);
    UpdateWindow(window_);
}

ProgressWindow::~ProgressWindow() {
    if (window_ != nullptr) {
        DestroyWindow(window_);
    }
}

void ProgressWindow::ShowItem(const std::wstring& path) {
    if (window_ != nullptr) {
        SetDlgItemTextW(window_, IDC_SOURCE, path.c_str());
    }
}

void ProgressWindow::Drain() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            hasCancelled_ = true;
            return;
        }
        if (window_ == nullptr || !IsDialogMessageW(window_, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

INT_PTR CALLBACK ProgressWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        return TRUE;
    }
    auto* self = reinterpret_cast<ProgressWindow*>(GetWindowLongPtrW(window, DWLP_USER));
    if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL && self != nullptr) {
        self->hasCancelled_ = true;
        EnableWindow(GetDlgItem(window, IDCANCEL), FALSE);
        return TRUE;
    }
    if (message == WM_NCDESTROY && self != nullptr) {
        self->window_ = nullptr;  // an owner that goes takes this window along
        SetWindowLongPtrW(window, DWLP_USER, 0);
    }
    return FALSE;
}

}  // namespace ferry::fileop
