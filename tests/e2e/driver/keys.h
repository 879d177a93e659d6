// Real key input, as a person gives it: it goes to whichever window has the focus.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string_view>

namespace ferry::e2e {

/// Presses and releases `key`; with Shift down around it, when wanted. A Shift that is held longer is let go
/// by the system when the focus changes hands meanwhile.
void PressKey(WORD key, bool withShift = false);

/// Holds the keys in order, then releases them in reverse: {VK_CONTROL, 'H'}. Goes on after Shift only once
/// it stays down, whichever window has just got the focus.
void PressChord(std::initializer_list<WORD> keys);

/// Types `text` whatever the keyboard layout.
void TypeText(std::wstring_view text);

/// Clicks at a place on the screen, so many times in a row; `button` is MOUSEEVENTF_LEFTDOWN or another one.
void ClickAt(POINT place, int clicks = 1, DWORD button = MOUSEEVENTF_LEFTDOWN);

/// Moves the mouse to a place on the screen.
void MovePointerTo(POINT place);

/// Gives `window` the foreground and waits until it has it.
bool TakeForeground(HWND window);

}  // namespace ferry::e2e
