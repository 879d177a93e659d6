// The templates of a run's dialogs, number by number.
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
