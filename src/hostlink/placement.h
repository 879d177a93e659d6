// Where the dialog goes on the screen, as plain geometry.
#pragma once

namespace ferry::hostlink {

/// A rectangle in screen pixels; Right and Bottom lie just outside it.
struct Box {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
};

/// `window` moved to the middle of `host` and then into the monitor's work area: its right and
/// bottom edges are pulled in first, the left and top edges win. Its size never changes.
Box CentredOverHost(const Box& host, const Box& window, const Box& workArea) noexcept;

/// What a window mode asks for when the dialog opens.
struct WindowModeRule {
    bool ToolWindow = false;  ///< Add the tool-window style.
    bool Topmost = false;     ///< Stay above other windows and take the foreground.
    bool RaiseOnce = false;   ///< Come to the top once, as soon as no modifier key is held.
};

/// The rule of window mode `mode`; unknown modes act like 0.
WindowModeRule RuleOfWindowMode(int mode) noexcept;

}  // namespace ferry::hostlink
