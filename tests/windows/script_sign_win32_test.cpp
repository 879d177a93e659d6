// The window that stands while a script runs.
#include "dialogs/script_sign.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ids.h"
#include "samplehost/process_windows_win32.h"
#include "windows/dialog_world_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dialogs {
namespace {

class ScriptSignTest : public testing::Test {
protected:
    /// The sign's window.
    static HWND Window() {
        return samplehost::FindVisibleWindow(
            GetCurrentProcessId(), [](HWND window) { return GetDlgItem(window, IDC_BUSY_TITLE) != nullptr; });
    }

    /// Handles what waits, as a run does between statements.
    static void HandleMessages(desktop::ScriptSign& sign) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (!sign.TakesMessage(message))
                DispatchMessageW(&message);
        }
    }

    test::DialogWorld world_;
    test::TestWindow owner_{CreateWindowExW(0, L"Static", L"owner", WS_POPUP, 0, 0, 100, 100, nullptr,
                                            nullptr, nullptr, nullptr)};
    desktop::SignMaker make_ = ScriptSigns(world_.Services().Localiser, owner_.Get(), L"main.txt");
};

TEST_F(ScriptSignTest, StandsWithTheNameOfTheScriptAndAButtonOverItsDisabledOwner) {
    EXPECT_EQ(Window(), nullptr);
    {
        const auto sign = make_();
        ASSERT_NE(Window(), nullptr);
        EXPECT_EQ(test::TextOfControl(Window(), IDC_BUSY_TITLE), L"main.txt");
        EXPECT_TRUE(test::IsShown(Window(), IDCANCEL));
        EXPECT_FALSE(test::IsShown(Window(), IDC_BUSY_BAR));
        EXPECT_EQ(GetWindow(Window(), GW_OWNER), owner_.Get());
        EXPECT_FALSE(IsWindowEnabled(owner_.Get()));
    }
    EXPECT_EQ(Window(), nullptr);
    EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
}

TEST_F(ScriptSignTest, ItsButtonStopsTheScript) {
    const auto sign = make_();
    EXPECT_FALSE(sign->IsStopped());
    test::Click(Window(), IDCANCEL);
    EXPECT_TRUE(sign->IsStopped());
}

TEST_F(ScriptSignTest, EscapeStopsTheScript) {
    const auto sign = make_();
    PostMessageW(GetDlgItem(Window(), IDCANCEL), WM_KEYDOWN, VK_ESCAPE, 0);
    HandleMessages(*sign);
    EXPECT_TRUE(sign->IsStopped());
}

TEST_F(ScriptSignTest, EnablesItsOwnerBeforeItHidesWhenItIsStopped) {
    const auto sign = make_();
    const HWND window = Window();
    std::vector<std::string> steps;
    const test::WatchedImport<&EnableWindow> enable("EnableWindow", [&](HWND enabled, BOOL on) {
        if (enabled == owner_.Get())
            steps.emplace_back(on ? "enable" : "disable");
        return enable.CallReal(enabled, on);
    });
    const test::WatchedImport<&ShowWindow> show("ShowWindow", [&](HWND shown, int how) {
        if (shown == window && how == SW_HIDE)
            steps.emplace_back("hide");
        return show.CallReal(shown, how);
    });
    test::Click(window, IDCANCEL);
    EXPECT_EQ(steps, (std::vector<std::string>{"enable", "hide"}));
    EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
}

TEST_F(ScriptSignTest, LeavesTheForegroundToItsOwnerWhenItIsStopped) {
    if (!test::MayTakeForeground())
        GTEST_SKIP() << test::kNoForeground;
    ShowWindow(owner_.Get(), SW_SHOW);
    SetForegroundWindow(owner_.Get());
    const auto sign = make_();
    SetForegroundWindow(Window());
    ASSERT_TRUE(test::PumpUntil([] { return GetForegroundWindow() == Window(); }));
    test::Click(Window(), IDCANCEL);
    EXPECT_TRUE(test::PumpUntil([&] { return GetForegroundWindow() == owner_.Get(); }));
    EXPECT_EQ(GetActiveWindow(), owner_.Get());
}

TEST_F(ScriptSignTest, LeavesItsOwnerUsableWhenTheSystemHasNoWindowLeft) {
    const test::WatchedImport<&CreateDialogParamW> none(
        "CreateDialogParamW", [](HINSTANCE, LPCWSTR, HWND, DLGPROC, LPARAM) -> HWND { return nullptr; });
    const auto sign = make_();
    EXPECT_EQ(none.Calls().size(), 1U);
    EXPECT_TRUE(IsWindowEnabled(owner_.Get()));
    EXPECT_FALSE(sign->IsStopped());
}

TEST_F(ScriptSignTest, StandsWithoutAnOwner) {
    const auto sign = ScriptSigns(world_.Services().Localiser, nullptr, L"main.txt")();
    EXPECT_NE(Window(), nullptr);
}

}  // namespace
}  // namespace ferry::dialogs
