// Keeps the session from ending in the middle of a run.
#pragma once

#include <windows.h>

#include <string>

namespace ferry::desktop {

/// As long as it lives, a person who logs off or shuts down is told that `window`, one of this thread, still
/// works, and why; the window itself refuses the end (WM_QUERYENDSESSION).
class SessionHold {
public:
    SessionHold(HWND window, const std::wstring& why) noexcept : window_(window) {
        ShutdownBlockReasonCreate(window_, why.c_str());
    }
    SessionHold(const SessionHold&) = delete;
    SessionHold& operator=(const SessionHold&) = delete;
    ~SessionHold() { ShutdownBlockReasonDestroy(window_); }

private:
    HWND window_;
};

}  // namespace ferry::desktop
