// The nine editing buttons of the rename dialog: text, caret, selection, focus, undo.
#include "calendar/clock_win32.h"
#include "core/files/fake_folders.h"
#include "windows/input_dialog_fixture_win32.h"

namespace ferry::dialogs {
namespace {

class InputDialogEdits : public InputDialogTest {
protected:
    /// Opens for a file and puts these names into the fields.
    void OpenWith(const std::wstring& name, const std::wstring& extension = L"TXT") {
        Open(MakeFile(L"a.txt"));
        SetText(IDC_NEW_NAME, name);
        SetText(IDC_EXTENSION, extension);
    }

    bool NameHasFocus() const { return GetFocus() == Control(IDC_NEW_NAME); }
};

TEST_F(InputDialogEdits, AnInsertionRightAfterOpeningReplacesTheWholeName) {
    const std::pair<int, const wchar_t*> cases[] = {
        {IDC_INSERT_DATE, L"2024-05-01"}, {IDC_INSERT_TIME, L"12-34-56"}, {IDC_INSERT_WEEKDAY, L"3"}};
    world_.Store.Texts[L"Week"] = L"%w";
    for (const auto& [button, expected] : cases) {
        Open(MakeFile(L"name.txt"));
        Click(button);
        EXPECT_EQ(Names(), expected + std::wstring(L"|txt"));
        EXPECT_TRUE(NameHasFocus());
    }
}

TEST_F(InputDialogEdits, AnInsertionReplacesTheSelectionAndLeavesTheCaretBehindIt) {
    OpenWith(L"ab--cd");
    SetSelection(2, 4);
    Click(IDC_INSERT_DATE);
    EXPECT_EQ(Names(), L"ab2024-05-01cd|TXT");
    EXPECT_EQ(Selection(), L"12-12");
    EXPECT_TRUE(NameHasFocus());
    Click(IDC_INSERT_TIME);
    EXPECT_EQ(Names(), L"ab2024-05-0112-34-56cd|TXT");
}

TEST_F(InputDialogEdits, AnInsertionCanBeUndone) {
    OpenWith(L"abcd");
    SetSelection(1, 3);
    Click(IDC_INSERT_TIME);
    EXPECT_EQ(Names(), L"a12-34-56d|TXT");
    EXPECT_TRUE(SendMessageW(Control(IDC_NEW_NAME), EM_CANUNDO, 0, 0));
    SendMessageW(Control(IDC_NEW_NAME), EM_UNDO, 0, 0);
    EXPECT_EQ(Names(), L"abcd|TXT");
}

TEST_F(InputDialogEdits, TheChosenFormatAndSourceAreInserted) {
    test::FakeFolders folders;
    folders.Items = {{L"a.txt",
                      false,
                      {test::FileTimeAt({2001, 1, 2, 3, 4, 5}), test::FileTimeAt({2003, 1, 2, 3, 4, 5}),
                       test::FileTimeAt({2002, 1, 2, 3, 4, 5})}}};
    Services services = world_.ServicesWith(folders);
    const std::wstring path = MakeFile(L"a.txt");
    Open(path, services);
    SetText(IDC_NEW_NAME, L"");
    Select(IDC_DATE_FORMATS, 2);
    Click(IDC_INSERT_DATE);
    EXPECT_EQ(Text(IDC_NEW_NAME), L"2024年05月01日");
    for (int source = 1; source <= 3; ++source) {
        SetText(IDC_NEW_NAME, L"");
        Select(IDC_DATE_SOURCES, source);
        Click(IDC_INSERT_DATE);
        EXPECT_EQ(Text(IDC_NEW_NAME), L"200" + std::to_wstring(source) + L"年01月02日");
    }
    EXPECT_EQ(folders.Patterns, std::vector<std::wstring>(3, path));
}

TEST_F(InputDialogEdits, TheDateOfAVanishedItemLiesIn1900) {
    calendar::SystemClock clock;
    Services services = world_.ServicesWith(clock);
    const std::wstring path = MakeFile(L"a.txt");
    Open(path, services);
    ASSERT_TRUE(DeleteFileW(path.c_str()));
    Select(IDC_DATE_FORMATS, 1);
    Select(IDC_DATE_SOURCES, 2);
    Click(IDC_INSERT_DATE);
    EXPECT_EQ(Text(IDC_NEW_NAME).substr(0, 4), L"1900");
}

TEST_F(InputDialogEdits, CopyMarksGoAndTheCaretStandsAtTheEnd) {
    OpenWith(L"コピー ～ 資料 - コピー (2)");
    Click(IDC_REMOVE_COPY_MARKS);
    EXPECT_EQ(Names(), L"資料|TXT");
    EXPECT_EQ(Selection(), L"2-2");
    EXPECT_TRUE(NameHasFocus());
}

TEST_F(InputDialogEdits, TrailingDigitsGoAndTheCaretStandsAtTheEnd) {
    OpenWith(L"IMG_0012", L"mp3");
    Click(IDC_REMOVE_TRAILING_DIGITS);
    EXPECT_EQ(Names(), L"IMG_|mp3");
    EXPECT_EQ(Selection(), L"4-4");
    EXPECT_TRUE(NameHasFocus());
}

TEST_F(InputDialogEdits, TheEndOfALongNameIsScrolledIntoView) {
    const std::wstring name(120, L'm');
    const std::pair<int, std::wstring> cases[] = {{IDC_REMOVE_COPY_MARKS, name + L" - コピー"},
                                                  {IDC_REMOVE_TRAILING_DIGITS, name + L"12"}};
    for (const auto& [button, text] : cases) {
        OpenWith(text);
        const test::WatchedMessages field(Control(IDC_NEW_NAME));
        Click(button);
        EXPECT_EQ(Text(IDC_NEW_NAME), name);
        EXPECT_TRUE(IsScrolledTo(name.size() - 1, field));
    }
}

TEST_F(InputDialogEdits, LeadingDigitsGoAndTheCaretStandsAtTheStart) {
    OpenWith(L"0012abc", L"7z");
    Click(IDC_REMOVE_LEADING_DIGITS);
    EXPECT_EQ(Names(), L"abc|7z");
    EXPECT_EQ(Selection(), L"0-0");
    EXPECT_TRUE(NameHasFocus());
}

TEST_F(InputDialogEdits, TheCaseButtonsChangeBothFieldsAndKeepTheFocus) {
    struct Case {
        int Button;
        const wchar_t* Expected;
    };
    const Case cases[] = {{IDC_UPPER_CASE, L"HELLO WORLD|TXT"},
                          {IDC_LOWER_CASE, L"hello world|txt"},
                          {IDC_CAPITALISE, L"Hello World|txt"}};
    for (const Case& each : cases) {
        OpenWith(L"HELLO wORLD", L"tXt");
        Click(each.Button);
        EXPECT_EQ(Names(), each.Expected);
        EXPECT_EQ(GetFocus(), Control(each.Button));
    }
}

TEST_F(InputDialogEdits, TheButtonsTakeAnUnsplitNameForAWhole) {
    const std::pair<int, const wchar_t*> cases[] = {{IDC_UPPER_CASE, L"7 HELLO.MP3|"},
                                                    {IDC_LOWER_CASE, L"7 hello.mp3|"},
                                                    {IDC_CAPITALISE, L"7 Hello.mp3|"},
                                                    {IDC_REMOVE_LEADING_DIGITS, L" hELLO.Mp3|"},
                                                    {IDC_REMOVE_TRAILING_DIGITS, L"7 hELLO.Mp|"}};
    world_.Store.Numbers[L"FileNameSep"] = 0;
    for (const auto& [button, expected] : cases) {
        Open(MakeFile(L"7 hELLO.Mp3"));
        Click(button);
        EXPECT_EQ(Names(), expected);
    }
}

TEST_F(InputDialogEdits, TheCaretAtTheEndStandsBehindSurrogatePairsAndMarks) {
    OpenWith(L"か\x3099\xD842\xDFB7 - コピー (2)");
    Click(IDC_REMOVE_COPY_MARKS);
    EXPECT_EQ(Names(), L"か\x3099\xD842\xDFB7|TXT");
    EXPECT_EQ(Selection(), L"4-4");
}

TEST_F(InputDialogEdits, TheResultIsWhatTheButtonsMade) {
    Open(MakeFile(L"HELLO wORLD.TXT"));
    Click(IDC_CAPITALISE);
    Click(IDOK);
    EXPECT_EQ(Result(), L"Hello World.txt");
}

TEST_F(InputDialogEdits, ToolsKeepTheOptionsThatTheUserHasJustChosen) {
    OpenWith(L"abc");
    Select(IDC_DATE_SOURCES, 3);
    Select(IDC_TIME_FORMATS, 4);
    Click(IDC_UPPER_CASE);
    EXPECT_EQ(SelectedIndex(IDC_DATE_SOURCES), 3);
    EXPECT_EQ(SelectedIndex(IDC_TIME_FORMATS), 4);
}

TEST_F(InputDialogEdits, NoToolChangesATextThatIsTooLong) {
    const std::wstring text = L"1" + std::wstring(511, L'x') + L"1";
    for (const int button : {IDC_INSERT_DATE, IDC_REMOVE_COPY_MARKS, IDC_REMOVE_LEADING_DIGITS,
                             IDC_REMOVE_TRAILING_DIGITS, IDC_UPPER_CASE, IDC_CAPITALISE}) {
        OpenWith(text);
        auto box = test::AnswerNextBox(IDOK);
        Click(button);
        EXPECT_EQ(box.get(), L"Enter no more than 512 characters.");
        EXPECT_EQ(Text(IDC_NEW_NAME), text);
    }
}

TEST_F(InputDialogEdits, AToolLeavesRenameTheDefaultButton) {
    OpenWith(L"abc1");
    // The mouse and the Tab key move the default button's frame to a button with the focus.
    SendMessageW(Window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Control(IDC_REMOVE_TRAILING_DIGITS)),
                 TRUE);
    Click(IDC_REMOVE_TRAILING_DIGITS);
    const auto kindOf = [this](int id) { return GetWindowLongPtrW(Control(id), GWL_STYLE) & BS_TYPEMASK; };
    EXPECT_EQ(kindOf(IDC_REMOVE_TRAILING_DIGITS), BS_PUSHBUTTON);
    EXPECT_EQ(kindOf(IDOK), BS_DEFPUSHBUTTON);
}

}  // namespace
}  // namespace ferry::dialogs
