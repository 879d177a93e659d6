// The host's main window: found by its class, it shows every message that Ferry sends.
#pragma once

#include <windows.h>

#include <string>

#include "host_log_win32.h"
#include "host_options.h"

namespace ferry::samplehost {

/// A top-level window with a list of the log lines. Closing it posts WM_QUIT.
class HostWindow {
public:
    explicit HostWindow(HostLog& log) noexcept : log_(log) {}
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    /// Makes and shows the window, which answers data `answerAfterMs` after it came. False when Windows
    /// refuses.
    bool Create(const WindowPlace& place, int answerAfterMs);

    /// Makes the window with `title` that scripts tell what they do; it is not shown. False when Windows
    /// refuses.
    bool CreateTrace(const std::wstring& title);

    /// Appends `line` to the list and scrolls to it.
    void Show(const std::wstring& line);

    HWND Get() const noexcept { return window_; }

private:
    static bool Register(const wchar_t* className);
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT Handle(HWND window, UINT message, WPARAM first, LPARAM second);
    void LogData(const wchar_t* kind, WPARAM sender, const COPYDATASTRUCT& data);

    HostLog& log_;
    HWND window_ = nullptr;
    HWND list_ = nullptr;
    HWND trace_ = nullptr;
    int answerAfterMs_ = 0;
};

}  // namespace ferry::samplehost
