// The completing path field: every key in every state, the list, drops and the mouse.
#include "controls/complement_combo_box.h"

#include <windows.h>

#include <algorithm>

#include "windows/combo_box_fixture_win32.h"
#include "windows/drop_win32.h"
#include "windows/watched_import_win32.h"
#include "windows/watched_messages_win32.h"

namespace ferry::test {
namespace {

using completion::KeyAction;

class ComplementComboBoxTest : public ComboBoxTest {
protected:
    /// Has fixed items that a test chooses.
    class TestBox : public controls::CComplementComboBox {
    public:
        using CComplementComboBox::CComplementComboBox;
        using CComplementComboBox::kClearHistoryMessage;
        using CComplementComboBox::SetFixedItems;
    };

    ComplementComboBoxTest() : belowBox_(Control()) {
        EXPECT_TRUE(box_.Prepare(Control()));
        box_.SetCompletionOn(true);
        box_.SetFixedItems({L"H:\\one\\", L"H:\\two\\", L"H:\\three\\"});
        folders_.Items = {{L"beta", true}, {L"alpha", true}, {L"file.txt", false}, {L"Gamma", true}};
    }

    controls::CComplementComboBox& Box() override { return box_; }

    /// Types a folder and opens the list of what is in it.
    void OpenList() {
        Type(L"C:\\x\\");
        ASSERT_TRUE(Press(VK_DOWN));
        ASSERT_TRUE(IsOpen());
        ASSERT_EQ(box_.SelectedItem(), -1);
    }

    /// Whether the last character of the field's text can be seen.
    bool ShowsItsEnd() {
        const auto last = static_cast<WPARAM>(Text().size() - 1);
        const int left = static_cast<short>(LOWORD(SendMessageW(box_.Edit(), EM_POSFROMCHAR, last, 0)));
        RECT area{};
        GetClientRect(box_.Edit(), &area);
        return left >= 0 && left < area.right;
    }

    /// What comes to the control behind the object under test.
    test::WatchedMessages belowBox_;
    TestBox box_{info_, folders_, messages_, speaker_};
};

// Every combination of Ctrl, Shift and Alt.
std::vector<std::vector<int>> AllHeldKeys() {
    std::vector<std::vector<int>> all;
    for (int bits = 0; bits < 8; ++bits) {
        std::vector<int>& held = all.emplace_back();
        if ((bits & 1) != 0) {
            held.push_back(VK_CONTROL);
        }
        if ((bits & 2) != 0) {
            held.push_back(VK_SHIFT);
        }
        if ((bits & 4) != 0) {
            held.push_back(VK_MENU);
        }
    }
    return all;
}

bool Has(const std::vector<int>& held, int key) {
    return std::ranges::find(held, key) != held.end();
}

std::string Name(const std::vector<int>& held) {
    std::string name = "held:";
    for (const int key : held) {
        name += key == VK_CONTROL ? " Ctrl" : key == VK_SHIFT ? " Shift" : " Alt";
    }
    return name;
}

TEST_F(ComplementComboBoxTest, PageUpGoesUpOneLevelWhateverIsHeld) {
    for (const auto& held : AllHeldKeys()) {
        SCOPED_TRACE(Name(held));
        Type(L"C:\\a\\b\\c");
        EXPECT_TRUE(Press(VK_PRIOR, held));
        EXPECT_EQ(Text(), L"C:\\a\\b\\");
        EXPECT_TRUE(Press(VK_PRIOR, held));
        EXPECT_EQ(Text(), L"C:\\a\\b");
        EXPECT_EQ(Selection(), std::pair(6, 6));
    }
}

TEST_F(ComplementComboBoxTest, BackspaceAndKGoUpOneLevelWithCtrlOnly) {
    for (const int key : {VK_BACK, int{'K'}}) {
        for (const auto& held : AllHeldKeys()) {
            SCOPED_TRACE(Name(held));
            Type(L"C:\\a\\b");
            EXPECT_EQ(Press(key, held), Has(held, VK_CONTROL));
            EXPECT_EQ(Text(), Has(held, VK_CONTROL) ? L"C:\\a\\" : L"C:\\a\\b");
        }
    }
}

TEST_F(ComplementComboBoxTest, GoingUpLeavesATextAloneOfWhichNothingWouldBeLeft) {
    for (const wchar_t* text : {L"", L"C:", L"name"}) {
        Type(text);
        EXPECT_TRUE(Press(VK_PRIOR));
        EXPECT_EQ(Text(), text);
    }
}

TEST_F(ComplementComboBoxTest, PageDownDeletesFromTheSelectionsStartToTheEnd) {
    for (const auto& held : AllHeldKeys()) {
        SCOPED_TRACE(Name(held));
        Type(L"C:\\abc\\def", 4, 5);
        EXPECT_TRUE(Press(VK_NEXT, held));
        EXPECT_EQ(Text(), L"C:\\a");
        EXPECT_EQ(Selection(), std::pair(4, 4));
    }
    Type(L"C:\\abc", 0, 0);
    EXPECT_TRUE(Press(VK_NEXT));
    EXPECT_EQ(Text(), L"");
}

TEST_F(ComplementComboBoxTest, LDeletesToTheEndWithCtrlOnly) {
    for (const auto& held : AllHeldKeys()) {
        SCOPED_TRACE(Name(held));
        Type(L"C:\\abc", 3, 3);
        EXPECT_EQ(Press('L', held), Has(held, VK_CONTROL));
        EXPECT_EQ(Text(), Has(held, VK_CONTROL) ? L"C:\\" : L"C:\\abc");
    }
}

TEST_F(ComplementComboBoxTest, DeletingToTheEndCanBeUndone) {
    Type(L"C:\\abc", 3, 3);
    EXPECT_TRUE(Press(VK_NEXT));
    SendMessageW(box_.Edit(), EM_UNDO, 0, 0);
    EXPECT_EQ(Text(), L"C:\\abc");
}

TEST_F(ComplementComboBoxTest, AltGrTypesACharacterInsteadOfDoingWhatCtrlDoes) {
    Type(L"C:\\abc", 3, 3);
    for (const int key : {int{'H'}, int{'J'}, int{'K'}, int{'L'}, VK_SPACE, VK_BACK}) {
        EXPECT_FALSE(Press(key, {VK_CONTROL, VK_MENU, VK_RMENU}));
    }
    EXPECT_EQ(Text(), L"C:\\abc");
}

TEST_F(ComplementComboBoxTest, AChangedTextIsScrolledToItsCaret) {
    const std::wstring folder = L"C:\\" + std::wstring(150, L'm') + L"\\";
    const WatchedMessages edit(box_.Edit());
    // Some systems scroll when the caret is placed, others only when they are told to.
    const auto isScrolled = [&] {
        return ShowsItsEnd() && edit.Last({WM_SETTEXT, EM_SETSEL, EM_SCROLLCARET}) == EM_SCROLLCARET;
    };
    Type(folder + L"last");
    EXPECT_TRUE(Press(VK_PRIOR));
    EXPECT_EQ(Text(), folder);
    EXPECT_TRUE(isScrolled());
    box_.ReplaceText(folder + L"another\\");
    EXPECT_TRUE(isScrolled());
    folders_.Items = {{L"single", true}};
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_EQ(Text(), folder + L"another\\single\\");
    EXPECT_TRUE(isScrolled());
}

TEST_F(ComplementComboBoxTest, WindowsIsToldOfAConsumedKeyWithAlt) {
    // Else the release of Alt would open the window's menu.
    const test::WatchedImport<&DefWindowProcW> told("DefWindowProcW");
    const auto keys = [&] {
        std::vector<WPARAM> seen;
        for (const auto& [window, message, key, data] : told.Calls()) {
            if (message == WM_SYSKEYDOWN) {
                EXPECT_EQ(window, box_.Edit());
                seen.push_back(key);
            }
        }
        return seen;
    };
    Type(L"\\");
    EXPECT_TRUE(Press(VK_DOWN));
    EXPECT_FALSE(Press('A', {VK_MENU}));
    EXPECT_EQ(keys(), std::vector<WPARAM>{});
    EXPECT_TRUE(Press(VK_DOWN, {VK_MENU}));
    EXPECT_EQ(keys(), std::vector<WPARAM>{VK_DOWN});
}

TEST_F(ComplementComboBoxTest, TabAloneCompletesWhenCompletionIsOn) {
    for (const auto& held : AllHeldKeys()) {
        SCOPED_TRACE(Name(held));
        Type(L"c");
        EXPECT_EQ(Press(VK_TAB, held), held.empty());
        EXPECT_EQ(Text(), held.empty() ? L"c:\\" : L"c");
    }
    box_.SetCompletionOn(false);
    Type(L"c");
    EXPECT_FALSE(Press(VK_TAB));
    EXPECT_EQ(Text(), L"c");
}

TEST_F(ComplementComboBoxTest, SpaceAndJCompleteWithCtrlAlsoWhenCompletionIsOff) {
    for (const bool isOn : {true, false}) {
        box_.SetCompletionOn(isOn);
        for (const int key : {VK_SPACE, int{'J'}}) {
            for (const auto& held : AllHeldKeys()) {
                SCOPED_TRACE(Name(held));
                Type(L"c");
                EXPECT_EQ(Press(key, held), Has(held, VK_CONTROL));
                EXPECT_EQ(Text(), Has(held, VK_CONTROL) ? L"c:\\" : L"c");
            }
        }
    }
}

TEST_F(ComplementComboBoxTest, DownCompletesWhateverIsHeld) {
    for (const auto& held : AllHeldKeys()) {
        SCOPED_TRACE(Name(held));
        Type(L"\\");
        EXPECT_TRUE(Press(VK_DOWN, held));
        EXPECT_EQ(Text(), L"\\\\");
        EXPECT_EQ(Selection(), std::pair(2, 2));
    }
}

TEST_F(ComplementComboBoxTest, ATextOfALetterAndAColonBecomesTheRoot) {
    Type(L"d:");
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_EQ(Text(), L"d:\\");
    EXPECT_FALSE(IsOpen());
}

TEST_F(ComplementComboBoxTest, ASingleCharacterThatIsNoRootStaysWhateverTheHistoryHolds) {
    for (const Texts& history : {Texts{}, Texts{L"E:\\last"}, Texts{L"E:\\last", L"E:\\earlier"}}) {
        box_.SetFixedItems(history);
        for (const wchar_t* text : {L"1", L"写", L"/"}) {
            Type(text);
            EXPECT_TRUE(Press(VK_TAB));
            EXPECT_EQ(Text(), text);
            EXPECT_FALSE(IsOpen());
        }
    }
}

TEST_F(ComplementComboBoxTest, SeveralMatchesOpenTheListWithoutTouchingTheText) {
    folders_.Items.push_back({L"Apple.txt", false});
    Type(L"C:\\x\\a");
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(folders_.Patterns, Texts{L"C:\\x\\a*"});
    EXPECT_EQ(Shown(), (Texts{L"C:\\x\\alpha\\", L"C:\\x\\Apple.txt"}));
    EXPECT_EQ(box_.Candidates(), Shown());
    EXPECT_EQ(Text(), L"C:\\x\\a");
}

TEST_F(ComplementComboBoxTest, FoldersOnlyLeavesFilesOut) {
    box_.SetFoldersOnly(true);
    OpenList();
    EXPECT_EQ(Shown(), (Texts{L"C:\\x\\alpha\\", L"C:\\x\\beta\\", L"C:\\x\\Gamma\\"}));
}

TEST_F(ComplementComboBoxTest, ASingleMatchGoesIntoTheFieldAtOnce) {
    folders_.Items = {{L"Windows", true}};
    Type(L"C:\\Win");
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_EQ(folders_.Patterns, Texts{L"C:\\*Win*"});
    EXPECT_EQ(Text(), L"C:\\Windows\\");
    EXPECT_EQ(Selection(), std::pair(11, 11));
    EXPECT_FALSE(IsOpen());
}

TEST_F(ComplementComboBoxTest, ASingleFileGoesIntoTheFieldWithoutASeparator) {
    folders_.Items = {{L"read me.txt", false}};
    Type(L"C:\\re");
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_EQ(Text(), L"C:\\read me.txt");
}

TEST_F(ComplementComboBoxTest, NoMatchLeavesTheTextAndAnEmptyList) {
    OpenList();
    EXPECT_TRUE(Press(VK_ESCAPE));
    folders_.Items.clear();
    Type(L"C:\\nothing");
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_EQ(Text(), L"C:\\nothing");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Shown(), Texts{});
}

TEST_F(ComplementComboBoxTest, TheTextAndItsSelectionStayWhereAnEmptiedListTakesThemAlong) {
    const test::WatchedImport<&SendMessageW> send(
        "SendMessageW", [&](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
            const LRESULT result = send.CallReal(window, message, wParam, lParam);
            if (window == Control() && message == CB_RESETCONTENT) {
                SetWindowTextW(box_.Edit(), L"");
            }
            return result;
        });
    folders_.Items.clear();
    Type(L"C:\\x\\none", 3, 5);
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_EQ(Text(), L"C:\\x\\none");
    EXPECT_EQ(Selection(), std::pair(3, 5));
}

TEST_F(ComplementComboBoxTest, AnEmptyTextOffersTheFixedItemsNotThoseOfAnEarlierSearch) {
    OpenList();
    EXPECT_TRUE(Press(VK_ESCAPE));
    Type(L"");
    EXPECT_TRUE(Press(VK_DOWN));
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Shown(), (Texts{L"H:\\one\\", L"H:\\two\\", L"H:\\three\\"}));
}

TEST_F(ComplementComboBoxTest, ARelativeTextIsCompletedBelowTheBaseFolder) {
    box_.SetBaseFolder(L"C:\\base\\sub");
    folders_.Items = {};
    Type(L"..\\al");
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_EQ(Text(), L"C:\\base\\al");
    EXPECT_EQ(folders_.Patterns, Texts{L"C:\\base\\*al*"});
    Type(L"D:\\al");
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_EQ(Text(), L"D:\\al");
}

TEST_F(ComplementComboBoxTest, ARelativeTextIsSearchedForBelowTheSearchBase) {
    box_.SetSearchBase(L"C:\\base");
    folders_.Items = {{L"alpha", true}};
    Type(L"al");
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_EQ(Text(), L"C:\\base\\alpha\\");
    EXPECT_EQ(folders_.Patterns, Texts{L"C:\\base\\*al*"});
}

TEST_F(ComplementComboBoxTest, DownTabSpaceAndJWalkTheOpenListAndWrap) {
    for (const auto& held : AllHeldKeys()) {
        for (const int key : {VK_DOWN, VK_TAB, VK_SPACE, int{'J'}}) {
            if ((key == VK_TAB && Has(held, VK_SHIFT)) ||
                ((key == VK_SPACE || key == 'J') && !Has(held, VK_CONTROL))) {
                continue;
            }
            SCOPED_TRACE(Name(held) + " " + std::to_string(key));
            OpenList();
            for (const int expected : {0, 1, 2, 3, 0}) {
                EXPECT_TRUE(Press(key, held));
                EXPECT_EQ(box_.SelectedItem(), expected);
                EXPECT_TRUE(IsOpen());
            }
            EXPECT_TRUE(Press(VK_ESCAPE));
        }
    }
}

TEST_F(ComplementComboBoxTest, UpAndShiftTabWalkTheOpenListBackwardsAndWrap) {
    for (const auto& held : AllHeldKeys()) {
        for (const int key : {VK_UP, VK_TAB}) {
            if (key == VK_TAB && !Has(held, VK_SHIFT)) {
                continue;
            }
            SCOPED_TRACE(Name(held) + " " + std::to_string(key));
            OpenList();
            for (const int expected : {3, 2, 1, 0, 3}) {
                EXPECT_TRUE(Press(key, held));
                EXPECT_EQ(box_.SelectedItem(), expected);
            }
            EXPECT_TRUE(Press(VK_ESCAPE));
        }
    }
}

TEST_F(ComplementComboBoxTest, UpOpensTheFixedItemsWhileTheListIsClosed) {
    for (const auto& held : AllHeldKeys()) {
        SCOPED_TRACE(Name(held));
        Type(L"C:\\typed");
        EXPECT_TRUE(Press(VK_UP, held));
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(Shown(), (Texts{L"H:\\one\\", L"H:\\two\\", L"H:\\three\\"}));
        EXPECT_TRUE(Press(VK_ESCAPE));
        EXPECT_EQ(Text(), L"C:\\typed");
    }
}

TEST_F(ComplementComboBoxTest, EnterInTheOpenListTakesTheSelectedItem) {
    for (const auto& held : AllHeldKeys()) {
        SCOPED_TRACE(Name(held));
        box_.SetNotification(Parent(), 77);
        OpenList();
        EXPECT_TRUE(Press(VK_DOWN));
        EXPECT_TRUE(Press(VK_DOWN));
        EXPECT_TRUE(Press(VK_RETURN, held));
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(Text(), L"C:\\x\\beta\\");
        EXPECT_EQ(box_.ChosenText(), L"C:\\x\\beta\\");
        EXPECT_EQ(Selection(), std::pair(10, 10));
        EXPECT_TRUE(PumpCommands().empty());
    }
}

TEST_F(ComplementComboBoxTest, EnterInTheOpenListWithoutASelectionJustClosesIt) {
    OpenList();
    EXPECT_TRUE(Press(VK_RETURN));
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Text(), L"C:\\x\\");
    EXPECT_EQ(box_.ChosenText(), L"");
}

TEST_F(ComplementComboBoxTest, EnterWithTheListClosedTellsTheOwnerAndIsPassedOn) {
    Type(L"C:\\x");
    EXPECT_FALSE(Press(VK_RETURN));
    EXPECT_TRUE(PumpCommands().empty());
    box_.SetNotification(Parent(), 77);
    for (const auto& held : AllHeldKeys()) {
        SCOPED_TRACE(Name(held));
        EXPECT_FALSE(Press(VK_RETURN, held));
        EXPECT_EQ(PumpCommands(), std::vector{77});
    }
    EXPECT_EQ(Text(), L"C:\\x");
}

TEST_F(ComplementComboBoxTest, EscapeClosesTheOpenListAndGivesTheTypedTextBack) {
    for (const auto& held : AllHeldKeys()) {
        SCOPED_TRACE(Name(held));
        OpenList();
        EXPECT_TRUE(Press(VK_DOWN));
        EXPECT_EQ(Text(), L"C:\\x\\alpha\\");
        EXPECT_TRUE(Press(VK_ESCAPE, held));
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(Text(), L"C:\\x\\");
        EXPECT_EQ(box_.ChosenText(), L"");
        EXPECT_FALSE(Press(VK_ESCAPE, held));
    }
}

TEST_F(ComplementComboBoxTest, KeysThatNeedAClosedListArePassedOnWhileItIsOpen) {
    OpenList();
    for (const auto& held : AllHeldKeys()) {
        SCOPED_TRACE(Name(held));
        for (const int key : {VK_BACK, int{'K'}, VK_PRIOR, VK_NEXT, int{'L'}, int{'H'}}) {
            EXPECT_FALSE(Press(key, held)) << key;
        }
    }
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Text(), L"C:\\x\\");
}

TEST_F(ComplementComboBoxTest, OtherKeysArePassedOn) {
    Type(L"C:\\x\\");
    for (const auto& held : AllHeldKeys()) {
        for (const int key : {int{'A'}, int{'V'}, VK_HOME, VK_END, VK_LEFT, VK_DELETE, VK_F4, VK_CONTROL}) {
            EXPECT_FALSE(Press(key, held)) << key;
        }
    }
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Text(), L"C:\\x\\");
}

TEST_F(ComplementComboBoxTest, KeyReleasesAndCharactersAreNoKeys) {
    Type(L"c");
    MSG message{};
    message.hwnd = box_.Edit();
    message.wParam = VK_TAB;
    for (const UINT kind : {WM_KEYUP, WM_CHAR, WM_SYSKEYUP, WM_DEADCHAR}) {
        message.message = kind;
        EXPECT_FALSE(box_.PreTranslateMessage(message));
    }
    EXPECT_EQ(Text(), L"c");
}

TEST_F(ComplementComboBoxTest, HWithCtrlAsksWhetherToClearTheHistory) {
    Type(L"C:\\x");
    for (const int answer : {IDYES, IDNO}) {
        auto box = AnswerNextBox(answer);
        EXPECT_TRUE(Press('H', {VK_CONTROL}));
        EXPECT_EQ(box.get(), L"History: clear?");
        MSG message;
        const bool wasPosted = PeekMessageW(&message, Control(), WM_APP + 5, WM_APP + 5, PM_REMOVE) != FALSE;
        EXPECT_EQ(wasPosted, answer == IDYES);
    }
    EXPECT_EQ(TestBox::kClearHistoryMessage, 0x8005U);
    EXPECT_FALSE(Press('H'));
    EXPECT_FALSE(Press('H', {VK_SHIFT}));
}

TEST_F(ComplementComboBoxTest, ADoubleClickSearchesAndShows) {
    folders_.Items = {{L"Windows", true}};
    box_.SetBaseFolder(L"B:\\ignored");
    box_.SetSearchBase(L"C:\\");
    Type(L"Win");
    EXPECT_TRUE(Mouse(WM_LBUTTONDBLCLK));
    EXPECT_EQ(folders_.Patterns, Texts{L"C:\\*Win*"});
    EXPECT_EQ(Text(), L"C:\\Windows\\");
}

TEST_F(ComplementComboBoxTest, ADoubleClickOpensTheListOfSeveralMatches) {
    Type(L"C:\\x\\");
    EXPECT_TRUE(Mouse(WM_LBUTTONDBLCLK));
    EXPECT_TRUE(IsOpen());
    EXPECT_FALSE(Mouse(WM_LBUTTONDBLCLK));
    EXPECT_FALSE(Mouse(WM_LBUTTONDOWN));
}

TEST_F(ComplementComboBoxTest, TheWheelChangesNothingWhileTheListIsClosed) {
    Type(L"C:\\x\\");
    EXPECT_TRUE(Mouse(WM_MOUSEWHEEL));
    EXPECT_EQ(Text(), L"C:\\x\\");
    OpenList();
    EXPECT_FALSE(Mouse(WM_MOUSEWHEEL));
}

TEST_F(ComplementComboBoxTest, KeysOfAnInputMethodArePassedOn) {
    Type(L"c");
    EXPECT_FALSE(Press(VK_PROCESSKEY));
    SendMessageW(box_.Edit(), WM_IME_STARTCOMPOSITION, 0, 0);
    for (const int key : {VK_TAB, VK_DOWN, VK_UP, VK_PRIOR, VK_RETURN}) {
        EXPECT_FALSE(Press(key)) << key;
    }
    EXPECT_EQ(Text(), L"c");
    SendMessageW(box_.Edit(), WM_IME_ENDCOMPOSITION, 0, 0);
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_EQ(Text(), L"c:\\");
}

TEST_F(ComplementComboBoxTest, APathThatIsTooWideIsShownShortenedAndKeptWhole) {
    const std::wstring folder = L"C:\\" + std::wstring(150, L'm') + L"\\";
    folders_.Items = {{L"the end & more", true}, {L"the other end", true}};
    Type(folder);
    EXPECT_TRUE(Press(VK_DOWN));
    ASSERT_EQ(Shown().size(), 2U);
    EXPECT_EQ(box_.Candidates()[0], folder + L"the end & more\\");
    EXPECT_LT(Shown()[0].size(), 60U);
    EXPECT_NE(Shown()[0].find(L"..."), std::wstring::npos);
    EXPECT_TRUE(Shown()[0].ends_with(L"the end & more\\"));
    EXPECT_TRUE(Press(VK_DOWN));
    EXPECT_EQ(Text(), folder + L"the end & more\\");
    EXPECT_TRUE(Press(VK_RETURN));
    EXPECT_EQ(Text(), folder + L"the end & more\\");
}

TEST_F(ComplementComboBoxTest, APathIsMeasuredInTheFontOfTheListAndNotInThatOfTheFieldAroundIt) {
    const std::wstring folder = L"C:\\" + std::wstring(15, L'm') + L"\\";
    folders_.Items = {{L"a", true}};
    Type(folder);
    EXPECT_TRUE(Press(VK_DOWN));
    ASSERT_EQ(Shown(), Texts{folder + L"a\\"});
    box_.OpenList(false);
    LOGFONTW description{};
    description.lfHeight = -60;
    const HFONT large = CreateFontIndirectW(&description);
    SendMessageW(box_.Combo(), WM_SETFONT, reinterpret_cast<WPARAM>(large), FALSE);
    Type(folder);
    EXPECT_TRUE(Press(VK_DOWN));
    ASSERT_EQ(Shown().size(), 1U);
    EXPECT_NE(Shown()[0], folder + L"a\\");
    SendMessageW(box_.Combo(), WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    DeleteObject(large);
}

TEST_F(ComplementComboBoxTest, TheListIsWideEnoughForATextAsWideAsTheControl) {
    OpenList();
    RECT control{};
    GetClientRect(Control(), &control);
    const auto width = SendMessageW(box_.Combo(), CB_GETDROPPEDWIDTH, 0, 0);
    EXPECT_GT(width, control.right + GetSystemMetrics(SM_CXVSCROLL));
}

TEST_F(ComplementComboBoxTest, APathLongerThanTheSystemsOldLimitIsShownShortened) {
    std::wstring folder = L"C:\\";
    while (folder.size() < 800) {
        folder += std::wstring(200, L'w') + L"\\";
    }
    Type(folder);
    EXPECT_TRUE(Press(VK_DOWN));
    ASSERT_EQ(Shown().size(), 4U);
    EXPECT_LT(Shown()[0].size(), 60U);
    EXPECT_TRUE(Shown()[0].ends_with(L"...\\alpha\\"));
    EXPECT_EQ(box_.Candidates()[0], folder + L"alpha\\");
}

TEST_F(ComplementComboBoxTest, AClickOnAnItemPutsItsWholePathIntoTheField) {
    const std::wstring folder = L"C:\\" + std::wstring(150, L'm') + L"\\";
    Type(folder);
    EXPECT_TRUE(Press(VK_DOWN));
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    ASSERT_TRUE(GetComboBoxInfo(box_.Combo(), &info));
    const LPARAM secondItem = MAKELPARAM(5, SendMessageW(info.hwndList, LB_GETITEMHEIGHT, 0, 0) * 3 / 2);
    SendMessageW(info.hwndList, WM_LBUTTONDOWN, MK_LBUTTON, secondItem);
    SendMessageW(info.hwndList, WM_LBUTTONUP, 0, secondItem);
    EXPECT_TRUE(WaitUntil([&] {
        PumpCommands();
        return !IsOpen();
    }));
    EXPECT_EQ(Text(), folder + L"beta\\");
}

TEST_F(ComplementComboBoxTest, TheArrowOffersTheFixedItemsAfterASearchToo) {
    OpenList();
    EXPECT_TRUE(Press(VK_ESCAPE));
    SendMessageW(Control(), CB_SHOWDROPDOWN, TRUE, 0);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Shown(), (Texts{L"H:\\one\\", L"H:\\two\\", L"H:\\three\\"}));
    EXPECT_EQ(Text(), L"C:\\x\\");
}

TEST_F(ComplementComboBoxTest, AReplacedTextStaysWhenTheListWasOpen) {
    OpenList();
    EXPECT_TRUE(Press(VK_DOWN));
    box_.ReplaceText(L"D:\\from elsewhere\\");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Text(), L"D:\\from elsewhere\\");
}

TEST_F(ComplementComboBoxTest, TheFocusIsInTheFieldAgainWhenTheListHasClosed) {
    OpenList();
    EXPECT_TRUE(Press(VK_DOWN));
    EXPECT_TRUE(Press(VK_RETURN));
    EXPECT_EQ(GetFocus(), box_.Edit());
    EXPECT_TRUE(IsWindowVisible(box_.Edit()));
}

TEST_F(ComplementComboBoxTest, ADropPutsItsFirstItemIntoTheFieldAndSearchesThereFromNowOn) {
    folders_.Items = {{L"dropped", true}};
    box_.SetFoldersOnly(true);
    Type(L"C:\\x");
    SendMessageW(Control(), WM_DROPFILES,
                 reinterpret_cast<WPARAM>(MakeDrop({L"D:\\dropped", L"E:\\ignored"})), 0);
    EXPECT_EQ(Text(), L"D:\\dropped");
    Type(L"sub");
    EXPECT_TRUE(Press(VK_TAB));
    EXPECT_EQ(folders_.Patterns, Texts{L"D:\\dropped\\*sub*"});
}

TEST_F(ComplementComboBoxTest, ADroppedFileGivesItsFolderWhenOnlyFoldersAreWanted) {
    world_.Files.AddFile(L"D:\\dir\\file.txt", "content");
    box_.SetFoldersOnly(true);
    SendMessageW(Control(), WM_DROPFILES, reinterpret_cast<WPARAM>(MakeDrop({L"D:\\dir\\file.txt"})), 0);
    EXPECT_EQ(Text(), L"D:\\dir\\");
    box_.SetFoldersOnly(false);
    SendMessageW(Control(), WM_DROPFILES, reinterpret_cast<WPARAM>(MakeDrop({L"D:\\dir\\file.txt"})), 0);
    EXPECT_EQ(Text(), L"D:\\dir\\file.txt");
}

TEST_F(ComplementComboBoxTest, ADropGoesOnToTheDefaultHandling) {
    const HDROP drop = MakeDrop({L"D:\\dropped"});
    SendMessageW(Control(), WM_DROPFILES, reinterpret_cast<WPARAM>(drop), 0);
    ASSERT_EQ(belowBox_.Count(WM_DROPFILES), 1U);
    EXPECT_EQ(belowBox_.Of(WM_DROPFILES)[0].wParam, reinterpret_cast<WPARAM>(drop));
    SendMessageW(Control(), WM_DROPFILES, reinterpret_cast<WPARAM>(MakeDrop({})), 0);
    EXPECT_EQ(belowBox_.Count(WM_DROPFILES), 2U);
}

TEST_F(ComplementComboBoxTest, ADropIsLetGoOnce) {
    const test::WatchedImport<&DragFinish> finish("DragFinish");
    const HDROP drop = MakeDrop({L"D:\\dropped"});
    SendMessageW(Control(), WM_DROPFILES, reinterpret_cast<WPARAM>(drop), 0);
    EXPECT_EQ(std::get<0>(finish.OnlyCall()), drop);
}

TEST_F(ComplementComboBoxTest, ADropOfNothingChangesNothing) {
    Type(L"C:\\x");
    SendMessageW(Control(), WM_DROPFILES, reinterpret_cast<WPARAM>(MakeDrop({})), 0);
    EXPECT_EQ(Text(), L"C:\\x");
}

TEST_F(ComplementComboBoxTest, ADropWhileTheListIsOpenClosesIt) {
    OpenList();
    SendMessageW(Control(), WM_DROPFILES, reinterpret_cast<WPARAM>(MakeDrop({L"D:\\dropped"})), 0);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Text(), L"D:\\dropped");
}

}  // namespace
}  // namespace ferry::test
