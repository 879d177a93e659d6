// The modeless window that shows a run and can cancel it.
#pragma once

#include <windows.h>

#include <string>

namespace ferry::fileop {

/// Lives on the thread that made it, which has to call Drain often.
class ProgressWindow {
public:
    /// `owner` may be null. An empty `message` shows a text of the service's own.
    ProgressWindow(HWND owner, const std::wstring& message);
    ~ProgressWindow();

    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;

    /// Whether the window could be made.
    bool IsShown() const noexcept { return window_ != nullptr; }

    void ShowItem(const std::wstring& path);

    /// Handles every waiting message of the thread. A quit message is put back and cancels.
    void Drain();

    bool HasCancelled() const noexcept { return hasCancelled_; }

private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    HWND window_ = nullptr;
    bool hasCancelled_ = false;
};

}  // namespace ferry::fileop
