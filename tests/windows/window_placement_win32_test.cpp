// Placing and raising real windows.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which they build on.
#include <commctrl.h>
#include <shellapi.h>

#include <array>
#include <atomic>
#include <thread>

#include "desktop/host_messages.h"
#include "desktop/window_placement.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::desktop {
namespace {

constexpr wchar_t kClass[] = L"FerryPlacementTest";

/// A window in front that belongs to another thread, as that of another program does.
class WindowOfAnotherThread {
public:
    WindowOfAnotherThread() : thread_([this] { Run(); }) {
        test::WaitUntil([this] { return window_ != nullptr && GetForegroundWindow() == window_; });
    }
    ~WindowOfAnotherThread() {
        PostMessageW(window_, WM_CLOSE, 0, 0);
        thread_.join();
    }
    WindowOfAnotherThread(const WindowOfAnotherThread&) = delete;
    WindowOfAnotherThread& operator=(const WindowOfAnotherThread&) = delete;

    HWND Get() const noexcept { return window_; }

private:
    void Run() {
        const HWND window = CreateWindowExW(0, kClass, L"another", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                            nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        SetForegroundWindow(window);
        window_ = window;
        MSG message;
        while (IsWindow(window) && GetMessageW(&message, nullptr, 0, 0) > 0) {
            DispatchMessageW(&message);
        }
    }

    std::atomic<HWND> window_ = nullptr;
    std::thread thread_;
};

class WindowPlacementTest : public testing::Test {
protected:
    WindowPlacementTest() {
        for (const wchar_t* name : {kClass, kHostWindowClass}) {
            WNDCLASSW description{};
            description.lpfnWndProc = DefWindowProcW;
            description.hInstance = GetModuleHandleW(nullptr);
            description.lpszClassName = name;
            RegisterClassW(&description);
        }
        test::HoldKeys({});
        dialog_ = MakeWindow(kClass, {10, 20, 210, 120});
    }
    void SetUp() override {
        if (!test::MayTakeForeground()) {
            GTEST_SKIP() << test::kNoForeground;
        }
    }
    ~WindowPlacementTest() override {
        test::HoldKeys({});
        dialog_.Reset();
        host_.Reset();
        UnregisterClassW(kClass, GetModuleHandleW(nullptr));
        UnregisterClassW(kHostWindowClass, GetModuleHandleW(nullptr));
    }

    static test::TestWindow MakeWindow(const wchar_t* className, const RECT& at) {
        return test::TestWindow(CreateWindowExW(0, className, L"title", WS_POPUP | WS_VISIBLE | WS_SYSMENU,
                                                at.left, at.top, at.right - at.left, at.bottom - at.top,
                                                nullptr, nullptr, GetModuleHandleW(nullptr), nullptr));
    }

    void MakeHost(const RECT& at) { host_ = MakeWindow(kHostWindowClass, at); }

    bool HasStyle(DWORD style) const {
        return (static_cast<DWORD>(GetWindowLongPtrW(dialog_.Get(), GWL_EXSTYLE)) & style) != 0;
    }

    bool StandsBehind(HWND other) const {
        HWND before = dialog_.Get();
        while (before != nullptr && before != other) {
            before = GetWindow(before, GW_HWNDPREV);
        }
        return before != nullptr;
    }

    bool IsInFront() const { return GetForegroundWindow() == dialog_.Get(); }

    /// Whether the raise timer ticks; takes messages until it does.
    bool TimerTicks() const {
        bool hasTicked = false;
        test::WaitUntil([&] {
            MSG message;
            while (PeekMessageW(&message, dialog_.Get(), 0, 0, PM_REMOVE)) {
                hasTicked = hasTicked || (message.message == WM_TIMER && message.wParam == kRaiseTimerId);
                // Painting that nobody does would come again and again.
                DispatchMessageW(&message);
            }
            return hasTicked;
        });
        return hasTicked;
    }

    /// Whether the raise timer exists: only then it can be ended.
    bool StopTimer() const { return KillTimer(dialog_.Get(), kRaiseTimerId) != FALSE; }

    RECT DialogRect() const {
        RECT rect{};
        GetWindowRect(dialog_.Get(), &rect);
        return rect;
    }

    const test::ForegroundLockKeeper lock_;
    test::TestWindow dialog_;
    test::TestWindow host_;
};

TEST_F(WindowPlacementTest, TopmostModeStaysOnTop) {
    ApplyWindowMode(dialog_.Get(), 1, L"");
    EXPECT_TRUE(HasStyle(WS_EX_TOPMOST));
    EXPECT_FALSE(HasStyle(WS_EX_TOOLWINDOW));
    EXPECT_TRUE(IsInFront());
}

TEST_F(WindowPlacementTest, TopmostToolModeStaysOnTop) {
    ApplyWindowMode(dialog_.Get(), 2, L"");
    EXPECT_TRUE(HasStyle(WS_EX_TOPMOST));
    EXPECT_TRUE(HasStyle(WS_EX_TOOLWINDOW));
    EXPECT_TRUE(IsInFront());
}

TEST_F(WindowPlacementTest, TheToolWindowTakesDropsAsBefore) {
    DragAcceptFiles(dialog_.Get(), TRUE);
    ApplyWindowMode(dialog_.Get(), 2, L"");
    EXPECT_TRUE(HasStyle(WS_EX_TOOLWINDOW));
    EXPECT_TRUE(HasStyle(WS_EX_ACCEPTFILES));
}

TEST_F(WindowPlacementTest, OwnedModeChangesNothing) {
    const test::TestWindow other = MakeWindow(kClass, {0, 0, 50, 50});
    SetForegroundWindow(other.Get());
    ApplyWindowMode(dialog_.Get(), 3, L"");
    EXPECT_FALSE(HasStyle(WS_EX_TOPMOST));
    EXPECT_FALSE(HasStyle(WS_EX_TOOLWINDOW));
    EXPECT_FALSE(IsInFront());
}

TEST_F(WindowPlacementTest, OtherModesRaiseOnce) {
    for (const int mode : {0, 4, 5, -1}) {
        SCOPED_TRACE(mode);
        dialog_ = MakeWindow(kClass, {0, 0, 50, 50});
        const test::TestWindow other = MakeWindow(kClass, {0, 0, 50, 50});
        SetForegroundWindow(other.Get());
        ApplyWindowMode(dialog_.Get(), mode, L"");
        EXPECT_TRUE(IsInFront());
        EXPECT_FALSE(HasStyle(WS_EX_TOPMOST));
        EXPECT_EQ(HasStyle(WS_EX_TOOLWINDOW), mode == 4);
    }
}

TEST_F(WindowPlacementTest, TakesTheForegroundFromAnotherThreadAndKeepsItAlone) {
    const WindowOfAnotherThread other;
    ASSERT_EQ(GetForegroundWindow(), other.Get());
    BringToForeground(dialog_.Get());
    EXPECT_TRUE(IsInFront());
    // The threads have parted again: each has a focus of its own.
    EXPECT_EQ(GetActiveWindow(), dialog_.Get());
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    ASSERT_TRUE(GetGUIThreadInfo(GetWindowThreadProcessId(other.Get(), nullptr), &info));
    EXPECT_NE(info.hwndActive, dialog_.Get());
}

// Nobody has it when the window in front has gone, unless the system gives it to another program at once.
TEST_F(WindowPlacementTest, TakesTheForegroundThatNobodyHas) {
    ShowWindow(dialog_.Get(), SW_HIDE);
    ShowWindow(dialog_.Get(), SW_SHOWNOACTIVATE);
    ASSERT_NE(GetForegroundWindow(), dialog_.Get());
    BringToForeground(dialog_.Get());
    EXPECT_TRUE(IsInFront());
}

TEST_F(WindowPlacementTest, TitleGetsTheSuffix) {
    ApplyWindowMode(dialog_.Get(), 3, L"");
    EXPECT_EQ(test::TextOfWindow(dialog_.Get()), L"title");
    ApplyWindowMode(dialog_.Get(), 3, L" - suffix");
    EXPECT_EQ(test::TextOfWindow(dialog_.Get()), L"title - suffix");
}

TEST_F(WindowPlacementTest, HeldModifierPutsTheRaisingOff) {
    const test::TestWindow other = MakeWindow(kClass, {0, 0, 50, 50});
    for (const int key : {VK_SHIFT, VK_CONTROL}) {
        SCOPED_TRACE(key);
        SetForegroundWindow(other.Get());
        test::HoldKeys({key});
        RaiseOnce(dialog_.Get());
        EXPECT_FALSE(IsInFront());
        EXPECT_TRUE(TimerTicks());
        test::HoldKeys({});
        RaiseOnce(dialog_.Get());
        EXPECT_TRUE(IsInFront());
        EXPECT_FALSE(StopTimer());
    }
}

TEST_F(WindowPlacementTest, TopmostModesDoNotWaitForTheKeyboard) {
    for (const int mode : {1, 2}) {
        SCOPED_TRACE(mode);
        const test::TestWindow other = MakeWindow(kClass, {0, 0, 50, 50});
        SetForegroundWindow(other.Get());
        test::HoldKeys({VK_SHIFT, VK_CONTROL});
        ApplyWindowMode(dialog_.Get(), mode, L"");
        EXPECT_TRUE(IsInFront());
        EXPECT_FALSE(StopTimer());
    }
}

TEST_F(WindowPlacementTest, CentresOverTheHost) {
    MakeHost({300, 200, 701, 501});
    CentreOverHost(dialog_.Get(), 0);
    const RECT rect = DialogRect();
    EXPECT_EQ(rect.left, 400);
    EXPECT_EQ(rect.top, 300);
    EXPECT_EQ(rect.right - rect.left, 200);
    EXPECT_EQ(rect.bottom - rect.top, 100);
}

/// Doubles a window the first time it is moved, as a dialog is that comes to a monitor of twice the scaling.
LRESULT CALLBACK DoubleWhenMoved(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                 DWORD_PTR) {
    if (message == WM_MOVE) {
        RemoveWindowSubclass(window, &DoubleWhenMoved, id);
        RECT rect{};
        GetWindowRect(window, &rect);
        SetWindowPos(window, nullptr, 0, 0, 2 * (rect.right - rect.left), 2 * (rect.bottom - rect.top),
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

TEST_F(WindowPlacementTest, IsCentredInTheSizeThatItHasOnTheMonitorOfTheHost) {
    MakeHost({300, 200, 701, 501});
    ASSERT_TRUE(SetWindowSubclass(dialog_.Get(), &DoubleWhenMoved, 1, 0));
    CentreOverHost(dialog_.Get(), 0);
    const RECT rect = DialogRect();
    EXPECT_EQ(rect.left, 300);
    EXPECT_EQ(rect.top, 250);
    EXPECT_EQ(rect.right, 700);
    EXPECT_EQ(rect.bottom, 450);
}

TEST_F(WindowPlacementTest, IsOnTheWorkAreaInTheSizeThatItHasThere) {
    RECT work{};
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0));
    MakeHost({work.right - 40, work.bottom - 40, work.right + 60, work.bottom + 60});
    ASSERT_TRUE(SetWindowSubclass(dialog_.Get(), &DoubleWhenMoved, 1, 0));
    CentreOverHost(dialog_.Get(), 1);
    EXPECT_EQ(DialogRect().right, work.right);
    EXPECT_EQ(DialogRect().bottom, work.bottom);
    EXPECT_EQ(DialogRect().left, work.right - 400);
}

TEST_F(WindowPlacementTest, StaysInsideTheWorkArea) {
    RECT work{};
    ASSERT_TRUE(SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0));
    MakeHost({work.right - 40, work.bottom - 40, work.right + 60, work.bottom + 60});
    CentreOverHost(dialog_.Get(), 1);
    EXPECT_EQ(DialogRect().right, work.right);
    EXPECT_EQ(DialogRect().bottom, work.bottom);
}

TEST_F(WindowPlacementTest, StaysBehindWhatStandsBeforeIt) {
    MakeHost({300, 200, 700, 500});
    const test::TestWindow before = MakeWindow(kClass, {0, 0, 50, 50});
    ASSERT_EQ(GetWindow(before.Get(), GW_HWNDNEXT), host_.Get());
    CentreOverHost(dialog_.Get(), 0);
    EXPECT_EQ(DialogRect().left, 400);
    EXPECT_EQ(GetWindow(before.Get(), GW_HWNDNEXT), host_.Get());
    EXPECT_TRUE(StandsBehind(before.Get()));
    EXPECT_TRUE(StandsBehind(host_.Get()));
    EXPECT_EQ(GetForegroundWindow(), before.Get());
}

TEST_F(WindowPlacementTest, GoesToTheMonitorThatIsNearestToTheHost) {
    MakeHost({300, 200, 701, 501});
    const auto second = reinterpret_cast<HMONITOR>(2);
    const test::WatchedImport<&MonitorFromWindow> nearest("MonitorFromWindow",
                                                          [=](HWND, DWORD) { return second; });
    const test::WatchedImport<&GetMonitorInfoW> info("GetMonitorInfoW", [](HMONITOR, LPMONITORINFO monitor) {
        EXPECT_EQ(monitor->cbSize, sizeof(MONITORINFO));
        monitor->rcMonitor = {-1024, 0, 0, 768};
        monitor->rcWork = {-1024, 0, 0, 740};
        return TRUE;
    });
    CentreOverHost(dialog_.Get(), 0);
    EXPECT_EQ(nearest.OnlyCall(), std::tuple(host_.Get(), DWORD{MONITOR_DEFAULTTONEAREST}));
    EXPECT_EQ(std::get<0>(info.OnlyCall()), second);
    EXPECT_EQ(DialogRect().right, 0);
    EXPECT_EQ(DialogRect().top, 300);
}

TEST_F(WindowPlacementTest, OwnedDialogsAndDialogsWithoutAHostStay) {
    CentreOverHost(dialog_.Get(), 0);
    EXPECT_EQ(DialogRect().left, 10);
    EXPECT_EQ(DialogRect().top, 20);
    MakeHost({300, 200, 700, 500});
    CentreOverHost(dialog_.Get(), kOwnedWindowMode);
    EXPECT_EQ(DialogRect().left, 10);
    EXPECT_EQ(DialogRect().top, 20);
}

}  // namespace
}  // namespace ferry::desktop
