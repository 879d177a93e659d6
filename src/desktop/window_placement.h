// Places and raises the dialog as the host asked.
#pragma once

#include <windows.h>

#include <string_view>

namespace ferry::desktop {

/// The timer that tries again to raise a window while a modifier key is held.
inline constexpr UINT_PTR kRaiseTimerId = 1000;
inline constexpr UINT kRaiseTimerPeriodMs = 50;

/// The window mode in which the host's window owns the dialog.
inline constexpr int kOwnedWindowMode = 3;

/// Gives `window` its title again, followed by `titleSuffix`, and the style, place in the
/// Z-order and activation of `windowMode`.
void ApplyWindowMode(HWND window, int windowMode, std::wstring_view titleSuffix);

/// Brings `window` to the top once, or starts timer kRaiseTimerId on it while Shift or Ctrl is
/// held. The window calls this again when that timer ticks.
void RaiseOnce(HWND window);

/// Makes `window` the foreground window, against the system's lock if need be.
void BringToForeground(HWND window);

/// Moves `window` over the middle of the host's window, inside the work area of that monitor.
/// Does nothing in kOwnedWindowMode or without a host.
void CentreOverHost(HWND window, int windowMode);

/// Lets the taskbar button of `window` flash until the person comes, if the person works with another
/// program, behind whose windows something may have opened.
void FlashIfElsewhere(HWND window);

}  // namespace ferry::desktop
