// How the dialog sits relative to the host's window.
#include <cstdlib>

#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

struct ModeCase {
    const wchar_t* Mode;
    bool IsTopmost;
    bool IsToolWindow;
    bool IsOwned;
};

class WindowMode : public FerryTest {
protected:
    testing::AssertionResult OpenInMode(const std::wstring& mode, std::vector<std::wstring> more = {}) {
        RunPlan plan = Plan({L"C:\\Work\\a.txt"});
        plan.HostArguments = {L"--mode", mode};
        plan.HostArguments.insert(plan.HostArguments.end(), more.begin(), more.end());
        return Open(plan);
    }

    bool HasStyle(LONG_PTR style) const {
        return (GetWindowLongPtrW(Dialog().Window(), GWL_EXSTYLE) & style) != 0;
    }
};

TEST_F(WindowMode, EachModeHasItsStylesAndItsOwner) {
    const ModeCase cases[] = {
        {L"0", false, false, false}, {L"1", true, false, false}, {L"2", true, true, false},
        {L"3", false, false, true},  {L"4", false, true, false}, {L"9", false, false, false},
    };
    for (const ModeCase& each : cases) {
        SCOPED_TRACE(each.Mode);
        ASSERT_TRUE(OpenInMode(each.Mode));
        EXPECT_TRUE(WaitUntil([&] { return HasStyle(WS_EX_TOPMOST) == each.IsTopmost; }));
        EXPECT_EQ(HasStyle(WS_EX_TOOLWINDOW), each.IsToolWindow);
        const HWND owner = GetWindow(Dialog().Window(), GW_OWNER);
        EXPECT_EQ(owner == Run().HostWindow(), each.IsOwned);
    }
}

TEST_F(WindowMode, ModeThreeWithoutAHostHasNoOwner) {
    RunPlan plan = PlanWithoutHost();
    plan.Variable = L"3:0:1:1:0:0:0:0:None:";
    ASSERT_TRUE(Open(plan));
    EXPECT_EQ(GetWindow(Dialog().Window(), GW_OWNER), nullptr);
}

TEST_F(WindowMode, TheDialogStandsInTheMiddleOfTheHost) {
    ASSERT_TRUE(OpenInMode(L"0", {L"--window", L"40,20,1000,800"}));
    RECT host = {};
    RECT dialog = {};
    GetWindowRect(Run().HostWindow(), &host);
    GetWindowRect(Dialog().Window(), &dialog);
    EXPECT_LE(std::abs((host.left + host.right) - (dialog.left + dialog.right)), 2);
    EXPECT_LE(std::abs((host.top + host.bottom) - (dialog.top + dialog.bottom)), 2);
}

TEST_F(WindowMode, AHostAtTheScreensEdgeDoesNotPushTheDialogOff) {
    ASSERT_TRUE(OpenInMode(L"0", {L"--window", L"-300,-300,320,320"}));
    RECT dialog = {};
    RECT work = {};
    GetWindowRect(Dialog().Window(), &dialog);
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    EXPECT_EQ(dialog.left, work.left);
    EXPECT_EQ(dialog.top, work.top);
}

/// How long the foreground must stay where it is.
constexpr int kQuietMs = 500;

class ForegroundAfterwards : public WindowMode, public testing::WithParamInterface<const wchar_t*> {};

TEST_P(ForegroundAfterwards, GoesToTheHostOnlyWhenItAskedForIt) {
    const bool isAsked = std::wstring_view(GetParam()) == L"1";
    ASSERT_TRUE(OpenInMode(L"1", {L"--activate", GetParam(), L"--stay"}));
    const HWND host = Run().HostWindow();
    const HWND between = CreateWindowExW(0, L"Static", L"between", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                         200, 100, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_TRUE(TakeForeground(between));
    ASSERT_TRUE(TakeForeground(Dialog().Window()));
    ASSERT_TRUE(CancelEndsWell());
    if (isAsked)
        EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == host; }));
    else
        // What a process asked for may be done after its end.
        EXPECT_FALSE(WaitUntil([&] { return GetForegroundWindow() == host; }, kQuietMs));
    DestroyWindow(between);
    PostMessageW(host, WM_CLOSE, 0, 0);
    EXPECT_TRUE(Run().WaitForHost().IsGood());
}

INSTANTIATE_TEST_SUITE_P(Wishes, ForegroundAfterwards, testing::Values(L"0", L"1", L"2"),
                         [](const auto& wish) { return "Activate" + std::to_string(wish.index); });

TEST_F(WindowMode, AHostThatIsGoneCannotBeActivatedAndNothingIsSaid) {
    RunPlan plan = PlanWithoutHost();
    plan.Variable = L"1:1:1:1:0:0:0:0:None:";
    ASSERT_TRUE(Open(plan));
    EXPECT_TRUE(CancelEndsWell());
}

}  // namespace
}  // namespace ferry::e2e
