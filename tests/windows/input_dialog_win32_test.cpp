// The rename dialog: what it shows, what it gives back, what it remembers.
#include "windows/input_dialog_fixture_win32.h"

namespace ferry::dialogs {
namespace {

using ValueNames = std::vector<std::wstring>;

TEST_F(InputDialogTest, AFileIsSplitAtItsLastDotAndComesBackUnchanged) {
    Open(MakeFile(L"report.final.txt"));
    EXPECT_EQ(Text(IDC_CURRENT_NAME), L"report.final.txt");
    EXPECT_EQ(Names(), L"report.final|txt");
    EXPECT_EQ(Result(), L"");
    Click(IDOK);
    EXPECT_EQ(Result(), L"report.final.txt");
    EXPECT_FALSE(IsOpen());
}

TEST_F(InputDialogTest, AFolderIsShownWholeInAWideFieldWithoutAnExtension) {
    Open(MakeFolder(L"photos.2020"));
    EXPECT_EQ(Names(), L"photos.2020|");
    EXPECT_FALSE(IsShown(IDC_EXTENSION));
    EXPECT_FALSE(IsShown(IDC_EXTENSION_LABEL));
    EXPECT_FALSE(IsShown(IDC_EXTENSION_HINT));
    EXPECT_EQ(RectOf(IDC_NEW_NAME).right, RectOf(IDC_EXTENSION).right);
    Click(IDOK);
    EXPECT_EQ(Result(), L"photos.2020");
}

TEST_F(InputDialogTest, AFileWithoutADotHasNoExtensionAndNoTrailingDot) {
    Open(MakeFile(L"archive"));
    EXPECT_EQ(Names(), L"archive|");
    EXPECT_TRUE(IsShown(IDC_EXTENSION));
    Click(IDOK);
    EXPECT_EQ(Result(), L"archive");
}

TEST_F(InputDialogTest, AClearedExtensionLeavesTheNameAloneWithoutADot) {
    Open(MakeFile(L"a.txt"));
    SetText(IDC_EXTENSION, L"");
    Click(IDOK);
    EXPECT_EQ(Result(), L"a");
}

TEST_F(InputDialogTest, AFileThatBeginsWithItsOnlyDotShowsTheWholePathAsItsName) {
    const std::wstring path = MakeFile(L".profile");
    Open(path);
    EXPECT_EQ(Text(IDC_CURRENT_NAME), L".profile");
    EXPECT_EQ(Names(), path + L"|profile");
}

TEST_F(InputDialogTest, NamesAreSplitAtTheirLastDotAloneAndComeBackUnchanged) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"a..txt", L"a.|txt"},
        {L"..txt", L".|txt"},
        {L"a. b", L"a| b"},
        {L" a.b", L" a|b"},
        {L"資料．txt", L"資料．txt|"},
        {L"か\x3099.tar.gz", L"か\x3099.tar|gz"},
        {L"\xD842\xDFB7.\xD83D\xDE00", L"\xD842\xDFB7|\xD83D\xDE00"},
    };
    for (const auto& [name, expected] : cases) {
        Open(MakeFile(name));
        EXPECT_EQ(Names(), expected);
        Click(IDOK);
        EXPECT_EQ(Result(), name);
    }
}

TEST_F(InputDialogTest, NothingThatWasTypedIsTrimmedOrJudged) {
    const std::pair<std::pair<const wchar_t*, const wchar_t*>, const wchar_t*> cases[] = {
        {{L"  a ", L" t "}, L"  a . t "}, {{L"a:b\\c", L"?"}, L"a:b\\c.?"},
        {{L"", L"txt"}, L".txt"},         {{L"", L""}, L""},
        {{L"a.", L".txt"}, L"a...txt"},   {{L"　", L""}, L"　"},
    };
    for (const auto& [typed, expected] : cases) {
        Open(MakeFile(L"a.txt"));
        SetText(IDC_NEW_NAME, typed.first);
        SetText(IDC_EXTENSION, typed.second);
        Click(IDOK);
        EXPECT_EQ(Result(), expected);
    }
}

TEST_F(InputDialogTest, AHiddenExtensionIsNoPartOfTheResult) {
    Open(MakeFile(L"a.txt"));
    Click(IDC_SPLIT_FILES);
    SetText(IDC_NEW_NAME, L"b");
    Click(IDOK);
    EXPECT_EQ(Result(), L"b");
}

TEST_F(InputDialogTest, ASlashIsNoSeparator) {
    Open(L"C:\\nowhere/to be found");
    EXPECT_EQ(Text(IDC_CURRENT_NAME), L"nowhere/to be found");
    EXPECT_EQ(Names(), L"nowhere/to be found|");
}

TEST_F(InputDialogTest, ShiftThatIsReleasedBeforeOkStoresTheOptions) {
    Open(MakeFile(L"a.txt"));
    test::HoldKeys({VK_SHIFT});
    Click(IDC_SPLIT_FOLDERS);
    test::HoldKeys({});
    Click(IDOK);
    EXPECT_EQ(world_.Store.Numbers[L"DirNameSep"], 1U);
}

TEST_F(InputDialogTest, APathWithoutASeparatorIsItsOwnCurrentName) {
    Open(L"nowhere to be found.txt");
    EXPECT_EQ(Text(IDC_CURRENT_NAME), L"nowhere to be found.txt");
}

TEST_F(InputDialogTest, AnItemThatCannotBeReadCountsAsAFolder) {
    const std::wstring path = folder_ / L"gone.txt";
    Open(path);
    EXPECT_EQ(Names(), L"gone.txt|");
    world_.Store.Numbers[L"DirNameSep"] = 1;
    Open(path);
    EXPECT_EQ(Names(), L"gone|txt");
}

TEST_F(InputDialogTest, AFileAtALongPathIsSeenAsAFile) {
    const std::wstring path = folder_.LongFolder() + L"\\a.txt";
    test::WriteBytes(path, {});
    Open(path);
    EXPECT_EQ(Names(), L"a|txt");
}

TEST_F(InputDialogTest, OpensWithTheCaptionOfItsCallerAndTheWholeNewNameSelected) {
    Open(MakeFile(L"a name.txt"));
    EXPECT_EQ(test::TextOfWindow(Window()), L"caption");
    EXPECT_EQ(GetFocus(), Control(IDC_NEW_NAME));
    EXPECT_EQ(Selection(), L"0-6");
}

TEST_F(InputDialogTest, TheCurrentNameCannotBeEditedAndIsNoTabStop) {
    Open(MakeFile(L"a.txt"));
    const LONG_PTR style = GetWindowLongPtrW(Control(IDC_CURRENT_NAME), GWL_STYLE);
    EXPECT_NE(style & ES_READONLY, 0);
    EXPECT_EQ(style & WS_TABSTOP, 0);
}

TEST_F(InputDialogTest, BothFieldsTakeNoMoreThan512Characters) {
    Open(MakeFile(L"a.txt"));
    for (const int id : {IDC_NEW_NAME, IDC_EXTENSION}) {
        EXPECT_EQ(SendMessageW(Control(id), EM_GETLIMITTEXT, 0, 0), 512);
        SetText(id, std::wstring(512, L'x'));
        SendMessageW(Control(id), EM_SETSEL, 512, 512);
        SendMessageW(Control(id), WM_CHAR, L'y', 0);
        EXPECT_EQ(Text(id).size(), 512U);
    }
}

TEST_F(InputDialogTest, OkStaysOpenWhileAFieldIsTooLong) {
    for (const int id : {IDC_NEW_NAME, IDC_EXTENSION}) {
        Open(MakeFile(L"a.txt"));
        SetText(id, std::wstring(513, L'x'));
        auto box = test::AnswerNextBox(IDOK);
        Click(IDOK);
        EXPECT_EQ(box.get(), L"Enter no more than 512 characters.");
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(Result(), L"");
        EXPECT_TRUE(world_.Store.Writes.empty());
    }
}

TEST_F(InputDialogTest, ASplitCheckBoxRebuildsBothFieldsAndDiscardsWhatWasTyped) {
    Open(MakeFile(L"a.b.txt"));
    const RECT narrow = RectOf(IDC_NEW_NAME);
    SetText(IDC_NEW_NAME, L"typed");
    Click(IDC_SPLIT_FILES);
    EXPECT_EQ(Names(), L"a.b.txt|");
    EXPECT_FALSE(IsShown(IDC_EXTENSION));
    EXPECT_EQ(Selection(), L"0-7");
    SetText(IDC_NEW_NAME, L"typed");
    Click(IDC_SPLIT_FILES);
    EXPECT_EQ(Names(), L"a.b|txt");
    EXPECT_EQ(Selection(), L"0-3");
    const RECT again = RectOf(IDC_NEW_NAME);
    EXPECT_TRUE(EqualRect(&narrow, &again));
    for (const int id : {IDC_EXTENSION, IDC_EXTENSION_LABEL, IDC_EXTENSION_HINT}) {
        EXPECT_TRUE(IsShown(id));
    }
}

TEST_F(InputDialogTest, ALongNameIsScrolledToItsCaretWheneverItIsShownAnew) {
    const std::wstring name(120, L'm');
    Open(MakeFile(name + L".txt"));
    const test::WatchedMessages field(Control(IDC_NEW_NAME));
    Click(IDC_SPLIT_FILES);
    EXPECT_EQ(Names(), name + L".txt|");
    EXPECT_TRUE(IsScrolledTo(name.size() + 3, field));
    Click(IDC_SPLIT_FILES);
    EXPECT_EQ(Names(), name + L"|txt");
    EXPECT_TRUE(IsScrolledTo(name.size() - 1, field));
}

TEST_F(InputDialogTest, ASplitCheckBoxKeepsTheDateSourceThatWasJustChosen) {
    world_.Store.Numbers[L"DateType"] = 1;
    Open(MakeFile(L"a.txt"));
    Select(IDC_DATE_SOURCES, 3);
    Click(IDC_SPLIT_FILES);
    EXPECT_EQ(SelectedIndex(IDC_DATE_SOURCES), 3);
    Click(IDC_SPLIT_FOLDERS);
    EXPECT_EQ(SelectedIndex(IDC_DATE_SOURCES), 3);
    Click(IDOK);
    EXPECT_EQ(world_.Store.Numbers[L"DateType"], 3U);
}

TEST_F(InputDialogTest, TheCheckBoxForTheOtherKindAlsoStartsOverButSplitsNothing) {
    Open(MakeFolder(L"a.b"));
    SetText(IDC_NEW_NAME, L"typed");
    Click(IDC_SPLIT_FILES);
    EXPECT_EQ(Names(), L"a.b|");
    Click(IDC_SPLIT_FOLDERS);
    EXPECT_EQ(Names(), L"a|b");
}

TEST_F(InputDialogTest, AWidenedFieldKeepsItsOtherEdges) {
    Open(MakeFile(L"a.txt"));
    const RECT narrow = RectOf(IDC_NEW_NAME);
    Click(IDC_SPLIT_FILES);
    const RECT wide = RectOf(IDC_NEW_NAME);
    EXPECT_EQ(wide.left, narrow.left);
    EXPECT_EQ(wide.top, narrow.top);
    EXPECT_EQ(wide.bottom, narrow.bottom);
    EXPECT_GT(wide.right, narrow.right);
}

TEST_F(InputDialogTest, OnAMonitorOfAnotherScalingTheNameFieldGoesBackToItsPlaceThere) {
    Open(MakeFile(L"a.txt"));
    const RECT before = RectOf(IDC_NEW_NAME);
    RECT client{};
    RECT window{};
    GetClientRect(Window(), &client);
    GetWindowRect(Window(), &window);
    SetWindowPos(Window(), nullptr, 0, 0, window.right - window.left + client.right,
                 window.bottom - window.top + client.bottom, SWP_NOMOVE | SWP_NOZORDER);
    Click(IDC_SPLIT_FILES);
    Click(IDC_SPLIT_FILES);
    const RECT after = RectOf(IDC_NEW_NAME);
    EXPECT_EQ(after.left, 2 * before.left);
    EXPECT_EQ(after.top, 2 * before.top);
    EXPECT_EQ(after.right, 2 * before.right);
    EXPECT_EQ(after.bottom, 2 * before.bottom);
}

TEST_F(InputDialogTest, AFreshUserGetsTheDefaults) {
    Open(MakeFile(L"a.txt"));
    EXPECT_EQ(IsDlgButtonChecked(Window(), IDC_SPLIT_FILES), BST_CHECKED);
    EXPECT_EQ(IsDlgButtonChecked(Window(), IDC_SPLIT_FOLDERS), BST_UNCHECKED);
    EXPECT_EQ(SelectedItem(IDC_DATE_FORMATS), L"%Y-%m-%d");
    EXPECT_EQ(SelectedItem(IDC_TIME_FORMATS), L"%H-%M-%S");
    EXPECT_EQ(SelectedItem(IDC_WEEKDAY_FORMATS), L"%a");
    EXPECT_EQ(SelectedItem(IDC_DATE_SOURCES), L"現在日時");
}

TEST_F(InputDialogTest, DateAndWeekdayFormatsAreFoundExactlyAndTheTimeFormatByItsBeginning) {
    struct Case {
        const wchar_t* Stored;
        int Date, Time, Week;
    };
    const Case cases[] = {
        {L"%y%m%d", 4, -1, -1}, {L"%Y%m%d", 1, -1, -1}, {L"%Y%M%D", -1, -1, -1}, {L"%Y", -1, -1, -1},
        {L"%w", -1, -1, 3},     {L"%W", -1, -1, 4},     {L"%A", -1, -1, 1},      {L"%h%m", -1, 1, -1},
        {L"%i", -1, 3, -1},     {L"%p%I", -1, 5, -1},   {L"%H時", -1, 2, -1},    {L"%H%M%S ", -1, -1, -1},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(each.Stored)));
        for (const wchar_t* name : {L"DateTime", L"Time", L"Week"}) {
            world_.Store.Texts[name] = each.Stored;
        }
        Open(MakeFile(L"a.txt"));
        EXPECT_EQ(SelectedIndex(IDC_DATE_FORMATS), each.Date);
        EXPECT_EQ(SelectedIndex(IDC_TIME_FORMATS), each.Time);
        EXPECT_EQ(SelectedIndex(IDC_WEEKDAY_FORMATS), each.Week);
    }
}

TEST_F(InputDialogTest, AFormatThatIsNotInItsListIsNeitherInsertedNorOverwritten) {
    const std::pair<const wchar_t*, int> formats[] = {
        {L"DateTime", IDC_INSERT_DATE}, {L"Time", IDC_INSERT_TIME}, {L"Week", IDC_INSERT_WEEKDAY}};
    for (const auto& format : formats) {
        world_.Store.Texts[format.first] = L"%x";
    }
    Open(MakeFile(L"a.txt"));
    for (const auto& format : formats) {
        Click(format.second);
    }
    EXPECT_EQ(Names(), L"a|txt");
    Click(IDOK);
    for (const auto& format : formats) {
        EXPECT_EQ(world_.Store.Texts[format.first], L"%x");
    }
    EXPECT_EQ(world_.Store.Writes, (ValueNames{L"RenameUndo", L"FileNameSep", L"DirNameSep", L"DateType"}));
}

TEST_F(InputDialogTest, OkStoresTheOptionsInTheirOrder) {
    Open(MakeFile(L"a.txt"));
    Click(IDC_SPLIT_FILES);
    Click(IDC_SPLIT_FOLDERS);
    Select(IDC_DATE_FORMATS, 2);
    Select(IDC_TIME_FORMATS, 4);
    Select(IDC_WEEKDAY_FORMATS, 1);
    Select(IDC_DATE_SOURCES, 3);
    EXPECT_TRUE(world_.Store.Writes.empty());
    Click(IDOK);
    EXPECT_EQ(world_.Store.Writes, (ValueNames{L"RenameUndo", L"FileNameSep", L"DirNameSep", L"DateTime",
                                               L"Time", L"Week", L"DateType"}));
    EXPECT_EQ(world_.Store.Numbers,
              (std::map<std::wstring, std::uint32_t>{
                  {L"RenameUndo", 0}, {L"FileNameSep", 0}, {L"DirNameSep", 1}, {L"DateType", 3}}));
    EXPECT_EQ(world_.Store.Texts[L"DateTime"], L"%Y年%m月%d日");
    EXPECT_EQ(world_.Store.Texts[L"Time"], L"%I%M%S");
    EXPECT_EQ(world_.Store.Texts[L"Week"], L"%A");
}

TEST_F(InputDialogTest, WhatOkStoredIsThereTheNextTime) {
    const std::wstring path = MakeFile(L"a.txt");
    Open(path);
    Click(IDC_SPLIT_FILES);
    Select(IDC_TIME_FORMATS, 5);
    Select(IDC_DATE_SOURCES, 2);
    Click(IDOK);
    Open(path);
    EXPECT_EQ(Names(), L"a.txt|");
    EXPECT_EQ(SelectedIndex(IDC_TIME_FORMATS), 5);
    EXPECT_EQ(SelectedIndex(IDC_DATE_SOURCES), 2);
}

TEST_F(InputDialogTest, OkWithShiftRenamesAndStoresNothing) {
    Open(MakeFile(L"a.txt"));
    Click(IDC_SPLIT_FOLDERS);
    SetText(IDC_NEW_NAME, L"b");
    test::HoldKeys({VK_SHIFT});
    Click(IDOK);
    EXPECT_EQ(Result(), L"b.txt");
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(world_.Store.Writes.empty());
}

TEST_F(InputDialogTest, CancelGivesNoResultAndStoresNothing) {
    Open(MakeFile(L"a.txt"));
    SetText(IDC_NEW_NAME, L"b");
    Click(IDCANCEL);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Result(), L"");
    EXPECT_TRUE(world_.Store.Writes.empty());
}

TEST_F(InputDialogTest, TheButtonsGiveTheEndCodes) {
    for (const int button : {IDOK, IDCANCEL}) {
        test::SelfAnswering<CDlgInput> dialog(world_.Services(), nullptr, L"", MakeFile(L"a.txt"));
        dialog.Button = button;
        EXPECT_EQ(dialog.DoModal(), button);
    }
}

TEST_F(InputDialogTest, EachShowingStartsFromTheItemAgain) {
    const std::wstring path = MakeFile(L"a.txt");
    Open(path);
    SetText(IDC_NEW_NAME, L"typed");
    Click(IDOK);
    dialog_->DestroyWindow();
    ASSERT_TRUE(dialog_->Create(nullptr));
    EXPECT_EQ(Names(), L"a|txt");
}

TEST_F(InputDialogTest, AStoredDateSourceOutsideTheListSelectsNothingAndStays) {
    world_.Store.Numbers[L"DateType"] = 9;
    Open(MakeFile(L"a.txt"));
    EXPECT_EQ(SelectedIndex(IDC_DATE_SOURCES), -1);
    Click(IDC_INSERT_DATE);
    EXPECT_EQ(Text(IDC_NEW_NAME), L"2024-05-01");
    Click(IDOK);
    EXPECT_EQ(world_.Store.Numbers[L"DateType"], 9U);
}

TEST_F(InputDialogTest, AnyStoredNumberButZeroSplits) {
    world_.Store.Numbers[L"FileNameSep"] = 0xFFFFFFFF;
    Open(MakeFile(L"a.txt"));
    EXPECT_EQ(Names(), L"a|txt");
    Click(IDOK);
    EXPECT_EQ(world_.Store.Numbers[L"FileNameSep"], 1U);
}

TEST_F(InputDialogTest, TheUndoBoxIsThereButHiddenAndItsStoredValueIsAlwaysZero) {
    world_.Store.Numbers[L"RenameUndo"] = 1;
    Open(MakeFile(L"a.txt"));
    EXPECT_EQ(Text(IDC_RENAME_UNDO), L"元に戻すを有効にする\n（速度が遅く、メモリを多く消費します）");
    EXPECT_FALSE(IsShown(IDC_RENAME_UNDO));
    EXPECT_EQ(IsDlgButtonChecked(Window(), IDC_RENAME_UNDO), BST_UNCHECKED);
    Click(IDOK);
    EXPECT_EQ(world_.Store.Numbers[L"RenameUndo"], 0U);
}

TEST_F(InputDialogTest, AWholePathTooLongForTheFieldDoesNotLockTheSplitCheckBox) {
    std::wstring folder = folder_.LongFolder();
    while (folder.size() < 600) {
        folder += L"\\" + std::wstring(100, L'd');
    }
    test::MakeFolders(folder);
    test::WriteBytes(folder + L"\\.profile", {});
    Open(folder + L"\\.profile");
    EXPECT_EQ(Text(IDC_NEW_NAME), folder + L"\\.profile");
    Click(IDC_SPLIT_FILES);
    EXPECT_EQ(Names(), L".profile|");
}

}  // namespace
}  // namespace ferry::dialogs
