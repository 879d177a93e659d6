// When the confirmation dialog comes to the front by itself, and when it waits for the keyboard.
#include "desktop/window_placement.h"
#include "windows/ferry_dialog_fixture_win32.h"

namespace ferry::dialogs {
namespace {

class RaisingTheDialog : public FerryDialogTest {
protected:
    void SetUp() override {
        if (!test::MayTakeForeground()) {
            GTEST_SKIP() << test::kNoForeground;
        }
    }

    /// Opens the dialog while `held` are held and puts another window before it.
    void OpenBehindAnotherWindow(std::initializer_list<int> held) {
        test::HoldKeys(held);
        Open({L"C:\\a.txt"});
        other_.Reset(CreateWindowExW(0, L"Static", L"other", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                     nullptr, GetModuleHandleW(nullptr), nullptr));
        SetForegroundWindow(other_.Get());
        ASSERT_EQ(GetForegroundWindow(), other_.Get());
    }

    bool IsInFront() const { return GetForegroundWindow() == Window(); }
    bool IsTopmost() const { return (GetWindowLongPtrW(Window(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }

    /// Waits for the next tick of the raise timer and handles it, with what came before it.
    bool TakeTick() const {
        bool hasTicked = false;
        test::WaitUntil([&] {
            MSG message;
            while (!hasTicked && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                hasTicked = message.message == WM_TIMER && message.hwnd == Window() &&
                            message.wParam == desktop::kRaiseTimerId;
                DispatchMessageW(&message);
            }
            return hasTicked;
        });
        return hasTicked;
    }

    /// Whether the raise timer exists: only then it can be ended.
    bool StopTimer() const { return KillTimer(Window(), desktop::kRaiseTimerId) != FALSE; }

    test::TestWindow other_;
};

TEST_F(RaisingTheDialog, WaitsTickByTickWhileShiftOrCtrlIsHeld) {
    for (const int key : {VK_SHIFT, VK_CONTROL}) {
        SCOPED_TRACE(key);
        OpenBehindAnotherWindow({key});
        for (int tick = 0; tick < 3; ++tick) {
            ASSERT_TRUE(TakeTick());
            EXPECT_FALSE(IsInFront());
        }
        test::HoldKeys({});
        ASSERT_TRUE(TakeTick());
        EXPECT_TRUE(IsInFront());
        EXPECT_FALSE(IsTopmost());
        EXPECT_FALSE(StopTimer());
    }
}

TEST_F(RaisingTheDialog, IsNotPutOffByOtherKeys) {
    OpenBehindAnotherWindow({VK_MENU, 'A', VK_LWIN});
    EXPECT_FALSE(StopTimer());
    SendMessageW(Window(), WM_TIMER, desktop::kRaiseTimerId, 0);
    EXPECT_TRUE(IsInFront());
    EXPECT_FALSE(StopTimer());
}

TEST_F(RaisingTheDialog, AKeyPressedLaterPutsTheNextRaisingOff) {
    OpenBehindAnotherWindow({});
    test::HoldKeys({VK_SHIFT, VK_CONTROL});
    SendMessageW(Window(), WM_TIMER, desktop::kRaiseTimerId, 0);
    EXPECT_FALSE(IsInFront());
    test::HoldKeys({VK_CONTROL});
    ASSERT_TRUE(TakeTick());
    EXPECT_FALSE(IsInFront());
    EXPECT_TRUE(StopTimer());
}

}  // namespace
}  // namespace ferry::dialogs
