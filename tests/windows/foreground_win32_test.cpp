// How a window is brought to the front, call by call. Nothing of it reaches the session.
#include <windows.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desktop/host_messages.h"
#include "desktop/window_placement.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::desktop {
namespace {

using Steps = std::vector<std::string>;

constexpr UINT kGetLockTimeout = 0x2000;
constexpr UINT kSetLockTimeout = 0x2001;
constexpr DWORD kSavedTimeout = 200'000;

/// A window of another thread seems to be in front, until somebody asks for the foreground.
class BringingToTheFront : public testing::Test {
protected:
    BringingToTheFront() { test::HoldKeys({}); }
    ~BringingToTheFront() override { test::HoldKeys({}); }

    BOOL Parameters(UINT action, UINT number, PVOID pointer, UINT update) {
        EXPECT_EQ(number, 0U);
        EXPECT_EQ(update, 0U);
        if (action == kGetLockTimeout) {
            saved_ = static_cast<DWORD*>(pointer);
            *saved_ = kSavedTimeout;
            steps_.emplace_back("read the lock");
        } else if (action == kSetLockTimeout && pointer == nullptr) {
            steps_.emplace_back("set the lock to 0");
        } else if (action == kSetLockTimeout && pointer == saved_) {
            EXPECT_EQ(*saved_, kSavedTimeout);
            steps_.emplace_back("set the lock to the place of what was read");
        } else {
            steps_.emplace_back("another setting");
        }
        return TRUE;
    }

    BOOL Attach(DWORD from, DWORD to, BOOL on) {
        inFront_ = !on && isLostInParting_ ? nullptr : inFront_;
        EXPECT_EQ(from, GetCurrentThreadId());
        EXPECT_EQ(to, GetWindowThreadProcessId(other_, nullptr));
        steps_.emplace_back(on ? "attach" : "detach");
        return TRUE;
    }

    test::TestWindow window_{
        CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr)};
    HWND other_ = GetDesktopWindow();
    HWND inFront_ = other_;
    bool isGranted_ = true;
    bool isLostInParting_ = false;
    DWORD* saved_ = nullptr;
    Steps steps_;

    test::WatchedImport<&GetForegroundWindow> foreground_{"GetForegroundWindow", [this] { return inFront_; }};
    test::WatchedImport<&SetForegroundWindow> setForeground_{"SetForegroundWindow", [this](HWND window) {
                                                                 EXPECT_EQ(window, window_.Get());
                                                                 inFront_ = isGranted_ ? window : inFront_;
                                                                 steps_.emplace_back("to the front");
                                                                 return TRUE;
                                                             }};
    test::WatchedImport<&AttachThreadInput> attach_{
        "AttachThreadInput", [this](DWORD from, DWORD to, BOOL on) { return Attach(from, to, on); }};
    test::WatchedImport<&SystemParametersInfoW> parameters_{
        "SystemParametersInfoW", [this](UINT action, UINT number, PVOID pointer, UINT update) {
            return Parameters(action, number, pointer, update);
        }};
};

TEST_F(BringingToTheFront, OpensTheLockForTheRequestAndAttachesTheThreadsMeanwhile) {
    BringToForeground(window_.Get());
    EXPECT_EQ(steps_, (Steps{"attach", "read the lock", "set the lock to 0", "to the front",
                             "set the lock to the place of what was read", "detach"}));
}

// Who has brought another window to the front meanwhile keeps it.
TEST_F(BringingToTheFront, AsksOnlyOnceWhenAnotherWindowStaysInFront) {
    isGranted_ = false;
    BringToForeground(window_.Get());
    EXPECT_EQ(setForeground_.Calls().size(), 1U);
    EXPECT_EQ(steps_.back(), "detach");
}

TEST_F(BringingToTheFront, AsksAgainWhenNobodyIsInFrontAfterTheThreadsHaveParted) {
    isLostInParting_ = true;
    BringToForeground(window_.Get());
    EXPECT_EQ(setForeground_.Calls().size(), 2U);
    EXPECT_EQ(steps_.back(), "to the front");
}

TEST_F(BringingToTheFront, JustAsksWhenNothingIsInFront) {
    inFront_ = nullptr;
    BringToForeground(window_.Get());
    EXPECT_EQ(steps_, Steps{"to the front"});
}

TEST_F(BringingToTheFront, RaisesAboveEverythingAndLetsGoAtOnce) {
    const test::WatchedImport<&SetWindowPos> places(
        "SetWindowPos", [this](HWND window, HWND after, int, int, int, int, UINT flags) {
            EXPECT_EQ(window, window_.Get());
            EXPECT_EQ(flags, UINT{SWP_NOMOVE | SWP_NOSIZE});
            steps_.emplace_back(after == HWND_TOPMOST ? "topmost" : after == HWND_NOTOPMOST ? "not" : "else");
            return TRUE;
        });
    const test::WatchedImport<&KillTimer> kill("KillTimer");
    const test::WatchedImport<&SetTimer> set("SetTimer");
    RaiseOnce(window_.Get());
    ASSERT_GE(steps_.size(), 3U);
    EXPECT_EQ(Steps(steps_.begin(), steps_.begin() + 3), (Steps{"topmost", "not", "attach"}));
    EXPECT_EQ(kill.OnlyCall(), std::tuple(window_.Get(), UINT_PTR{1000}));
    EXPECT_TRUE(set.Calls().empty());
}

TEST_F(BringingToTheFront, TriesAgainEveryFiftyMillisecondsWhileAModifierIsHeld) {
    for (const int key : {VK_SHIFT, VK_CONTROL}) {
        const test::WatchedImport<&KillTimer> kill("KillTimer");
        const test::WatchedImport<&SetTimer> set("SetTimer");
        test::HoldKeys({key});
        RaiseOnce(window_.Get());
        EXPECT_EQ(kill.Calls().size(), 1U);
        EXPECT_EQ(set.OnlyCall(), std::tuple(window_.Get(), UINT_PTR{1000}, UINT{50}, TIMERPROC{nullptr}));
        KillTimer(window_.Get(), 1000);
    }
    EXPECT_TRUE(steps_.empty());
}

}  // namespace
}  // namespace ferry::desktop
