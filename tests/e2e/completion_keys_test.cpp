// Every key of the destination field, pressed as a person does.
#include "e2e/completion_fixture.h"
#include "e2e/driver/surroundings.h"

namespace ferry::e2e {
namespace {

class CompletionKeys : public CompletionTest {};
INSTANTIATE_TEST_SUITE_P(Mode, CompletionKeys, testing::Bool(), ModeName);

TEST_P(CompletionKeys, CtrlBackspaceAndCtrlKGoUpOneLevel) {
    for (const WORD key : {WORD{VK_BACK}, WORD{'K'}}) {
        ASSERT_TRUE(Type(L"C:\\a\\b"));
        PressChord({VK_CONTROL, key});
        EXPECT_TRUE(DestinationBecomes(L"C:\\a\\"));
        EXPECT_TRUE(StaysClosedWith(L"C:\\a\\"));
    }
}

TEST_P(CompletionKeys, BackspaceAloneDeletesOneCharacter) {
    ASSERT_TRUE(Type(L"C:\\a\\bcd"));
    PressKey(VK_BACK);
    EXPECT_TRUE(DestinationBecomes(L"C:\\a\\bc"));
}

TEST_P(CompletionKeys, PageUpGoesUpOneLevelAndThenTakesTheSeparator) {
    ASSERT_TRUE(Type(L"C:\\a\\b\\c"));
    PressKey(VK_PRIOR);
    EXPECT_TRUE(DestinationBecomes(L"C:\\a\\b\\"));
    PressKey(VK_PRIOR);
    EXPECT_TRUE(DestinationBecomes(L"C:\\a\\b"));
    EXPECT_EQ(Dialog().DestinationSelection(), std::pair(6, 6));
}

TEST_P(CompletionKeys, PageDownAndCtrlLDeleteToTheEnd) {
    for (const bool isPageDown : {true, false}) {
        ASSERT_TRUE(Type(L"C:\\abc"));
        for (int press = 0; press < 3; ++press) {
            PressKey(VK_LEFT);
        }
        ASSERT_TRUE(WaitUntil([&] { return Dialog().DestinationSelection() == std::pair(3, 3); }));
        if (isPageDown) {
            PressKey(VK_NEXT);
        } else {
            PressChord({VK_CONTROL, 'L'});
        }
        EXPECT_TRUE(DestinationBecomes(L"C:\\"));
    }
}

TEST_P(CompletionKeys, TabCompletesAndWalksTheOpenList) {
    ASSERT_TRUE(Type(many_));
    PressKey(VK_TAB);
    ASSERT_TRUE(ListBecomes(true));
    EXPECT_EQ(Dialog().DestinationListSelection(), -1);
    for (const int expected : {0, 1, 2, 3, 0}) {
        PressKey(VK_TAB);
        EXPECT_TRUE(SelectionBecomes(expected));
    }
    for (const int expected : {3, 2}) {
        PressChord({VK_SHIFT, VK_TAB});
        EXPECT_TRUE(SelectionBecomes(expected));
    }
    EXPECT_TRUE(Dialog().IsDestinationListOpen());
}

TEST_P(CompletionKeys, ShiftTabLeavesTheFieldWhileTheListIsClosed) {
    ASSERT_TRUE(Type(many_));
    PressChord({VK_SHIFT, VK_TAB});
    EXPECT_TRUE(Dialog().WaitForFocus(Dialog().Control(kSourceList)));
    EXPECT_TRUE(StaysClosedWith(many_));
}

TEST_P(CompletionKeys, CtrlSpaceAndCtrlJCompleteAndWalkTheOpenList) {
    for (const WORD key : {WORD{VK_SPACE}, WORD{'J'}}) {
        ASSERT_TRUE(Type(many_));
        PressChord({VK_CONTROL, key});
        ASSERT_TRUE(ListBecomes(true));
        PressChord({VK_CONTROL, key});
        EXPECT_TRUE(SelectionBecomes(0));
        PressKey(VK_ESCAPE);
        ASSERT_TRUE(ListBecomes(false));
        EXPECT_TRUE(StaysClosedWith(many_));
    }
}

TEST_P(CompletionKeys, DownCompletesAndWrapsPastTheLastItem) {
    ASSERT_TRUE(OpenList());
    for (const int expected : {0, 1, 2, 3, 0}) {
        PressKey(VK_DOWN);
        EXPECT_TRUE(SelectionBecomes(expected));
    }
}

TEST_P(CompletionKeys, AltDownCompletesAndLeavesTheWindowsMenuAlone) {
    ASSERT_TRUE(Type(many_));
    PressChord({VK_MENU, VK_DOWN});
    ASSERT_TRUE(ListBecomes(true));
    EXPECT_EQ(Dialog().DestinationListCount(), 4);
    EXPECT_TRUE(StillHolds([&] { return !IsMenuOpen() && Dialog().IsDestinationListOpen(); }));
}

TEST_P(CompletionKeys, UpWrapsBeforeTheFirstItem) {
    ASSERT_TRUE(OpenList());
    for (const int expected : {3, 2, 1, 0, 3}) {
        PressKey(VK_UP);
        EXPECT_TRUE(SelectionBecomes(expected));
    }
}

TEST_P(CompletionKeys, ShiftTabBeforeTheFirstItemWrapsToTheLast) {
    ASSERT_TRUE(OpenList());
    PressKey(VK_TAB);
    ASSERT_TRUE(SelectionBecomes(0));
    PressChord({VK_SHIFT, VK_TAB});
    EXPECT_TRUE(SelectionBecomes(3));
}

TEST_P(CompletionKeys, UpOpensTheHistoryWhileTheListIsClosed) {
    ASSERT_TRUE(CancelEndsWell());
    WriteText(kProgramKey, L"Ferry000", L"D:\\first");
    WriteText(kProgramKey, L"Ferry001", L"D:\\second");
    ASSERT_TRUE(OpenDialog());
    ASSERT_TRUE(Type(many_));
    PressKey(VK_UP);
    ASSERT_TRUE(ListBecomes(true));
    EXPECT_EQ(Dialog().DestinationListCount(), 2);
    EXPECT_EQ(Dialog().DestinationListText(0), L"D:\\first");
    PressKey(VK_UP);
    ASSERT_TRUE(SelectionBecomes(1));
    PressKey(VK_RETURN);
    ASSERT_TRUE(ListBecomes(false));
    EXPECT_TRUE(DestinationBecomes(L"D:\\second"));
}

TEST_P(CompletionKeys, EnterTakesTheSelectedItemAndOnlyThenStarts) {
    ASSERT_TRUE(OpenList());
    PressKey(VK_DOWN);
    PressKey(VK_DOWN);
    ASSERT_TRUE(SelectionBecomes(1));
    PressKey(VK_RETURN);
    ASSERT_TRUE(ListBecomes(false));
    EXPECT_TRUE(StaysClosedWith(many_ + L"beta\\"));
    EXPECT_TRUE(Dialog().WaitForFocus(Dialog().DestinationEdit()));
    PressKey(VK_RETURN);
    ASSERT_TRUE(EndsWell());
    EXPECT_EQ(ReadBytes(many_ + L"beta\\a.txt"), "a");
}

TEST_P(CompletionKeys, EnterWithoutASelectionOnlyClosesTheList) {
    ASSERT_TRUE(OpenList());
    PressKey(VK_RETURN);
    ASSERT_TRUE(ListBecomes(false));
    EXPECT_TRUE(StaysClosedWith(many_));
    EXPECT_TRUE(Run().IsRunning());
}

TEST_P(CompletionKeys, EscapeClosesTheListGivesTheTypedTextBackAndOnlyThenCancels) {
    ASSERT_TRUE(OpenList());
    PressKey(VK_DOWN);
    ASSERT_TRUE(DestinationBecomes(many_ + L"Alpha\\"));
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(ListBecomes(false));
    EXPECT_TRUE(StaysClosedWith(many_));
    EXPECT_TRUE(Dialog().WaitForFocus(Dialog().DestinationEdit()));
    EXPECT_TRUE(Run().IsRunning());
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(EndsWell());
}

TEST_P(CompletionKeys, KeysOfTheClosedFieldDoNothingToTheTextWhileTheListIsOpen) {
    ASSERT_TRUE(OpenList());
    PressChord({VK_CONTROL, 'K'});
    PressChord({VK_CONTROL, 'L'});
    PressChord({VK_CONTROL, 'H'});
    EXPECT_TRUE(StillHolds([&] { return FindMessageBox(Run().FerryId()).Window == nullptr; }));
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(ListBecomes(false));
    EXPECT_TRUE(DestinationBecomes(many_));
}

TEST_P(CompletionKeys, AnItemReachedByPageDownInTheOpenListIsTakenWhole) {
    ASSERT_TRUE(OpenList());
    PressKey(VK_NEXT);
    ASSERT_TRUE(WaitUntil([&] { return Dialog().DestinationListSelection() >= 0; }));
    const int selected = Dialog().DestinationListSelection();
    PressKey(VK_RETURN);
    ASSERT_TRUE(ListBecomes(false));
    EXPECT_TRUE(DestinationBecomes(Dialog().DestinationListText(selected)));
}

TEST_P(CompletionKeys, CharactersAreTypedAsEver) {
    ASSERT_TRUE(Type(L"C:\\日本"));
    for (const WORD key : {WORD{'H'}, WORD{'J'}, WORD{VK_SPACE}, WORD{'K'}, WORD{'L'}}) {
        PressKey(key);
    }
    EXPECT_TRUE(DestinationBecomes(L"C:\\日本hj kl"));
    EXPECT_TRUE(StaysClosedWith(L"C:\\日本hj kl"));
}

TEST_P(CompletionKeys, KeysElsewhereInTheDialogAreNotTheFieldsOwn) {
    ASSERT_TRUE(Type(many_));
    PressChord({VK_SHIFT, VK_TAB});
    ASSERT_TRUE(Dialog().WaitForFocus(Dialog().Control(kSourceList)));
    for (const WORD key : {WORD{VK_PRIOR}, WORD{VK_NEXT}, WORD{VK_UP}, WORD{VK_DOWN}}) {
        PressKey(key);
    }
    EXPECT_TRUE(StaysClosedWith(many_));
}

TEST_P(CompletionKeys, ADoubleClickInTheFieldOpensTheList) {
    ASSERT_TRUE(Type(many_));
    RECT box{};
    GetWindowRect(Dialog().DestinationEdit(), &box);
    constexpr int kInsideTheField = 10;
    ClickAt({box.left + kInsideTheField, (box.top + box.bottom) / 2}, 2);
    ASSERT_TRUE(ListBecomes(true));
    EXPECT_TRUE(StillHolds([&] { return Dialog().IsDestinationListOpen(); }));
    EXPECT_EQ(Dialog().DestinationListCount(), 4);
}

}  // namespace
}  // namespace ferry::e2e
