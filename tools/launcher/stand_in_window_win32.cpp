#include "launcher/stand_in_window_win32.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

#include "desktop/host_messages.h"
#include "hostlink/host_block.h"

namespace ferry::launcher {
namespace {

bool IsStandIn(HWND window) noexcept {
    wchar_t title[std::size(kStandInTitle) + 1] = {};
    // Reads a window of another process without waiting for that process.
    GetWindowTextW(window, title, static_cast<int>(std::size(title)));
    return std::wstring_view(title) == kStandInTitle;
}

/// The work area of the screen with the mouse pointer: there the person has clicked, or is about to.
RECT WorkAreaOfPerson() noexcept {
    POINT place = {};
    GetCursorPos(&place);
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromPoint(place, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

}  // namespace

bool IsHostRunning() noexcept {
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, desktop::kHostWindowClass, nullptr)) != nullptr) {
        if (!IsStandIn(window))
            return true;
    }
    return false;
}

void StandInWindow::Create() {
    if (IsHostRunning())
        return;
    WNDCLASSEXW type = {};
    type.cbSize = sizeof(type);
    type.lpfnWndProc = Procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.lpszClassName = desktop::kHostWindowClass;
    RegisterClassExW(&type);
    const RECT area = WorkAreaOfPerson();
    window_ = CreateWindowExW(WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, desktop::kHostWindowClass, kStandInTitle,
                              WS_POPUP, area.left, area.top, area.right - area.left, area.bottom - area.top,
                              nullptr, nullptr, type.hInstance, this);
    // Who looks for the host finds the topmost window of its class.
    SetWindowPos(window_, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void StandInWindow::GiveWayToHost() noexcept {
    if (window_ != nullptr && IsHostRunning())
        Close();
}

void StandInWindow::Close() noexcept {
    if (window_ != nullptr)
        DestroyWindow(std::exchange(window_, nullptr));
}

std::optional<std::wstring> StandInWindow::TakeFolder() {
    return std::exchange(folder_, std::nullopt);
}

LRESULT CALLBACK StandInWindow::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NCCREATE) {
        const auto* const creation = reinterpret_cast<const CREATESTRUCTW*>(second);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* const self = reinterpret_cast<StandInWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_COPYDATA && self != nullptr)
        return self->Receive(*reinterpret_cast<const COPYDATASTRUCT*>(second)) ? TRUE : FALSE;
    return DefWindowProcW(window, message, first, second);
}

bool StandInWindow::Receive(const COPYDATASTRUCT& data) {
    if (data.dwData != desktop::kShowFolderCode || data.lpData == nullptr)
        return false;
    // Ferry waits for the answer; the folder is opened behind its back.
    folder_ = hostlink::TextFromPayload(std::span(static_cast<const std::byte*>(data.lpData), data.cbData));
    return true;
}

}  // namespace ferry::launcher
