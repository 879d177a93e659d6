// The list of folders, and how far it scrolls.
#include "controls/folder_list.h"

#include <windows.h>
#include <gtest/gtest.h>

#include "controls/path_display.h"
#include "windows/support_win32.h"

namespace ferry::controls {
namespace {

const std::wstring kLong = L"C:\\some folder\\another folder\\a folder below it\\the last one";

class FolderListTest : public testing::Test {
protected:
    FolderListTest() {
        EXPECT_TRUE(list_.Attach(window_.Get()));
        SetFont(static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)));
    }

    void SetFont(HFONT font) const { Ask(WM_SETFONT, reinterpret_cast<WPARAM>(font)); }

    void Show(const std::vector<std::wstring>& folders) const {
        base::TextList list;
        for (const std::wstring& folder : folders) {
            list.Append(folder);
        }
        list_.Show(list);
    }

    LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(window_.Get(), message, wParam, lParam);
    }

    LONG WidthOf(const std::wstring& text) const { return PathDisplay(window_.Get()).WidthOf(text); }

    LONG Extent() const { return static_cast<LONG>(Ask(LB_GETHORIZONTALEXTENT)); }

    test::TestWindow window_{CreateWindowExW(0, L"ListBox", L"", WS_POPUP | WS_HSCROLL | LBS_NOINTEGRALHEIGHT,
                                             0, 0, 100, 80, nullptr, nullptr, nullptr, nullptr)};
    CFolderList list_;
};

TEST_F(FolderListTest, ShowsTheFoldersInTheirOrderAndNoOthers) {
    Show({L"C:\\old"});
    Show({L"D:\\z", L"D:\\a"});
    ASSERT_EQ(Ask(LB_GETCOUNT), 2);
    wchar_t text[16] = {};
    Ask(LB_GETTEXT, 0, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(text, L"D:\\z");
    Ask(LB_GETTEXT, 1, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(text, L"D:\\a");
}

TEST_F(FolderListTest, ScrollsAsFarAsTheLongestFolderReaches) {
    Show({L"C:\\a", kLong, L"C:\\b"});
    EXPECT_GT(Extent(), WidthOf(kLong));
    EXPECT_LT(Extent(), WidthOf(kLong) + 20);
    Show({L"C:\\a"});
    EXPECT_LT(Extent(), WidthOf(kLong));
}

TEST_F(FolderListTest, ScrollsFartherWhenTheScalingMakesItsTextsLarger) {
    Show({kLong});
    const LONG before = Extent();
    LOGFONTW description{};
    ASSERT_NE(GetObjectW(GetStockObject(DEFAULT_GUI_FONT), sizeof(description), &description), 0);
    description.lfHeight *= 2;
    const HFONT larger = CreateFontIndirectW(&description);
    SetFont(larger);
    Ask(WM_DPICHANGED_AFTERPARENT);
    EXPECT_GT(Extent(), before + before / 2);
    EXPECT_GT(Extent(), WidthOf(kLong));
    SetFont(static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)));
    DeleteObject(larger);
}

}  // namespace
}  // namespace ferry::controls
