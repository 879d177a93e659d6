// What the confirmation dialog answers, shows and says, message by message.
#include "e2e/fixture.h"
#include "samplehost/delivery_win32.h"
#include "samplehost/host_block_writer.h"

namespace ferry::e2e {
namespace {

constexpr UINT kIdentifyMessage = 0x8030;
constexpr WPARAM kRaiseTimer = 1000;
constexpr int kPrecisionLabel = 1141;

class ConfirmationDialog : public FerryTest {
protected:
    bool SourcesBecome(int count) const {
        return WaitUntil([&] { return Dialog().SourceCount() == count; });
    }

    bool HasTabListFocus() const { return Dialog().WaitForFocus(Dialog().Control(kTabFoldersList)); }

    /// The focus, with the caret behind the last character of the destination.
    bool HasDestinationFocus() const {
        const int end = static_cast<int>(Dialog().Destination().size());
        return Dialog().WaitForFocus(Dialog().DestinationEdit()) &&
               WaitUntil([&] { return Dialog().DestinationSelection() == std::pair(end, end); });
    }

    /// Puts the focus where none of the rules puts it.
    bool MoveFocusAway() const { return Dialog().Focus(Dialog().Control(kCancel)); }

    testing::AssertionResult ShowsOnlyTheControlsOf(int mode) const {
        const bool individual = mode == kIndividual;
        std::vector<int> shown = {kPolicyGroup, kPrecisionLabel, kPrecision};
        for (int policy = 0; policy <= 7; ++policy) {
            shown.push_back(PolicyControl(policy));
        }
        for (const int id : shown) {
            if (!WaitUntil([&] { return Dialog().IsShown(id) == individual; }))
                return testing::AssertionFailure() << id;
        }
        if (!WaitUntil([&] { return Dialog().IsShown(kNoAsk) != individual; }))
            return testing::AssertionFailure() << "do not ask";
        return testing::AssertionSuccess();
    }
};

TEST_F(ConfirmationDialog, WithoutAHostItIsEmptyAndCannotStart) {
    ASSERT_TRUE(OpenWithoutHost());
    EXPECT_EQ(Dialog().Text(kItemCount), L"(0)");
    EXPECT_EQ(Dialog().SourceCount(), 0);
    EXPECT_EQ(Dialog().Destination(), L"");
    EXPECT_FALSE(Dialog().IsEnabled(kStart));
    EXPECT_TRUE(HasDestinationFocus());
}

TEST_F(ConfirmationDialog, AFreshUserCopiesInOneBatchAndComparesTimesExactly) {
    ASSERT_TRUE(OpenWith({}));
    EXPECT_TRUE(Dialog().IsChecked(kCopy));
    EXPECT_TRUE(Dialog().IsChecked(kBatch));
    EXPECT_TRUE(Dialog().IsChecked(PolicyControl(0)));
    EXPECT_FALSE(Dialog().IsChecked(kNoAsk));
    EXPECT_FALSE(Dialog().IsChecked(kOpenDestination));
    EXPECT_EQ(Ask(Dialog().Control(kPrecision), CB_GETCURSEL), 0);
}

TEST_F(ConfirmationDialog, WhatWasStoredIsChosenAtStart) {
    WriteNumber(kProgramKey, L"Mode", 1);
    WriteNumber(kProgramKey, L"Name", 6);
    WriteNumber(kProgramKey, L"1", 1);
    WriteNumber(kProgramKey, L"OpenTarget", 1);
    WriteNumber(kProgramKey, L"TimeCmpType", 2);
    ASSERT_TRUE(OpenWith({}));
    EXPECT_TRUE(Dialog().IsChecked(kIndividual));
    EXPECT_TRUE(Dialog().IsChecked(PolicyControl(6)));
    EXPECT_TRUE(Dialog().IsChecked(kNoAsk));
    EXPECT_TRUE(Dialog().IsChecked(kOpenDestination));
    EXPECT_EQ(Ask(Dialog().Control(kPrecision), CB_GETCURSEL), 2);
}

TEST_F(ConfirmationDialog, WithAnEmptyListTheStartDoesNothing) {
    ASSERT_TRUE(OpenWithoutHost());
    ASSERT_TRUE(SendBlock({}, {}));
    ASSERT_TRUE(WaitUntil([&] { return Dialog().IsEnabled(kStart); }));
    Dialog().SetDestination(Tree().Path(L"先"));
    Dialog().Click(kStart);
    EXPECT_TRUE(StillHolds([&] { return Run().IsRunning() && IsWindowVisible(Dialog().Window()); }));
    EXPECT_FALSE(Exists(Tree().Path(L"先"))) << "not even the folder is made";
    EXPECT_EQ(FindMessageBox(Run().FerryId()).Window, nullptr);
}

TEST_F(ConfirmationDialog, TheFirstDropAndABlockEnableTheStart) {
    ASSERT_TRUE(OpenWithoutHost());
    ASSERT_TRUE(Drop({Tree().WriteFile(L"a.txt", "a")}));
    EXPECT_TRUE(WaitUntil([&] { return Dialog().IsEnabled(kStart); }));
    EXPECT_EQ(Dialog().Text(kItemCount), L"(1)");
    ASSERT_TRUE(OpenWithoutHost());
    ASSERT_TRUE(SendBlock({}, {}));
    EXPECT_TRUE(WaitUntil([&] { return Dialog().IsEnabled(kStart); }));
    EXPECT_EQ(Dialog().Text(kItemCount), L"(0)");
}

TEST_F(ConfirmationDialog, BlocksAddUpUntilADropReplacesThem) {
    ASSERT_TRUE(OpenWithoutHost());
    ASSERT_TRUE(SendBlock({L"C:\\Work\\a.txt"}, {L"D:\\a"}));
    ASSERT_TRUE(SendBlock({L"C:\\Work\\b.txt", L"C:\\Work\\c.txt"}, {L"D:\\b"}));
    ASSERT_TRUE(SourcesBecome(3));
    EXPECT_EQ(Dialog().Text(kItemCount), L"(3)");
    EXPECT_EQ(Dialog().SourceText(0), L"a.txt");
    EXPECT_EQ(Dialog().SourceText(2), L"c.txt");
    EXPECT_EQ(Dialog().Destination(), L"D:\\a\\");
    ASSERT_TRUE(Drop({Tree().WriteFile(L"d.txt", "d")}));
    ASSERT_TRUE(SourcesBecome(1));
    EXPECT_EQ(Dialog().SourceText(0), L"d.txt");
    EXPECT_EQ(Dialog().Text(kItemCount), L"(1)");
}

TEST_F(ConfirmationDialog, ThePresetOfABlockAndOfADropCountsAroundAllFolders) {
    ASSERT_TRUE(OpenWithoutHost({L"/t", L"/s=7"}));
    ASSERT_TRUE(SendBlock({L"C:\\Work\\a.txt"}, {L"D:\\0", L"D:\\1", L"D:\\2"}));
    ASSERT_TRUE(DestinationBecomes(L"D:\\1\\")) << "7 modulo 3";
    ASSERT_TRUE(Drop({Tree().WriteFile(L"a.txt", "a")}));
    ASSERT_TRUE(WaitUntil([&] { return Dialog().SourceText(0) == L"a.txt"; }));
    ASSERT_TRUE(Drop({L"D:\\3", L"D:\\4"}));
    EXPECT_TRUE(DestinationBecomes(L"D:\\2\\")) << "7 modulo 5";
    EXPECT_EQ(Dialog().TabFolders().size(), 5U);
    EXPECT_EQ(Ask(Dialog().Control(kTabFoldersList), LB_GETCURSEL), 2);
}

TEST_F(ConfirmationDialog, ThePresetAtStartCountsAroundAllFolders) {
    const std::vector<std::wstring> five = {L"D:\\0", L"D:\\1", L"D:\\2", L"D:\\3", L"D:\\4"};
    for (const bool isList : {false, true}) {
        SCOPED_TRACE(isList);
        ASSERT_TRUE(OpenWith(
            isList ? std::vector<std::wstring>{L"/t", L"/s=7"} : std::vector<std::wstring>{L"/s=7"}, five));
        EXPECT_EQ(Dialog().Destination(), L"D:\\2\\") << "7 modulo 5";
        EXPECT_EQ(Ask(Dialog().Control(kTabFoldersList), LB_GETCURSEL), isList ? 2 : LB_ERR);
    }
}

TEST_F(ConfirmationDialog, ANegativePresetIsRefusedAndNotClamped) {
    RunPlan plan = Plan({L"C:\\Work\\a.txt"}, {L"D:\\a", L"D:\\b", L"D:\\c"});
    plan.Switches = {L"/s=-1"};
    FerryRun run(plan);
    ASSERT_TRUE(run.WaitForStart());
    const ShownBox box = WaitForMessageBox(run.FerryId());
    EXPECT_EQ(box.Text, L"Encountered an improper argument.");
    ASSERT_TRUE(DismissMessageBox(box));
    const RemoteDialog dialog = run.WaitForDialog();
    ASSERT_TRUE(dialog.IsOpen());
    EXPECT_EQ(dialog.Destination(), L"");
    EXPECT_TRUE(run.CancelAndWait().IsGood());
}

TEST_F(ConfirmationDialog, ANegativePresetLeavesTheRestOfTheStartUndone) {
    RunPlan plan = Plan({L"C:\\Work\\a.txt"}, {L"D:\\a", L"D:\\b"});
    plan.Switches = {L"/t", L"/s=-1"};
    plan.HostArguments = {L"--mode", L"2"};
    FerryRun run(plan);
    ASSERT_TRUE(run.WaitForStart());
    ASSERT_TRUE(DismissMessageBox(WaitForMessageBox(run.FerryId())));
    const RemoteDialog dialog = run.WaitForDialog();
    ASSERT_TRUE(dialog.IsOpen());
    EXPECT_TRUE(dialog.IsShown(kTabFoldersButton));
    EXPECT_TRUE(dialog.IsShown(kTabFoldersList));
    EXPECT_EQ(GetWindowLongPtrW(dialog.Window(), GWL_EXSTYLE) & (WS_EX_TOPMOST | WS_EX_TOOLWINDOW), 0);
    EXPECT_TRUE(run.CancelAndWait().IsGood());
}

TEST_F(ConfirmationDialog, ANegativePresetIsRefusedWithEveryDeliveryToo) {
    ASSERT_TRUE(OpenWithoutHost({L"/s=-1"}));
    const HWND window = Dialog().Window();
    samplehost::BlockFields fields;
    fields.Tabs = {L"D:\\a", L"D:\\b"};
    // The answer waits for the message box, which no sender would wait for.
    constexpr unsigned kSenderPatienceMs = 300;
    EXPECT_FALSE(samplehost::SendData(window, nullptr, samplehost::kBlockTag,
                                      samplehost::BytesOfUnits(samplehost::BlockUnits(fields)),
                                      kSenderPatienceMs));
    const ShownBox box = WaitForMessageBox(Run().FerryId());
    EXPECT_EQ(box.Text, L"Encountered an improper argument.");
    ASSERT_TRUE(DismissMessageBox(box));
    EXPECT_EQ(Dialog().Destination(), L"");
    EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
}

TEST_F(ConfirmationDialog, ANegativePresetWithoutARemainderIsTheFirstFolder) {
    ASSERT_TRUE(OpenWith({L"/s=-3"}));
    EXPECT_EQ(Dialog().Destination(), L"D:\\a\\");
    ASSERT_TRUE(OpenWith({L"/s=-1"}, {}));
    EXPECT_EQ(Dialog().Destination(), L"");
}

TEST_F(ConfirmationDialog, TheFocusAtStartFollowsBothSwitches) {
    ASSERT_TRUE(OpenWith({}));
    EXPECT_TRUE(HasDestinationFocus());
    ASSERT_TRUE(OpenWith({L"/f=1"}));
    EXPECT_TRUE(HasDestinationFocus()) << "without the list there is no list to have the focus";
    ASSERT_TRUE(OpenWith({L"/t", L"/f=2"}));
    EXPECT_TRUE(HasDestinationFocus()) << "only 1 means the list";
    ASSERT_TRUE(OpenWith({L"/t", L"/f=1"}));
    EXPECT_TRUE(HasTabListFocus());
}

TEST_F(ConfirmationDialog, ABlockAndTheSecondDropSetTheFocusAsAtStart) {
    for (const bool isListFocused : {false, true}) {
        SCOPED_TRACE(isListFocused);
        ASSERT_TRUE(OpenWithoutHost(isListFocused ? std::vector<std::wstring>{L"/t", L"/f=1"}
                                                  : std::vector<std::wstring>{L"/t"}));
        const auto hasFocus = [&] { return isListFocused ? HasTabListFocus() : HasDestinationFocus(); };
        ASSERT_TRUE(MoveFocusAway());
        ASSERT_TRUE(SendBlock({L"C:\\Work\\a.txt"}, {L"D:\\a"}));
        EXPECT_TRUE(hasFocus());
        ASSERT_TRUE(Drop({Tree().WriteFile(L"b.txt", "b")}));
        ASSERT_TRUE(WaitUntil([&] { return Dialog().SourceText(0) == L"b.txt"; }));
        ASSERT_TRUE(MoveFocusAway());
        ASSERT_TRUE(Drop({L"D:\\b"}));
        EXPECT_TRUE(hasFocus());
    }
}

TEST_F(ConfirmationDialog, AnotherTimerRaisesNothing) {
    ASSERT_TRUE(OpenWith({}));
    const HWND host = Run().HostWindow();
    ASSERT_TRUE(TakeForeground(host));
    PostMessageW(Dialog().Window(), WM_TIMER, kRaiseTimer + 1, 0);
    EXPECT_TRUE(StillHolds([&] { return GetForegroundWindow() == host; }));
    PostMessageW(Dialog().Window(), WM_TIMER, kRaiseTimer, 0);
    EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == Dialog().Window(); }));
}

TEST_F(ConfirmationDialog, AnswersThatItIsTheOne) {
    ASSERT_TRUE(OpenWith({}));
    EXPECT_EQ(Ask(Dialog().Window(), kIdentifyMessage), 1);
    EXPECT_EQ(Ask(Dialog().Window(), kIdentifyMessage, 7, 7), 1);
    EXPECT_EQ(Ask(Dialog().Window(), kIdentifyMessage + 1), 0);
}

TEST_F(ConfirmationDialog, EachModeShowsItsOwnControls) {
    ASSERT_TRUE(OpenWith({}));
    EXPECT_TRUE(ShowsOnlyTheControlsOf(kBatch));
    ASSERT_TRUE(Dialog().Choose(kIndividual));
    EXPECT_TRUE(ShowsOnlyTheControlsOf(kIndividual));
    ASSERT_TRUE(Dialog().Choose(kBatch));
    EXPECT_TRUE(ShowsOnlyTheControlsOf(kBatch));
}

TEST_F(ConfirmationDialog, TheArrowsChangeTheModeAndWithItTheControls) {
    ASSERT_TRUE(OpenWith({}));
    ASSERT_TRUE(Dialog().Focus(Dialog().Control(kBatch)));
    PressKey(VK_DOWN);
    EXPECT_TRUE(ShowsOnlyTheControlsOf(kIndividual));
    EXPECT_TRUE(Dialog().IsChecked(kIndividual));
    PressKey(VK_UP);
    EXPECT_TRUE(ShowsOnlyTheControlsOf(kBatch));
    EXPECT_TRUE(Dialog().IsChecked(kBatch));
}

TEST_F(ConfirmationDialog, TheModeOfTheLastRunShowsItsControlsAtStart) {
    for (const int mode : {kIndividual, kBatch}) {
        WriteNumber(kProgramKey, L"Mode", mode == kIndividual ? 1 : 0);
        ASSERT_TRUE(OpenWith({}));
        EXPECT_TRUE(ShowsOnlyTheControlsOf(mode));
    }
}

TEST_F(ConfirmationDialog, EveryKeyThatMovesInTheListOfTabsChoosesThatFolder) {
    ASSERT_TRUE(OpenWith({L"/t", L"/f=1"}, {L"D:\\a", L"D:\\R&D", L"E:\\", L"D:\\z"}));
    ASSERT_TRUE(TakeForeground(Dialog().Window()));
    ASSERT_TRUE(HasTabListFocus());
    const std::pair<WORD, const wchar_t*> steps[] = {{VK_END, L"D:\\z\\"},
                                                     {VK_UP, L"E:\\"},
                                                     {VK_UP, L"D:\\R&D\\"},
                                                     {VK_HOME, L"D:\\a\\"},
                                                     {VK_NEXT, L"D:\\z\\"}};
    for (const auto& [key, expected] : steps) {
        SCOPED_TRACE(key);
        PressKey(key);
        EXPECT_TRUE(DestinationBecomes(expected));
    }
    EXPECT_TRUE(HasTabListFocus());
}

TEST_F(ConfirmationDialog, WithoutOtherTabsTheirButtonSaysSo) {
    ASSERT_TRUE(OpenWith({}, {}));
    Dialog().Click(kTabFoldersButton);
    const ShownBox box = WaitForMessageBox(Run().FerryId());
    EXPECT_EQ(box.Text, L"他のタブのフォルダーがありません。");
    EXPECT_TRUE(DismissMessageBox(box));
    EXPECT_EQ(Dialog().Destination(), L"");
}

}  // namespace
}  // namespace ferry::e2e
