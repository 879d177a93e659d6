// The windows of other programs that a script sends to.
#pragma once

#include <windows.h>

#include "script/ports.h"

namespace ferry::desktop {

/// The host's main window: `given`, or when that is null the one that is found by its class now. Records say
/// that they are from `own`, the program's main window, which may be null.
class ScriptHost final : public script::HostWindow {
public:
    explicit ScriptHost(HWND given = nullptr, HWND own = nullptr) noexcept;

    bool Exists() override { return IsWindow(window_) != FALSE; }
    void HandOver(const script::Record& record) override;
    void Post(std::uint32_t message, int wParam, int lParam) override;
    void Send(std::uint32_t message, int wParam, int lParam) override;
    std::optional<script::ScreenBox> Position() override;

private:
    HWND window_;
    HWND own_;
};

/// The window that shows what a script does. Records are from `own` as above.
class ScriptTrace final : public script::TraceWindow {
public:
    explicit ScriptTrace(HWND own = nullptr) noexcept : own_(own) {}

    bool Find(const wchar_t* title) override;
    void Send(const script::Record& record) override;

private:
    HWND window_ = nullptr;
    HWND own_;
};

}  // namespace ferry::desktop
