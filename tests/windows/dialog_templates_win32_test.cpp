// The templates of the confirmation dialog and of a run's dialogs, number by number.
#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include "windows/dialog_template_win32.h"

namespace ferry::dialogs {
namespace {

constexpr DWORD kShown = WS_CHILD | WS_VISIBLE;
constexpr DWORD kLabel = kShown | SS_LEFT;
constexpr DWORD kButton = kShown | WS_TABSTOP;
constexpr DWORD kRadio = kShown | BS_AUTORADIOBUTTON;

void ExpectItems(const std::vector<test::TemplateItem>& actual,
                 const std::vector<test::TemplateItem>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t index = 0; index < expected.size(); ++index)
        EXPECT_EQ(actual[index], expected[index]);
}

TEST(ConfirmationDialogTemplate, HasItsSizeItsTitleAndItsFrame) {
    const test::DialogTemplate dialog = test::ReadDialogTemplate(102);
    EXPECT_EQ(dialog.Title, L"ファイルの操作の確認");
    EXPECT_EQ(dialog.Width, 355);
    EXPECT_EQ(dialog.Height, 245);
    EXPECT_EQ(dialog.Style, DWORD{DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU});
    EXPECT_EQ(dialog.ExtendedStyle, 0U);
    EXPECT_EQ(dialog.Font, L"MS Shell Dlg 9 400 0 1");
}

constexpr DWORD kRadioGroup = kRadio | WS_GROUP | WS_TABSTOP;
constexpr DWORD kCheck = kButton | BS_AUTOCHECKBOX | WS_GROUP;
constexpr DWORD kList =
    kButton | WS_BORDER | LVS_LIST | LVS_SINGLESEL | LVS_SHAREIMAGELISTS | LVS_SHOWSELALWAYS | LVS_OWNERDATA;

TEST(ConfirmationDialogTemplate, HasTheListTheDestinationAndTheOtherTabs) {
    const std::vector<test::TemplateItem> items = test::ReadDialogTemplate(102).Items;
    ASSERT_EQ(items.size(), 31U);
    ExpectItems({items.begin(), items.begin() + 10},
                {{1350, L"static", 58, 7, 136, 8, L"(9999999999)", kLabel, 0},
                 {1903, L"static", 7, 7, 49, 8, L"選択したファイル", kLabel, 0},
                 {1200, L"syslistview32", 7, 17, 191, 90, L"", kList, 0},
                 {1900, L"static", 8, 110, 78, 8, L"ファイルの出力先(&Z)", kLabel, 0},
                 {1410, L"comboboxex32", 7, 121, 176, 164, L"",
                  kButton | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL, 0},
                 {1100, L"button", 184, 122, 14, 12, L"...", kButton | BS_PUSHBUTTON, 0},
                 {1102, L"button", 50, 135, 80, 14, L"他のタブのフォルダー(&T)", kButton | BS_PUSHBUTTON, 0},
                 {1101, L"button", 133, 135, 65, 14, L"登録フォルダー(&X)", kButton | BS_PUSHBUTTON, 0},
                 {1904, L"static", 7, 153, 0, 0, L"", kLabel, 0},
                 {1201, L"listbox", 7, 153, 191, 85, L"",
                  kButton | WS_BORDER | WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT, 0}});
}

TEST(ConfirmationDialogTemplate, HasBothModesThePoliciesAndTheButtons) {
    const std::vector<test::TemplateItem> items = test::ReadDialogTemplate(102).Items;
    ASSERT_EQ(items.size(), 31U);
    ExpectItems(
        {items.begin() + 10, items.end()},
        {{1901, L"static", 214, 9, 33, 8, L"操作モード", kLabel, 0},
         {1224, L"button", 222, 19, 50, 10, L"コピー(&P)", kRadioGroup, 0},
         {1225, L"button", 277, 19, 50, 10, L"移動(&M)", kRadio, 0},
         {1902, L"static", 214, 33, 33, 8, L"動作モード", kLabel, 0},
         {1550, L"button", 222, 43, 118, 10, L"一括処理(アンドゥ可能)(&E)", kRadioGroup, 0},
         {1551, L"button", 222, 53, 118, 10, L"個別判定(&K)", kRadio, 0},
         {1031, L"button", 215, 70, 125, 10, L"処理開始時にファイルの出力先を開く(&J)", kCheck, 0},
         {1030, L"button", 218, 95, 82, 10, L"問い合わせしない(&A)", kCheck, 0},
         {1140, L"button", 210, 86, 120, 106, L"同じ名前のファイルの対処方法",
          kShown | BS_GROUPBOX | WS_GROUP, 0},
         {1220, L"button", 218, 98, 108, 10, L"新しい時刻のみ上書きする(&N)", kRadioGroup, 0},
         {1227, L"button", 218, 109, 108, 10, L"古い時刻のみ上書きする(&L)", kRadio, 0},
         {1222, L"button", 218, 121, 108, 10, L"同じ名前はコピーしない(&F)", kRadio, 0},
         {1221, L"button", 218, 132, 108, 10, L"無条件で上書き(&U)", kRadio, 0},
         {1223, L"button", 218, 144, 108, 10, L"名前を変更する(&R)", kRadio, 0},
         {1228, L"button", 218, 155, 108, 10, L"元ファイルの名前を変更(&B)", kRadio, 0},
         {1229, L"button", 218, 167, 108, 10, L"自動で名前を変更する(&W)", kRadio, 0},
         {1230, L"button", 218, 178, 108, 10, L"逐次対処(&D)", kRadio, 0},
         {1141, L"static", 217, 200, 52, 8, L"時刻比較の精度", kLabel, 0},
         {1170, L"combobox", 271, 198, 77, 54, L"", kButton | WS_VSCROLL | CBS_DROPDOWNLIST, 0},
         {1, L"button", 264, 224, 40, 14, L"開始", kButton | WS_GROUP | WS_DISABLED | BS_DEFPUSHBUTTON, 0},
         {2, L"button", 308, 224, 40, 14, L"Cancel", kButton | BS_PUSHBUTTON, 0}});
}

TEST(ProgressDialogTemplate, HasItsSizeItsTitleAndItsFrame) {
    const test::DialogTemplate dialog = test::ReadDialogTemplate(131);
    EXPECT_EQ(dialog.Title, L"進捗状況");
    EXPECT_EQ(dialog.X, 0);
    EXPECT_EQ(dialog.Y, 0);
    EXPECT_EQ(dialog.Width, 175);
    EXPECT_EQ(dialog.Height, 75);
    EXPECT_EQ(dialog.Style,
              DWORD{DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_VISIBLE | WS_CAPTION | WS_SYSMENU});
    EXPECT_EQ(dialog.ExtendedStyle, 0U);
    EXPECT_EQ(dialog.Font, L"MS Shell Dlg 9 400 0 1");
}

TEST(ProgressDialogTemplate, HasTwoLinesABarAndAButton) {
    ExpectItems(test::ReadDialogTemplate(131).Items,
                {{1350, L"static", 7, 7, 161, 8, L"xxx", kLabel | SS_NOPREFIX, 0},
                 {1352, L"static", 7, 19, 161, 8, L"xxx", kLabel | SS_NOPREFIX | SS_ENDELLIPSIS, 0},
                 {1290, L"msctls_progress32", 10, 36, 155, 6, L"", kShown | WS_BORDER, 0},
                 {2, L"button", 118, 54, 50, 14, L"中止(&C)", kButton | BS_PUSHBUTTON, 0}});
}

TEST(CollisionDialogTemplate, HasItsSizeItsTitleAndItsFrame) {
    const test::DialogTemplate dialog = test::ReadDialogTemplate(134);
    EXPECT_EQ(dialog.Title, L"ファイル処理の確認");
    EXPECT_EQ(dialog.X, 0);
    EXPECT_EQ(dialog.Y, 0);
    EXPECT_EQ(dialog.Width, 237);
    EXPECT_EQ(dialog.Height, 139);
    EXPECT_EQ(dialog.Style, DWORD{DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU});
    EXPECT_EQ(dialog.ExtendedStyle, 0U);
    EXPECT_EQ(dialog.Font, L"MS Shell Dlg 9 400 0 1");
}

TEST(CollisionDialogTemplate, HasTheNameTheSevenChoicesInTheirGroupAndFourButtons) {
    ExpectItems(
        test::ReadDialogTemplate(134).Items,
        {{1901, L"static", 7, 7, 0, 0, L"ファイル名", kLabel, 0},
         {1000, L"edit", 7, 7, 168, 14, L"", kShown | WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL | ES_READONLY,
          0},
         {1900, L"button", 7, 29, 168, 102, L"同名アイテムが存在しています。処理を選択してください。",
          kShown | BS_GROUPBOX, 0},
         {1220, L"button", 15, 43, 152, 10, L"新しい時刻のみ上書きする", kRadio | WS_GROUP | WS_TABSTOP, 0},
         {1221, L"button", 15, 55, 152, 10, L"古い時刻のみ上書きする", kRadio, 0},
         {1222, L"button", 15, 67, 152, 10, L"同じ名前はコピーしない", kRadio, 0},
         {1223, L"button", 15, 79, 152, 10, L"無条件で上書き", kRadio, 0},
         {1224, L"button", 15, 91, 152, 10, L"名前を変更する", kRadio, 0},
         {1225, L"button", 15, 103, 152, 10, L"元ファイルの名前を変更", kRadio, 0},
         {1226, L"button", 15, 115, 152, 10, L"自動で名前を変更する", kRadio, 0},
         {1, L"button", 180, 7, 50, 14, L"OK", kButton | WS_GROUP | BS_DEFPUSHBUTTON, 0},
         {2, L"button", 180, 25, 50, 14, L"Cancel", kButton | BS_PUSHBUTTON, 0},
         {5, L"button", 180, 43, 50, 14, L"以降全て(&O)", kButton | BS_PUSHBUTTON, 0},
         {7, L"button", 180, 61, 50, 14, L"全て中止(&A)", kButton | BS_PUSHBUTTON, 0}});
}

}  // namespace
}  // namespace ferry::dialogs
