#include "framework/window.h"

#include "framework/common_controls.h"
#include "framework/errors.h"

namespace ferry::framework {

namespace {

// One object per window, so one number serves all.
constexpr UINT_PTR kSubclassId = 1;

// The window property that leads back to the object.
constexpr wchar_t kObjectProperty[] = L"Ferry.CWnd";

bool Fits(const Route& route, UINT message, WPARAM wParam) noexcept {
    if (route.Message != message) {
        return false;
    }
    if (message == WM_COMMAND) {
        return route.Id == LOWORD(wParam) && route.Code == HIWORD(wParam);
    }
    return true;
}

}  // namespace

CWnd::~CWnd() {
    Detach();
}

CWnd* CWnd::FromHandle(HWND window) noexcept {
    // Another process's property of this name would be an address of that process.
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    return processId == GetCurrentProcessId() ? static_cast<CWnd*>(GetPropW(window, kObjectProperty))
                                              : nullptr;
}

bool CWnd::Attach(HWND window) noexcept {
    Detach();
    if (window == nullptr || CommonControls::Get().SetSubclass(window, &CWnd::WindowProc, kSubclassId,
                                                               reinterpret_cast<DWORD_PTR>(this)) == FALSE) {
        return false;
    }
    if (SetPropW(window, kObjectProperty, this) == FALSE) {
        CommonControls::Get().RemoveSubclass(window, &CWnd::WindowProc, kSubclassId);
        return false;
    }
    window_ = window;
    return true;
}

void CWnd::Detach() noexcept {
    if (window_ != nullptr) {
        RemovePropW(window_, kObjectProperty);
        CommonControls::Get().RemoveSubclass(window_, &CWnd::WindowProc, kSubclassId);
        window_ = nullptr;
    }
}

std::wstring CWnd::Text() const {
    return WindowText(window_);
}

bool CWnd::PreTranslateMessage(MSG&) {
    return false;
}

Answer CWnd::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) {
    for (const Route& route : Routes()) {
        if (Fits(route, message, wParam)) {
            return route.Invoke(*this, wParam, lParam);
        }
    }
    return std::nullopt;
}

LRESULT CWnd::CallDefault(UINT message, WPARAM wParam, LPARAM lParam) const noexcept {
    return CommonControls::Get().CallNext(window_, message, wParam, lParam);
}

LRESULT CALLBACK CWnd::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                  DWORD_PTR object) noexcept {
    // An exception must not cross the frames of Windows: it stops here and is told to the user.
    try {
        return reinterpret_cast<CWnd*>(object)->HandleMessage(window, message, wParam, lParam);
    } catch (...) {
        ReportCurrentException();
        return 0;
    }
}

LRESULT CWnd::HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NOTIFY) {
        auto& header = *reinterpret_cast<NMHDR*>(lParam);
        CWnd* const sender = FromHandle(header.hwndFrom);
        if (sender != nullptr && sender != this) {
            if (const Answer answer = sender->OnOwnNotification(header)) {
                return *answer;
            }
        }
    }
    if (const Answer answer = Dispatch(message, wParam, lParam)) {
        return *answer;
    }
    if (message != WM_NCDESTROY) {
        return CommonControls::Get().CallNext(window, message, wParam, lParam);
    }
    // The subclass has to be removed before the last message goes on, or its record leaks.
    Detach();
    const LRESULT result = CommonControls::Get().CallNext(window, message, wParam, lParam);
    OnWindowGone();
    return result;
}

std::wstring WindowText(HWND window) {
    const int length = GetWindowTextLengthW(window);
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const int copied = GetWindowTextW(window, text.data(), length + 1);
    text.resize(static_cast<std::size_t>(copied));
    return text;
}

}  // namespace ferry::framework
