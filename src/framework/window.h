// A window that an object of ours listens to.
#pragma once

#include <windows.h>

#include <span>
#include <string>

#include "framework/route.h"

namespace ferry::framework {

/// Listens to one window: a dialog that it made or a control that it was attached to.
/// The object does not own the window; the link ends when either of them goes. All functions run
/// on the window's thread.
class CWnd {
public:
    CWnd() = default;
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;
    virtual ~CWnd();

    /// The window, or null when there is none (any more).
    HWND Handle() const noexcept { return window_; }

    /// The object that listens to `window`, or null.
    static CWnd* FromHandle(HWND window) noexcept;

    /// Starts listening to an existing window. False when the window does not exist.
    bool Attach(HWND window) noexcept;

    /// The control `id` of this window, or null.
    HWND Item(int id) const noexcept { return GetDlgItem(window_, id); }

    /// The window's text, at any length.
    std::wstring Text() const;
    void SetText(const std::wstring& text) const noexcept { SetWindowTextW(window_, text.c_str()); }

    /// Sees a keyboard or mouse message for this window or a child of it before anyone else.
    /// True when it was consumed.
    virtual bool PreTranslateMessage(MSG& message);

protected:
    /// The window's route table; the first line that fits is taken.
    virtual std::span<const Route> Routes() const { return {}; }

    /// Sees a WM_NOTIFY that this control sent to its parent, before the parent's routes do.
    virtual Answer OnOwnNotification(NMHDR&) { return std::nullopt; }

    /// Called when the window is gone, with Handle() already null.
    virtual void OnWindowGone() {}

    /// Sends a message through the route table; nothing when no handler answered.
    virtual Answer Dispatch(UINT message, WPARAM wParam, LPARAM lParam);

    /// Gives a message to the window's own procedure at once, for a handler that has to come after it.
    LRESULT CallDefault(UINT message, WPARAM wParam, LPARAM lParam) const noexcept;

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                       DWORD_PTR object) noexcept;
    LRESULT HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Detach() noexcept;

    HWND window_ = nullptr;
};

/// The text of any window, at any length.
std::wstring WindowText(HWND window);

}  // namespace ferry::framework
