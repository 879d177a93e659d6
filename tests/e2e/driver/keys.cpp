#include "e2e/driver/keys.h"

#include <ranges>

#include "support/poll_win32.h"

namespace ferry::e2e {

using test::kPatienceMs;
using test::WaitUntil;
namespace {

void Send(WORD key, WORD scan, DWORD flags) {
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = scan;
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof(input));
}

WORD ScanCodeOf(WORD key) {
    return static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
}

/// Each event brings its place along: a pointer that was moved before may not have arrived.
void SendMouse(POINT place, DWORD event) {
    constexpr int kFullScale = 65535;
    INPUT input = {};
    input.type = INPUT_MOUSE;
    input.mi.dx = MulDiv(place.x, kFullScale, GetSystemMetrics(SM_CXSCREEN) - 1);
    input.mi.dy = MulDiv(place.y, kFullScale, GetSystemMetrics(SM_CYSCREEN) - 1);
    input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | event;
    SendInput(1, &input, sizeof(input));
}

// Presses Shift and keeps it down. A window that has just got the focus lets go of every key when it hears of
// that, which may be after Shift was pressed; it has heard of it when Shift stays down while it answers.
void HoldShift() {
    constexpr int kSettledAfter = 4;
    int settled = 0;
    Send(VK_SHIFT, ScanCodeOf(VK_SHIFT), 0);
    WaitUntil([&settled] {
        DWORD_PTR answer = 0;
        SendMessageTimeoutW(GetForegroundWindow(), WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMs, &answer);
        if (GetAsyncKeyState(VK_SHIFT) < 0)
            return ++settled == kSettledAfter;
        settled = 0;
        Send(VK_SHIFT, ScanCodeOf(VK_SHIFT), 0);
        return false;
    });
}

}  // namespace

void PressKey(WORD key, bool withShift) {
    if (withShift)
        PressChord({VK_SHIFT, key});
    else
        PressChord({key});
}

void PressChord(std::initializer_list<WORD> keys) {
    for (const WORD key : keys) {
        if (key == VK_SHIFT)
            HoldShift();
        else
            Send(key, ScanCodeOf(key), 0);
    }
    for (const WORD key : std::views::reverse(keys)) {
        Send(key, ScanCodeOf(key), KEYEVENTF_KEYUP);
    }
}

void TypeText(std::wstring_view text) {
    for (const wchar_t unit : text) {
        Send(0, unit, KEYEVENTF_UNICODE);
        Send(0, unit, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
}

void ClickAt(POINT place, int clicks, DWORD button) {
    for (int click = 0; click < clicks; ++click) {
        // The number of a release is twice that of the press.
        for (const DWORD event : {button, button << 1U})
            SendMouse(place, event);
    }
}

void MovePointerTo(POINT place) {
    SendMouse(place, 0);
}

bool TakeForeground(HWND window) {
    return WaitUntil([window] {
        if (GetForegroundWindow() == window)
            return true;
        SetForegroundWindow(window);
        // The window that loses the foreground and the one that gains it are told by messages. A dialog
        // that comes to the front by itself meanwhile would lose its focus to them for a moment, and
        // keys with it; once it answers, it has heard them all.
        DWORD_PTR answer = 0;
        SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMs, &answer);
        return false;
    });
}

}  // namespace ferry::e2e
