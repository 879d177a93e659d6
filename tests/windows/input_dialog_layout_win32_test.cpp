// The rename dialog's template: controls, places, texts, lists, and the way of the keyboard.
#include <cstdlib>
#include <set>

#include "windows/dialog_template_win32.h"
#include "windows/input_dialog_fixture_win32.h"

namespace ferry::dialogs {
namespace {

struct Place {
    int Id;
    int X, Y, Width, Height;
    const wchar_t* Text;
};

// The height of a drop-down list's template is that of the open list; a place has 0 there.
constexpr int kListHeight = 177;

// In window order, which is the reading order.
constexpr Place kPlaces[] = {
    {1353, 8, 7, 190, 8, L"変更する名前を入力してください。"},
    {1352, 8, 18, 194, 8, L"複数の拡張子を持つ場合には、名前として入力してください。"},
    {1901, 8, 33, 49, 8, L"現在の名前"},
    {1000, 8, 43, 243, 13, L"a.txt"},
    {1900, 8, 59, 45, 8, L"新しい名前(&F)"},
    {1001, 8, 69, 159, 13, L"a"},
    {1350, 169, 59, 33, 8, L"拡張子(&E)"},
    {1002, 170, 69, 81, 13, L"txt"},
    {1140, 7, 92, 241, 136, L"編集機能"},
    {1100, 16, 111, 72, 14, L"名前に日付を挿入(&D)"},
    {1141, 111, 113, 48, 8, L"日付の書式(&T)"},
    {1170, 160, 111, 73, 0, L"%Y-%m-%d"},
    {1102, 16, 129, 72, 14, L"名前に時間を挿入(&S)"},
    {1142, 111, 131, 48, 8, L"時間の書式(&R)"},
    {1171, 160, 129, 73, 0, L"%H-%M-%S"},
    {1108, 16, 146, 72, 14, L"名前に曜日を挿入(&W)"},
    {1144, 111, 149, 48, 8, L"曜日の書式(&Y)"},
    {1173, 160, 147, 73, 0, L"%a"},
    {1143, 88, 166, 71, 8, L"日時挿入の取得先(&U)"},
    {1172, 160, 164, 73, 0, L"現在日時"},
    {1101, 16, 185, 72, 14, L"コピー ～の除去(&P)"},
    {1105, 91, 185, 72, 14, L"先頭の数字を除去(&M)"},
    {1106, 165, 185, 76, 14, L"末尾の数字を除去(&L)"},
    {1103, 16, 203, 72, 14, L"大文字変換(&G)"},
    {1104, 91, 203, 72, 14, L"小文字変換(&H)"},
    {1107, 165, 203, 76, 14, L"単語の先頭を大文字(&J)"},
    {1032, 105, 230, 146, 20, L"元に戻すを有効にする\n（速度が遅く、メモリを多く消費します）"},
    {1030, 7, 240, 130, 10, L"ファイルの場合に拡張子分割を行う(&X)"},
    {1031, 7, 250, 130, 10, L"フォルダの場合に拡張子分割を行う(&Z)"},
    {1, 139, 246, 55, 14, L"リネーム"},
    {2, 201, 246, 50, 14, L"Cancel"},
};

class InputDialogLayout : public InputDialogTest {
protected:
    InputDialogLayout() { Open(MakeFile(L"a.txt")); }

    void ExpectNear(int actual, int expected) { EXPECT_LE(std::abs(actual - expected), 1); }

    std::vector<std::wstring> ItemsOf(int id) const {
        std::vector<std::wstring> items;
        const LRESULT count = SendMessageW(Control(id), CB_GETCOUNT, 0, 0);
        for (LRESULT index = 0; index < count; ++index) {
            wchar_t item[64] = {};
            SendMessageW(Control(id), CB_GETLBTEXT, static_cast<WPARAM>(index),
                         reinterpret_cast<LPARAM>(item));
            items.emplace_back(item);
        }
        return items;
    }

    /// The controls that Tab reaches from the new name on, round to it again.
    std::vector<int> TabStops() const {
        std::vector<int> ids;
        HWND control = Control(IDC_NEW_NAME);
        do {
            ids.push_back(GetDlgCtrlID(control));
            control = GetNextDlgTabItem(Window(), control, FALSE);
        } while (control != Control(IDC_NEW_NAME));
        return ids;
    }
};

TEST_F(InputDialogLayout, EveryControlStandsAtItsPlaceWithItsText) {
    for (const Place& place : kPlaces) {
        SCOPED_TRACE(place.Id);
        ASSERT_NE(Control(place.Id), nullptr);
        RECT wanted{place.X, place.Y, place.X + place.Width, place.Y + place.Height};
        MapDialogRect(Window(), &wanted);
        const RECT actual = RectOf(place.Id);
        ExpectNear(actual.left, wanted.left);
        ExpectNear(actual.top, wanted.top);
        ExpectNear(actual.right, wanted.right);
        if (place.Height != 0) {
            ExpectNear(actual.bottom, wanted.bottom);
        }
        EXPECT_EQ(Text(place.Id), place.Text);
    }
}

/// What the template says of a control of this number beside its place and its text.
DWORD StyleOf(int id) {
    constexpr DWORD kShown = WS_CHILD | WS_VISIBLE;
    constexpr DWORD kField = kShown | WS_BORDER | ES_AUTOHSCROLL;
    switch (id) {
        case 1000:
            return kField | ES_READONLY;
        case 1001:
        case 1002:
            return kField | WS_TABSTOP;
        case 1140:
            return kShown | BS_GROUPBOX;
        case 1170:
        case 1171:
        case 1172:
        case 1173:
            return kShown | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST;
        case 1032:
            return WS_CHILD | WS_TABSTOP | BS_AUTOCHECKBOX | BS_MULTILINE;
        case 1030:
        case 1031:
            return kShown | WS_TABSTOP | BS_AUTOCHECKBOX;
        case 1:
            return kShown | WS_TABSTOP | BS_DEFPUSHBUTTON;
        default:
            return id <= 2 || (id >= 1100 && id <= 1108) ? kShown | WS_TABSTOP | BS_PUSHBUTTON
                                                         : kShown | SS_LEFT;
    }
}

TEST(InputDialogTemplate, HasEveryNumberAndEveryStyle) {
    const test::DialogTemplate dialog = test::ReadDialogTemplate(133);
    EXPECT_EQ(dialog.X, 0);
    EXPECT_EQ(dialog.Y, 0);
    EXPECT_EQ(dialog.Width, 258);
    EXPECT_EQ(dialog.Height, 267);
    EXPECT_EQ(dialog.Style, DWORD{DS_SETFONT | DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU});
    EXPECT_EQ(dialog.Font, L"MS Shell Dlg 9 400 0 1");
    ASSERT_EQ(dialog.Items.size(), std::size(kPlaces));
    for (std::size_t index = 0; index < std::size(kPlaces); ++index) {
        const Place& place = kPlaces[index];
        SCOPED_TRACE(place.Id);
        test::TemplateItem expected = dialog.Items[index];
        expected.Id = place.Id;
        expected.X = place.X;
        expected.Y = place.Y;
        expected.Width = place.Width;
        expected.Height = place.Height == 0 ? kListHeight : place.Height;
        expected.Style = StyleOf(place.Id);
        expected.ExtendedStyle = 0;
        EXPECT_EQ(dialog.Items[index], expected);
    }
}

TEST_F(InputDialogLayout, TheControlsStandInReadingOrderAndThereAreNoOthers) {
    HWND control = GetWindow(Window(), GW_CHILD);
    for (const Place& place : kPlaces) {
        ASSERT_EQ(GetDlgCtrlID(control), place.Id);
        control = GetWindow(control, GW_HWNDNEXT);
    }
    EXPECT_EQ(control, nullptr);
}

TEST_F(InputDialogLayout, TheDialogHasItsSizeAndItsOwnTitleUntilACaptionComes) {
    RECT wanted{0, 0, 258, 267};
    MapDialogRect(Window(), &wanted);
    RECT client{};
    GetClientRect(Window(), &client);
    ExpectNear(client.right, wanted.right);
    ExpectNear(client.bottom, wanted.bottom);
    const test::TestWindow bare(CreateDialogParamW(
        GetModuleHandleW(nullptr), MAKEINTRESOURCEW(133), nullptr,
        [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0));
    EXPECT_EQ(test::TextOfWindow(bare.Get()), L"名前の変更");
}

TEST_F(InputDialogLayout, TheListsHaveTheirItemsInOrder) {
    using Items = std::vector<std::wstring>;
    EXPECT_EQ(ItemsOf(1170),
              (Items{L"%Y-%m-%d", L"%Y%m%d", L"%Y年%m月%d日", L"%y-%m-%d", L"%y%m%d", L"%y年%m月%d日"}));
    EXPECT_EQ(ItemsOf(1171),
              (Items{L"%H-%M-%S", L"%H%M%S", L"%H時%M分%S秒", L"%I-%M-%S", L"%I%M%S", L"%p%I時%M分%S秒"}));
    EXPECT_EQ(ItemsOf(1173), (Items{L"%a", L"%A", L"%U", L"%w", L"%W"}));
    EXPECT_EQ(ItemsOf(1172), (Items{L"現在日時", L"作成日時", L"更新日時", L"アクセス日時"}));
}

TEST_F(InputDialogLayout, TabGoesThroughEveryControlInReadingOrder) {
    EXPECT_EQ(TabStops(), (std::vector<int>{1001, 1002, 1100, 1170, 1102, 1171, 1108, 1173, 1172, 1101, 1105,
                                            1106, 1103, 1104, 1107, 1030, 1031, 1, 2}));
}

TEST_F(InputDialogLayout, TabPassesAHiddenExtensionOver) {
    Click(IDC_SPLIT_FILES);
    EXPECT_EQ(TabStops()[1], 1100);
}

TEST_F(InputDialogLayout, EveryMnemonicStandsOnce) {
    std::set<wchar_t> seen;
    for (const Place& place : kPlaces) {
        const std::wstring text = place.Text;
        if (const std::size_t at = text.find(L'&'); at != std::wstring::npos) {
            EXPECT_TRUE(seen.insert(text.at(at + 1)).second) << static_cast<char>(text.at(at + 1));
        }
    }
    EXPECT_EQ(seen.size(), 17U);
}

TEST_F(InputDialogLayout, EnterIsOkAndEscapeIsCancelFromTheNameField) {
    for (const auto& [key, expected] : {std::pair{VK_RETURN, L"b.txt"}, std::pair{VK_ESCAPE, L""}}) {
        Open(MakeFile(L"a.txt"));
        SetText(IDC_NEW_NAME, L"b");
        MSG message{Control(IDC_NEW_NAME), WM_KEYDOWN, static_cast<WPARAM>(key), 1, 0, {}};
        EXPECT_TRUE(dialog_->HandleDialogMessage(message));
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(Result(), expected);
    }
}

}  // namespace
}  // namespace ferry::dialogs
