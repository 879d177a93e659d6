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
    // The value belongs into the pointer itself. That its location stands there is deliberate: the time-out
    // becomes that number of milliseconds, and what it was before does not come back.
    SystemParametersInfoW(SPI_SETFOREGROUNDLOCKTIMEOUT, 0, &timeout, 0);
    AttachThreadInput(windowThread, foregroundThread, FALSE);
    // A system may leave nobody in front when the threads part. Only then it is asked again: what a person
    // has brought to the front meanwhile stays there.
    if (GetForegroundWindow() == nullptr) {
        SetForegroundWindow(window);
    }
}

/// Moves `window` over the middle of `host`, inside `work`. Nothing when it has no place at all.
void Centre(HWND window, const RECT& host, const RECT& work) {
    RECT before{};
    if (!GetWindowRect(window, &before)) {
        return;
    }
    const hostlink::Box box = hostlink::CentredOverHost(BoxOf(host), BoxOf(before), BoxOf(work));
    SetWindowPos(window, nullptr, box.Left, box.Top, 0, 0, SWP_NOZORDER | SWP_NOSIZE | SWP_NOACTIVATE);
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
    if (host == nullptr || !GetWindowRect(host, &hostRect)) {
        return;
    }
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    if (!GetMonitorInfoW(MonitorFromWindow(host, MONITOR_DEFAULTTONEAREST), &monitor)) {
        return;
    }
    Centre(window, hostRect, monitor.rcWork);
    // On a monitor of another scaling it may have another size now.
    Centre(window, hostRect, monitor.rcWork);
}

void FlashIfElsewhere(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &process);
    if (process != GetCurrentProcessId()) {
        FLASHWINFO flash{sizeof flash, window, FLASHW_TRAY | FLASHW_TIMERNOFG, 0, 0};
        FlashWindowEx(&flash);
    }
}

}  // namespace ferry::desktop
