// When a dialog of another process has appeared, filled.
#pragma once

#include <windows.h>

#include <array>
#include <string>

namespace ferry::bench {

/// Wakes the waiting thread whenever a window of another process appears. While it exists, a wait for
/// messages ends at that moment; without it (a system that has no hooks) the look every few milliseconds
/// stays.
class AppearanceHook {
public:
    AppearanceHook() noexcept
        : hook_(SetWinEventHook(EVENT_OBJECT_SHOW, EVENT_OBJECT_SHOW, nullptr, &AppearanceHook::Ignore, 0, 0,
                                WINEVENT_OUTOFCONTEXT)) {}
    ~AppearanceHook() { UnhookWinEvent(hook_); }
    AppearanceHook(const AppearanceHook&) = delete;
    AppearanceHook& operator=(const AppearanceHook&) = delete;

    /// Returns when a window has appeared, or after a few milliseconds.
    void Wait() const {
        constexpr DWORD kLookMs = 5;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kLookMs, QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageW(&message);
        }
    }

private:
    static void CALLBACK Ignore(HWINEVENTHOOK, DWORD, HWND, LONG, LONG, DWORD, DWORD) {}

    HWINEVENTHOOK hook_;
};

/// What the label of `dialog` says that counts the items; empty without one.
inline std::wstring CountLabel(HWND dialog) {
    constexpr int kCountLabelId = 1350;
    std::array<wchar_t, 32> text{};
    // GetWindowText reads a window of another process without waiting for that process.
    GetWindowTextW(GetDlgItem(dialog, kCountLabelId), text.data(), static_cast<int>(text.size()));
    return text.data();
}

}  // namespace ferry::bench
