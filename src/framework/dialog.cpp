#include "framework/dialog.h"

#include <utility>

#include "framework/errors.h"

namespace ferry::framework {

namespace {

// Like an exception of a handler, one of a pre-translation ends here; the dialog goes on.
bool IsConsumedBy(CWnd& listener, MSG& message) noexcept {
    try {
        return listener.PreTranslateMessage(message);
    } catch (...) {
        ReportCurrentException();
        return true;
    }
}

}  // namespace

CDialog::~CDialog() {
    CDialog::DestroyWindow();
}

bool CDialog::Make(HWND owner) {
    ended_ = false;
    result_ = -1;
    return CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(templateId_), owner,
                              &CDialog::DialogProc, reinterpret_cast<LPARAM>(this)) != nullptr;
}

bool CDialog::Create(HWND owner) {
    return Make(owner);
}

int CDialog::DoModal() {
    if (owner_ != nullptr && IsWindowEnabled(owner_) != FALSE) {
        disabledOwner_ = owner_;
        EnableWindow(owner_, FALSE);
    }
    if (!Make(owner_)) {
        // An owner that has gone, or that belongs to a program with more rights, is refused: better a dialog
        // without an owner than none.
        EnableOwner();
        if (owner_ == nullptr || !Make(nullptr)) {
            return -1;
        }
    }
    if (!ended_) {
        ShowWindow(Handle(), SW_SHOWNORMAL);
        RunLoop();
    }
    EnableOwner();
    DestroyWindow();
    return result_;
}

void CDialog::RunLoop() {
    MSG message;
    while (!ended_ && Handle() != nullptr) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0) {
            // The thread is asked to quit: whoever runs the next loop has to hear it too.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (got == -1) {
            return;
        }
        if (!HandleDialogMessage(message) &&
            (companion_ == nullptr || !companion_->HandleDialogMessage(message))) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

void CDialog::DestroyWindow() {
    if (Handle() != nullptr) {
        ::DestroyWindow(Handle());
    }
}

void CDialog::EndDialog(int result) {
    result_ = result;
    ended_ = true;
    // The owner first: hiding the active window while its owner is disabled would hand the
    // foreground to another program.
    EnableOwner();
    if (Handle() != nullptr) {
        if (companion_ != nullptr && GetActiveWindow() == Handle()) {
            SetActiveWindow(companion_->Handle());
        }
        ShowWindow(Handle(), SW_HIDE);
        // The loop may be waiting for a message while a sent one got us here.
        PostMessageW(Handle(), WM_NULL, 0, 0);
    }
}

void CDialog::EnableOwner() noexcept {
    if (disabledOwner_ != nullptr) {
        EnableWindow(disabledOwner_, TRUE);
        disabledOwner_ = nullptr;
    }
}

/// Loads the icon in both sizes of the window's scaling; of the sizes in the file the system takes the
/// nearest.
void CDialog::ShowIcons() {
    if (iconId_ == 0) {
        return;
    }
    const UINT dpi = GetDpiForWindow(Handle());
    const auto load = [dpi](int width, int height) {
        return IconHandle(static_cast<HICON>(LoadImageW(
            GetModuleHandleW(nullptr), MAKEINTRESOURCEW(iconId_), IMAGE_ICON,
            GetSystemMetricsForDpi(width, dpi), GetSystemMetricsForDpi(height, dpi), LR_DEFAULTCOLOR)));
    };
    IconHandle large = load(SM_CXICON, SM_CYICON);
    IconHandle small = load(SM_CXSMICON, SM_CYSMICON);
    SendMessageW(Handle(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(large.Get()));
    SendMessageW(Handle(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(small.Get()));
    largeIcon_ = std::move(large);
    smallIcon_ = std::move(small);
}

bool CDialog::HandleDialogMessage(MSG& message) {
    if (Handle() == nullptr) {
        return false;
    }
    const bool isInput = (message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST) ||
                         (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST);
    if (isInput) {
        for (HWND window = message.hwnd; window != nullptr; window = GetParent(window)) {
            CWnd* const listener = FromHandle(window);
            if (listener != nullptr && IsConsumedBy(*listener, message)) {
                return true;
            }
            if (window == Handle()) {
                break;
            }
        }
    }
    return Handle() != nullptr && IsDialogMessageW(Handle(), &message) != FALSE;
}

// The system, too, would hand it on, but without a word on whose help it is.
Answer CDialog::AskOwnerForHelp(WPARAM wParam, LPARAM lParam) {
    const HWND owner = GetWindow(Handle(), GW_OWNER);
    if (owner == nullptr) {
        return std::nullopt;
    }
    return SendMessageW(owner, WM_HELP, wParam != 0 ? wParam : templateId_, lParam);
}

Answer CDialog::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DPICHANGED) {
        ShowIcons();
    }
    if (Answer answer = CWnd::Dispatch(message, wParam, lParam)) {
        return answer;
    }
    if (message == WM_HELP) {
        return AskOwnerForHelp(wParam, lParam);
    }
    if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
        if (LOWORD(wParam) == IDOK) {
            OnOK();
            return 0;
        }
        if (LOWORD(wParam) == IDCANCEL) {
            OnCancel();
            return 0;
        }
    }
    return std::nullopt;
}

INT_PTR CALLBACK CDialog::DialogProc(HWND dialog, UINT message, WPARAM, LPARAM lParam) noexcept {
    if (message != WM_INITDIALOG) {
        return FALSE;
    }
    // What a failed initialisation leaves undone stays undone; the dialog itself opens, so that
    // the user can still close it.
    try {
        auto& self = *reinterpret_cast<CDialog*>(lParam);
        self.Attach(dialog);
        self.ShowIcons();
        return self.OnInitDialog() ? TRUE : FALSE;
    } catch (...) {
        ReportCurrentException();
        return TRUE;
    }
}

}  // namespace ferry::framework
