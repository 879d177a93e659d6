// What is left open is closed, whatever it is: else one test could stop all that come after it.
#include "windows/test_deadline_win32.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "windows/support_win32.h"

namespace ferry::test {
namespace {

/// Closes this process's windows again and again from another thread, until its end.
class Closer {
public:
    Closer() : thread_([this] { Run(); }) {}
    ~Closer() {
        isOver_ = true;
        thread_.join();
    }
    Closer(const Closer&) = delete;
    Closer& operator=(const Closer&) = delete;

private:
    void Run() const {
        WaitUntil([this] {
            CloseWaitingWindows();
            return isOver_.load();
        });
    }

    std::atomic<bool> isOver_ = false;
    std::thread thread_;
};

TEST(CloseWaitingWindow, EndsBoxesWithTheirMildestButton) {
    const std::pair<UINT, int> cases[] = {{MB_OKCANCEL, IDCANCEL},
                                          {MB_YESNO, IDNO},
                                          {MB_YESNOCANCEL, IDCANCEL},
                                          {MB_RETRYCANCEL, IDCANCEL},
                                          {MB_ABORTRETRYIGNORE, IDABORT}};
    for (const auto& [style, answer] : cases) {
        const Closer closer;
        EXPECT_EQ(MessageBoxW(nullptr, L"text", L"title", style), answer) << style;
    }
    const Closer closer;
    EXPECT_NE(MessageBoxW(nullptr, L"text", L"title", MB_OK), 0);
}

TEST(CloseWaitingWindow, EndsAMenu) {
    const TestWindow owner(CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                           nullptr, GetModuleHandleW(nullptr), nullptr));
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 1, L"item");
    {
        const Closer closer;
        EXPECT_EQ(TrackPopupMenu(menu, TPM_RETURNCMD, 0, 0, 0, owner.Get(), nullptr), 0);
    }
    DestroyMenu(menu);
}

}  // namespace
}  // namespace ferry::test
