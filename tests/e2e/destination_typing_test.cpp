// A person who types destinations all day: over an open list, fast, and away from it.
#include "e2e/completion_fixture.h"

namespace ferry::e2e {
namespace {

class DestinationTyping : public CompletionTest {
protected:
    /// Starts anew with two entries in the history.
    testing::AssertionResult OpenWithHistory() {
        if (!Run().CancelAndWait().IsGood())
            return testing::AssertionFailure() << "Cancel does not end it";
        WriteText(kProgramKey, L"Ferry000", L"D:\\first");
        WriteText(kProgramKey, L"Ferry001", L"D:\\second");
        return OpenDialog();
    }
};
INSTANTIATE_TEST_SUITE_P(Mode, DestinationTyping, testing::Bool(), ModeName);

// An extended combo box hides its field while the list is open; what is typed then goes to the list.
TEST_P(DestinationTyping, CharactersOverTheOpenListDisturbNeitherTheTextNorTheDialog) {
    for (const WORD key : {WORD{VK_ESCAPE}, WORD{VK_RETURN}}) {
        SCOPED_TRACE(key);
        ASSERT_TRUE(OpenList());
        TypeText(L"zz 9");
        PressKey(VK_BACK);
        EXPECT_TRUE(
            StillHolds([&] { return Dialog().IsDestinationListOpen() && Dialog().Destination() == many_; }));
        PressKey(key);
        ASSERT_TRUE(ListBecomes(false));
        EXPECT_TRUE(StaysClosedWith(many_));
        EXPECT_TRUE(Run().IsRunning());
    }
}

TEST_P(DestinationTyping, WhatIsTypedOnceTheListHasClosedGoesBehindTheItem) {
    ASSERT_TRUE(OpenList());
    PressKey(VK_DOWN);
    PressKey(VK_RETURN);
    TypeText(L"new");
    ASSERT_TRUE(DestinationBecomes(many_ + L"Alpha\\new"));
    ASSERT_TRUE(OpenList());
    PressKey(VK_DOWN);
    PressKey(VK_ESCAPE);
    TypeText(L"new");
    EXPECT_TRUE(DestinationBecomes(many_ + L"new"));
}

TEST_P(DestinationTyping, KeysFasterThanTheListAreHandledInTheirOrder) {
    Dialog().SetDestination(L"");
    ASSERT_TRUE(Dialog().FocusDestination());
    TypeText(many_);
    for (const WORD key : {WORD{VK_TAB}, WORD{VK_TAB}, WORD{VK_TAB}, WORD{VK_RETURN}}) {
        PressKey(key);
    }
    TypeText(L"x");
    ASSERT_TRUE(DestinationBecomes(many_ + L"beta\\x"));
    EXPECT_TRUE(StaysClosedWith(many_ + L"beta\\x"));
    EXPECT_TRUE(Run().IsRunning());
}

TEST_P(DestinationTyping, LeavingTheFieldClosesTheListAndGivesTheTypedTextBack) {
    ASSERT_TRUE(OpenList());
    PressKey(VK_DOWN);
    ASSERT_TRUE(DestinationBecomes(many_ + L"Alpha\\"));
    PressChord({VK_MENU, 'M'});
    ASSERT_TRUE(Dialog().WaitForFocus(Dialog().Control(kMove)));
    ASSERT_TRUE(ListBecomes(false));
    EXPECT_TRUE(StaysClosedWith(many_));
}

TEST_P(DestinationTyping, AnEntryOfTheHistoryCanBeCompletedFurther) {
    ASSERT_TRUE(CancelEndsWell());
    WriteText(kProgramKey, L"Ferry000", Tree().Path(L"single\\"));
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Type(L""));
    PressKey(VK_UP);
    ASSERT_TRUE(ListBecomes(true));
    PressKey(VK_DOWN);
    ASSERT_TRUE(SelectionBecomes(0));
    PressKey(VK_RETURN);
    ASSERT_TRUE(ListBecomes(false));
    PressKey(VK_TAB);
    EXPECT_TRUE(DestinationBecomes(Tree().Path(L"single\\only one\\")));
}

TEST_P(DestinationTyping, ClearingTheHistoryUnderTheOpenListLeavesNothingToChoose) {
    ASSERT_TRUE(OpenWithHistory());
    ASSERT_TRUE(Type(L"C:\\x"));
    PressKey(VK_UP);
    ASSERT_TRUE(ListBecomes(true));
    PressKey(VK_DOWN);
    ASSERT_TRUE(DestinationBecomes(L"D:\\first"));
    ASSERT_TRUE(PostMessageW(Dialog().Control(kDestination), WM_APP + 5, 0, 0));
    ASSERT_TRUE(WaitUntil([&] { return Dialog().DestinationListCount() == 0; }));
    EXPECT_EQ(ReadText(kProgramKey, L"Ferry000"), L"");
    if (Dialog().IsDestinationListOpen()) {
        PressKey(VK_RETURN);
        ASSERT_TRUE(ListBecomes(false));
    }
    EXPECT_TRUE(StaysClosedWith(L"C:\\x"));
    EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
}

}  // namespace
}  // namespace ferry::e2e
