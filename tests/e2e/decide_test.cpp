// Deciding each collision: every choice, for one file and for all, remembered or not.
#include "e2e/run_fixture.h"

namespace ferry::e2e {
namespace {

constexpr int kChoices[] = {0, 1, 2, 3, 4, 5, 6};

class Deciding : public AskingRun {
protected:
    /// Chooses `policy` in the dialog that asks, and presses `button`, with Shift when wanted.
    testing::AssertionResult Answer(int policy, int button, bool withShift = false) {
        const RemoteDialog question = Collision();
        if (!question.IsOpen())
            return testing::AssertionFailure() << "no question came";
        if (!question.Choose(ChoiceControl(policy)))
            return testing::AssertionFailure() << "policy " << policy << " cannot be chosen";
        if (!question.PressWithKeys(button, withShift) || !WaitUntilGone(question))
            return testing::AssertionFailure() << "the question stays";
        return testing::AssertionSuccess();
    }

    /// The policy that is chosen in the dialog that asks; -1 when none is.
    int Preselected() {
        const RemoteDialog question = Collision();
        for (const int policy : kChoices) {
            if (question.IsChecked(ChoiceControl(policy)))
                return policy;
        }
        return -1;
    }
};

TEST_F(Deciding, NamesTheFileAndAsksForEveryCollision) {
    ASSERT_TRUE(Start({Colliding(L"a.txt"), Free(L"b.txt"), Colliding(L"c.txt")}, kAskEach));
    const RemoteDialog first = Collision();
    EXPECT_EQ(first.Title(), L"ファイル処理の確認");
    EXPECT_EQ(first.Text(1000), L"a.txt");
    ASSERT_TRUE(Answer(3, kStart));
    EXPECT_EQ(Collision().Text(1000), L"c.txt");
    ASSERT_TRUE(Answer(2, kStart));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(At(L"a.txt"), Incoming(L"a.txt"));
    EXPECT_EQ(At(L"b.txt"), Incoming(L"b.txt"));
    EXPECT_EQ(At(L"c.txt"), Existing(L"c.txt"));
}

TEST_F(Deciding, TheTimeChoicesCompareTheTwoFiles) {
    for (const int policy : {0, 1}) {
        for (const int age : {-60, 60}) {
            SCOPED_TRACE(std::to_string(policy) + " " + std::to_string(age));
            Tree().WriteFile(L"先\\a.txt", Existing(L"a.txt"), 0);
            ASSERT_TRUE(Start({Tree().WriteFile(L"元\\a.txt", Incoming(L"a.txt"), age)}, kAskEach));
            ASSERT_TRUE(Answer(policy, kStart));
            ASSERT_TRUE(Ends());
            EXPECT_EQ(At(L"a.txt"), (policy == 0) == (age > 0) ? Incoming(L"a.txt") : Existing(L"a.txt"));
        }
    }
}

TEST_F(Deciding, RenamingTheIncomingFileAsksForItsName) {
    ASSERT_TRUE(Start({Colliding(L"a.txt")}, kAskEach));
    ASSERT_TRUE(Answer(kRenameIncoming, kStart));
    const RemoteDialog rename = Rename();
    EXPECT_EQ(rename.Title(), L"名前を変更する(R)");
    ASSERT_TRUE(TypeNewName(rename, L"b"));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(At(L"a.txt"), Existing(L"a.txt"));
    EXPECT_EQ(At(L"b.txt"), Incoming(L"a.txt"));
}

TEST_F(Deciding, RenamingTheExistingFileAsksForItsName) {
    ASSERT_TRUE(Start({Colliding(L"a.txt")}, kAskEach));
    ASSERT_TRUE(Answer(kRenameExisting, kStart));
    const RemoteDialog rename = Rename();
    EXPECT_EQ(rename.Title(), L"元ファイルの名前を変更(B)");
    ASSERT_TRUE(TypeNewName(rename, L"b"));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(At(L"a.txt"), Incoming(L"a.txt"));
    EXPECT_EQ(At(L"b.txt"), Existing(L"a.txt"));
}

TEST_F(Deciding, RenamingAutomaticallyLeavesTheNameToTheShell) {
    ASSERT_TRUE(Start({Colliding(L"a.txt")}, kAskEach));
    ASSERT_TRUE(Answer(6, kStart));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(At(L"a.txt"), Existing(L"a.txt"));
    EXPECT_EQ(ReadTree(Tree().Path(L"先")).size(), 2U);
}

TEST_F(Deciding, ForAllHoldsForTheRestOfTheRun) {
    ASSERT_TRUE(Start({Colliding(L"a.txt"), Colliding(L"b.txt"), Colliding(L"c.txt")}, kAskEach));
    ASSERT_TRUE(Answer(2, kStart));
    ASSERT_TRUE(Answer(3, kForAll));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(At(L"a.txt"), Existing(L"a.txt"));
    EXPECT_EQ(At(L"b.txt"), Incoming(L"b.txt"));
    EXPECT_EQ(At(L"c.txt"), Incoming(L"c.txt"));
}

TEST_F(Deciding, RenamingForAllStillAsksForEachName) {
    ASSERT_TRUE(Start({Colliding(L"a.txt"), Colliding(L"b.txt")}, kAskEach));
    ASSERT_TRUE(Answer(kRenameIncoming, kForAll));
    ASSERT_TRUE(TypeNewName(Rename(), L"a2"));
    ASSERT_TRUE(TypeNewName(Rename(), L"b2"));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(NamesBelow(L"先"), L"a.txt a2.txt b.txt b2.txt");
}

TEST_F(Deciding, CancelAndEscapeSkipTheFileAndGoOn) {
    ASSERT_TRUE(Start({Colliding(L"a.txt"), Colliding(L"b.txt"), Free(L"c.txt")}, kAskEach, {L"/m"}));
    ASSERT_TRUE(Answer(3, kCancel));
    ASSERT_TRUE(PressEscapeIn(Collision()));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(At(L"a.txt"), Existing(L"a.txt"));
    EXPECT_EQ(At(L"b.txt"), Existing(L"b.txt"));
    EXPECT_EQ(At(L"c.txt"), Incoming(L"c.txt"));
    EXPECT_EQ(NamesBelow(L"元"), L"a.txt b.txt");
}

TEST_F(Deciding, StopAllEndsTheWholeTransferAtOnce) {
    ASSERT_TRUE(Start({Free(L"a.txt"), Colliding(L"b.txt"), Free(L"c.txt")}, kAskEach));
    ASSERT_TRUE(Answer(3, kStopAll));
    ASSERT_TRUE(Ends());
    EXPECT_EQ(At(L"a.txt"), Incoming(L"a.txt"));
    EXPECT_EQ(At(L"b.txt"), Existing(L"b.txt"));
    EXPECT_FALSE(Exists(Tree().Path(L"先\\c.txt")));
}

TEST_F(Deciding, TheLastChoiceIsPreselectedInTheNextQuestionAndInTheNextRun) {
    for (const int button : {int{kStart}, kForAll}) {
        ASSERT_TRUE(Start({Colliding(L"a.txt"), Colliding(L"b.txt")}, kAskEach));
        ASSERT_TRUE(Answer(button == kStart ? 6 : 2, button));
        if (button == kStart) {
            EXPECT_EQ(Preselected(), 6);
            ASSERT_TRUE(PressEscapeIn(Collision()));
        }
        ASSERT_TRUE(Ends());
        ASSERT_TRUE(Start({Colliding(L"a.txt")}, kAskEach));
        EXPECT_EQ(Preselected(), button == kStart ? 6 : 2);
        ASSERT_TRUE(PressEscapeIn(Collision()));
        ASSERT_TRUE(Ends());
    }
}

TEST_F(Deciding, WithShiftHeldTheChoiceIsUsedAndNotRemembered) {
    WriteNumber(kProgramKey, L"AfterSel", 1);
    for (const int button : {int{kStart}, kForAll}) {
        ASSERT_TRUE(Start({Colliding(L"a.txt")}, kAskEach));
        ASSERT_TRUE(Answer(3, button, true));
        ASSERT_TRUE(Ends());
        EXPECT_EQ(At(L"a.txt"), Incoming(L"a.txt"));
        EXPECT_EQ(ReadNumber(kProgramKey, L"AfterSel"), 1U);
    }
}

TEST_F(Deciding, StopAllAndCancelDoNotChangeWhatIsRemembered) {
    WriteNumber(kProgramKey, L"AfterSel", 1);
    for (const int button : {kStopAll, int{kCancel}}) {
        ASSERT_TRUE(Start({Colliding(L"a.txt")}, kAskEach));
        ASSERT_TRUE(Answer(3, button));
        ASSERT_TRUE(Ends());
        EXPECT_EQ(ReadNumber(kProgramKey, L"AfterSel"), 1U);
    }
}

}  // namespace
}  // namespace ferry::e2e
