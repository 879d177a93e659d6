// The progress window: what it shows, who has the keyboard, and the way to stop a run.
#include "e2e/driver/message_file.h"
#include "e2e/run_fixture.h"

namespace ferry::e2e {
namespace {

class ProgressOfARun : public AskingRun {
protected:
    /// Starts a run of three files whose second takes long, and waits until it is at work.
    testing::AssertionResult StartSlowly(std::vector<std::wstring> switches = {}) {
        SetVariable(L"FERRY_FILEOP_FAULTS", L"slow@2:1500");
        Tree().MakeFolder(L"先");
        if (const auto started = Start({Free(L"a.txt"), Free(L"b.txt"), Free(L"c.txt")}, 3, switches);
            !started)
            return started;
        if (!ProgressWindow().IsOpen() || !WaitUntil([this] { return FlagsIn(FileOps()).size() == 2; }))
            return testing::AssertionFailure() << "the run does not begin";
        return testing::AssertionSuccess();
    }

    bool OnlyTheThirdIsMissing() const {
        return At(L"a.txt") == Incoming(L"a.txt") && At(L"b.txt") == Incoming(L"b.txt") &&
               !Exists(Tree().Path(L"先\\c.txt"));
    }
};

TEST_F(ProgressOfARun, ShowsTheOperationAndTheLastItem) {
    for (const auto& [flag, number] : {std::pair{L"/c", 5954}, std::pair{L"/m", 5953}}) {
        ASSERT_TRUE(Start({Free(L"a.txt"), Colliding(L"b.txt")}, kRenameIncoming, {flag}));
        ASSERT_TRUE(Rename().IsOpen());
        const RemoteDialog progress = ProgressWindow();
        EXPECT_EQ(progress.Title(), L"進捗状況");
        EXPECT_EQ(progress.Text(kProgressTitle), InstalledMessage(AppFolder(), number));
        EXPECT_TRUE(WaitUntil([&] { return progress.Text(kProgressItem) == L"a.txt"; }));
        EXPECT_EQ(progress.Text(kCancel), L"中止(&C)");
        EXPECT_TRUE(progress.IsShown(kCancel));
        ASSERT_TRUE(PressEscapeIn(Rename()));
        ASSERT_TRUE(Ends());
        RemoveAll(Tree().Path(L"先"));
    }
}

TEST_F(ProgressOfARun, ItAndTheQuestionSpeakTheLanguageOfTheHost) {
    WriteText(kHostKey, L"NLS", L".en-US");
    ASSERT_TRUE(Start({Colliding(L"a.txt")}, kAskEach));
    const RemoteDialog question = Collision();
    EXPECT_EQ(question.Title(), L"Confirm the file operation");
    EXPECT_EQ(question.Text(ChoiceControl(6)), L"Rename automatically");
    EXPECT_EQ(question.Text(kForAll), L"Apply to &all");
    EXPECT_EQ(ProgressWindow().Title(), L"Progress");
    EXPECT_EQ(ProgressWindow().Text(kCancel), L"&Stop");
    ASSERT_TRUE(PressEscapeIn(question));
    ASSERT_TRUE(Ends());
}

TEST_F(ProgressOfARun, TheConfirmationDialogIsHiddenAndDisabledMeanwhile) {
    // While no question is open, which would disable it, too.
    ASSERT_TRUE(StartSlowly());
    EXPECT_FALSE(IsWindowVisible(Dialog().Window()));
    EXPECT_FALSE(IsWindowEnabled(Dialog().Window()));
    EXPECT_EQ(GetWindow(ProgressWindow().Window(), GW_OWNER), Dialog().Window());
    ASSERT_TRUE(Ends());
}

TEST_F(ProgressOfARun, AQuestionBelongsToTheConfirmationAndLeavesItEnabled) {
    ASSERT_TRUE(Start({Colliding(L"a.txt"), Colliding(L"b.txt")}, kAskEach));
    const RemoteDialog question = Collision();
    EXPECT_EQ(GetWindow(question.Window(), GW_OWNER), Dialog().Window());
    EXPECT_TRUE(IsWindowEnabled(ProgressWindow().Window()));
    ASSERT_TRUE(question.Choose(ChoiceControl(kRenameIncoming)));
    question.Click(kStart);
    const RemoteDialog rename = Rename();
    EXPECT_EQ(GetWindow(rename.Window(), GW_OWNER), Dialog().Window());
    EXPECT_TRUE(IsWindowEnabled(ProgressWindow().Window()));
}

TEST_F(ProgressOfARun, StoppedWhileAQuestionIsOpenItEndsBothAndLosesNothing) {
    constexpr int kRenameExisting = 5;
    for (const int policy : {kAskEach, kRenameIncoming, kRenameExisting}) {
        for (const bool byKey : {false, true}) {
            SCOPED_TRACE(std::to_string(policy) + (byKey ? " by key" : " by mouse"));
            ASSERT_TRUE(Start({Colliding(L"a.txt"), Colliding(L"b.txt")}, policy));
            const RemoteDialog question = policy == kAskEach ? Collision() : Rename();
            ASSERT_TRUE(question.IsOpen());
            if (byKey) {
                ASSERT_TRUE(TakeForeground(ProgressWindow().Window()));
                PressKey(VK_ESCAPE);
            } else {
                ProgressWindow().Click(kCancel);
            }
            ASSERT_TRUE(Ends());
            EXPECT_EQ(NamesBelow(L"元"), L"a.txt b.txt");
            EXPECT_EQ(NamesBelow(L"先"), L"a.txt b.txt");
            EXPECT_TRUE(FlagsIn(FileOps()).empty()) << "the shell was asked for nothing";
        }
    }
}

TEST_F(ProgressOfARun, TheFocusComesBackToItWhenAQuestionCloses) {
    SetVariable(L"FERRY_FILEOP_FAULTS", L"slow@1:1500");
    for (const int policy : {kRenameIncoming, kAskEach}) {
        ASSERT_TRUE(Start({Colliding(L"a.txt")}, policy));
        if (policy == kAskEach) {
            const RemoteDialog question = Collision();
            ASSERT_TRUE(question.Choose(ChoiceControl(3)));
            ASSERT_TRUE(question.PressWithKeys(kStart));
            ASSERT_TRUE(WaitUntilGone(question));
        } else {
            ASSERT_TRUE(TypeNewName(Rename(), L"b"));
        }
        const RemoteDialog progress = ProgressWindow();
        ASSERT_TRUE(progress.IsOpen());
        EXPECT_TRUE(WaitUntil([&] { return GetForegroundWindow() == progress.Window(); }));
        EXPECT_TRUE(progress.WaitForFocus(progress.Control(kCancel)));
        EXPECT_TRUE(IsWindowEnabled(progress.Window()));
        ASSERT_TRUE(Ends());
    }
}

TEST_F(ProgressOfARun, EscapeDuringALongFileTakesEffectBeforeTheNextOne) {
    ASSERT_TRUE(StartSlowly());
    ASSERT_TRUE(TakeForeground(ProgressWindow().Window()));
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(Ends());
    EXPECT_TRUE(OnlyTheThirdIsMissing());
}

TEST_F(ProgressOfARun, TheStopButtonDoesTheSame) {
    ASSERT_TRUE(StartSlowly());
    ProgressWindow().Click(kCancel);
    ASSERT_TRUE(Ends());
    EXPECT_TRUE(OnlyTheThirdIsMissing());
}

TEST_F(ProgressOfARun, AStoppedMoveKeepsWhatHasNotMoved) {
    ASSERT_TRUE(StartSlowly({L"/m"}));
    ProgressWindow().Click(kCancel);
    ASSERT_TRUE(Ends());
    EXPECT_TRUE(OnlyTheThirdIsMissing());
    EXPECT_EQ(NamesBelow(L"元"), L"c.txt");
}

TEST_F(ProgressOfARun, AStartThatIsPressedAgainMeanwhileStartsNoSecondRun) {
    ASSERT_TRUE(StartSlowly());
    PostMessageW(Dialog().Window(), WM_COMMAND, MAKEWPARAM(kStart, BN_CLICKED), 0);
    ASSERT_TRUE(Ends());
    EXPECT_EQ(FlagsIn(FileOps()).size(), 3U);
}

TEST_F(ProgressOfARun, OtherKeysDoNotStopIt) {
    ASSERT_TRUE(StartSlowly());
    ASSERT_TRUE(TakeForeground(ProgressWindow().Window()));
    for (const WORD key : {WORD{VK_TAB}, WORD{VK_LEFT}, WORD{'X'}}) {
        PressKey(key);
    }
    ASSERT_TRUE(Ends());
    EXPECT_EQ(NamesBelow(L"先"), L"a.txt b.txt c.txt");
}

}  // namespace
}  // namespace ferry::e2e
