#include "window_driver.h"

#include "samplehost/process_windows_win32.h"
#include "support/poll_win32.h"

namespace ferry::fileop {
namespace {

HWND WaitForWindow(const std::wstring& title) {
    HWND found = nullptr;
    test::WaitUntil([&] {
        found = samplehost::FindVisibleWindow(GetCurrentProcessId(), [&](HWND window) {
            wchar_t text[128] = {};
            return IsWindowEnabled(window) && GetWindowTextW(window, text, 128) > 0 && title == text;
        });
        return found != nullptr;
    });
    return found;
}

// The control with the focus, once the window's thread has given it.
HWND WaitForFocus(HWND window) {
    const DWORD thread = GetWindowThreadProcessId(window, nullptr);
    GUITHREADINFO info{};
    info.cbSize = sizeof(info);
    const bool hasFocus = test::WaitUntil([&] {
        return GetGUIThreadInfo(thread, &info) && info.hwndFocus != nullptr &&
               (info.hwndFocus == window || IsChild(window, info.hwndFocus));
    });
    return hasFocus ? info.hwndFocus : nullptr;
}

void WaitUntilGone(HWND window) {
    test::WaitUntil([window] { return !IsWindow(window) || !IsWindowVisible(window); });
}

}  // namespace

WindowDriver::WindowDriver(std::vector<Step> steps)
    : thread_([this, steps = std::move(steps)] { Run(steps); }) {}

WindowDriver::~WindowDriver() {
    Finish();
}

const std::vector<SeenWindow>& WindowDriver::Finish() {
    if (thread_.joinable()) {
        thread_.join();
    }
    return seen_;
}

void WindowDriver::Run(const std::vector<Step>& steps) {
    for (const Step& step : steps) {
        const HWND window = WaitForWindow(step.Title);
        const HWND focus = window != nullptr ? WaitForFocus(window) : nullptr;
        if (focus == nullptr) {
            return;
        }
        seen_.push_back({step.Title, GetWindow(window, GW_OWNER)});
        const bool isLetter = step.Key >= L'a' && step.Key <= L'z';
        PostMessageW(focus, isLetter ? WM_CHAR : WM_KEYDOWN, step.Key, 1);
        if (step.Key != L'a') {  // the check box leaves its window open
            WaitUntilGone(window);
        }
    }
}

}  // namespace ferry::fileop
