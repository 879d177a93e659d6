// The window that Ferry takes for the host's when no host runs.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace ferry::launcher {

/// Tells the launcher's window from a host's, which has the same class.
inline constexpr wchar_t kStandInTitle[] = L"FerryOpen";

/// Whether a host runs, which has a window of the host's class that is no launcher's.
bool IsHostRunning() noexcept;

/// A hidden window of the host's class, as large as the screen that the person works on, so that Ferry's
/// dialog opens in its middle. Hears which folder is to be shown.
class StandInWindow {
public:
    StandInWindow() = default;
    ~StandInWindow() { Close(); }
    StandInWindow(const StandInWindow&) = delete;
    StandInWindow& operator=(const StandInWindow&) = delete;

    /// Makes the window, unless a host runs: that one is found then. Best effort: without the window Ferry
    /// opens elsewhere on the screen and cannot have its destination shown.
    void Create();

    /// Takes the window away when a host has been started meanwhile, whose window shall be the only one.
    void GiveWayToHost() noexcept;

    void Close() noexcept;

    /// The folder that Ferry asked to be shown since the last call.
    std::optional<std::wstring> TakeFolder();

    HWND Get() const noexcept { return window_; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    bool Receive(const COPYDATASTRUCT& data);

    HWND window_ = nullptr;
    std::optional<std::wstring> folder_;
};

}  // namespace ferry::launcher
