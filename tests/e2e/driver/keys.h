// Real key input, as a person gives it: it goes to whichever window has the focus.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <string_view>

namespace ferry::e2e {

void KeyDown(WORD key);
void KeyUp(WORD key);

/// Presses and releases `key`.
void PressKey(WORD key);

/// Holds the keys in order, then releases them in reverse: {VK_CONTROL, 'H'}.
void PressChord(std::initializer_list<WORD> keys);

/// Types `text` whatever the keyboard layout.
void TypeText(std::wstring_view text);

/// Clicks with the left button at a place on the screen, so many times in a row.
void ClickAt(POINT place, int clicks = 1);

/// Gives `window` the foreground and waits until it has it.
bool TakeForeground(HWND window);

/// Holds a key down for as long as it lives. `window` gets the foreground first, so that it hears of this key
/// before it hears of those that follow.
class HeldKey {
public:
    HeldKey(HWND window, WORD key) : key_(key) {
        TakeForeground(window);
        KeyDown(key);
    }
    ~HeldKey() { KeyUp(key_); }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;

private:
    WORD key_;
};

}  // namespace ferry::e2e
