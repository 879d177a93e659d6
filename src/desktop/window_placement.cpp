#include "desktop/window_placement.h"

#include <string>

#include "desktop/host_messages.h"
#include "framework/keyboard.h"
#include "framework/window.h"
#include "hostlink/placement.h"

namespace ferry::desktop {
namespace {

constexpr UINT kKeepBounds = SWP_NOMOVE | SWP_NOSIZE;

hostlink::Box BoxOf(const RECT& rect) noexcept {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

/// Lets `window` take the foreground although another thread has it.
void TakeForegroundFrom(HWND foreground, HWND window) {
    const DWORD windowThread = GetWindowThreadProcessId(window, nullptr);
    const DWORD foregroundThread = GetWindowThreadProcessId(foreground, nullptr);
    AttachThreadInput(windowThread, foregroundThread, TRUE);
    DWORD timeout = 0;
    SystemParametersInfoW(SPI_GETFOREGROUNDLOCKTIMEOUT, 0, &timeout, 0);
    SystemParametersInfoW(SPI_SETFOREGROUNDLOCKTIMEOUT, 0, nullptr, 0);
    SetForegroundWindow(window);
    // The value belongs into the pointer itself; giving its location instead is what the host's
    // programs do, and they rely on the lock staying long.
    SystemParametersInfoW(SPI_SETFOREGROUNDLOCKTIMEOUT, 0, &timeout, 0);
    AttachThreadInput(windowThread, foregroundThread, FALSE);
    // The foreground may have changed hands meanwhile, or get lost when the threads part. The lock is
    // open now, so that a plain request is granted.
    if (GetForegroundWindow() != window) {
        SetForegroundWindow(window);
    }
}

}  // namespace

void ApplyWindowMode(HWND window, int windowMode, std::wstring_view titleSuffix) {
    SetWindowTextW(window, (framework::WindowText(window) + std::wstring(titleSuffix)).c_str());
    const hostlink::WindowModeRule rule = hostlink::RuleOfWindowMode(windowMode);
    if (rule.ToolWindow) {
        SetWindowLongPtrW(window, GWL_EXSTYLE, GetWindowLongPtrW(window, GWL_EXSTYLE) | WS_EX_TOOLWINDOW);
    }
    if (rule.Topmost) {
        SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, kKeepBounds);
        BringToForeground(window);
    }
    if (rule.RaiseOnce) {
        RaiseOnce(window);
    }
}

void RaiseOnce(HWND window) {
    KillTimer(window, kRaiseTimerId);
    if (framework::IsKeyHeld(VK_SHIFT) || framework::IsKeyHeld(VK_CONTROL)) {
        SetTimer(window, kRaiseTimerId, kRaiseTimerPeriodMs, nullptr);
        return;
    }
    SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, kKeepBounds);
    SetWindowPos(window, HWND_NOTOPMOST, 0, 0, 0, 0, kKeepBounds);
    BringToForeground(window);
}

void BringToForeground(HWND window) {
    if (const HWND foreground = GetForegroundWindow(); foreground != nullptr) {
        TakeForegroundFrom(foreground, window);
    } else {
        SetForegroundWindow(window);
    }
}

void CentreOverHost(HWND window, int windowMode) {
    const HWND host = windowMode == kOwnedWindowMode ? nullptr : FindHostWindow();
    RECT hostRect{};
    RECT windowRect{};
    if (host == nullptr || !GetWindowRect(host, &hostRect) || !GetWindowRect(window, &windowRect)) {
        return;
    }
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    if (!GetMonitorInfoW(MonitorFromWindow(host, MONITOR_DEFAULTTONEAREST), &monitor)) {
        return;
    }
    const hostlink::Box box =
        hostlink::CentredOverHost(BoxOf(hostRect), BoxOf(windowRect), BoxOf(monitor.rcWork));
    SetWindowPos(window, nullptr, box.Left, box.Top, 0, 0, SWP_NOZORDER | SWP_NOSIZE | SWP_NOACTIVATE);
}

}  // namespace ferry::desktop
