#include "desktop/script_windows_win32.h"

#include "desktop/host_messages.h"

namespace ferry::desktop {

ScriptHost::ScriptHost(HWND given, HWND own) noexcept
    : window_(given != nullptr ? given : FindHostWindow()), own_(own) {}

void ScriptHost::HandOver(const script::Record& record) {
    SendText(window_, own_, record.Code, record.Text);
}

// A negative number keeps its sign in the wider parameter.
void ScriptHost::Post(std::uint32_t message, int wParam, int lParam) {
    PostMessageW(window_, message, static_cast<WPARAM>(wParam), lParam);
}

void ScriptHost::Send(std::uint32_t message, int wParam, int lParam) {
    SendMessageW(window_, message, static_cast<WPARAM>(wParam), lParam);
}

std::optional<script::ScreenBox> ScriptHost::Position() {
    RECT place{};
    if (!GetWindowRect(window_, &place))
        return std::nullopt;
    return script::ScreenBox{place.left, place.top, place.right, place.bottom};
}

bool ScriptTrace::Find(const wchar_t* title) {
    window_ = FindWindowW(nullptr, title);
    return window_ != nullptr;
}

void ScriptTrace::Send(const script::Record& record) {
    SendText(window_, own_, record.Code, record.Text);
}

}  // namespace ferry::desktop
