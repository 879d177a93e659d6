// How a list shows a path that may be too wide for it.
#include "controls/path_display.h"

#include <windows.h>
#include <gtest/gtest.h>

#include "windows/support_win32.h"

namespace ferry::controls {
namespace {

const std::wstring kPath = L"C:\\some folder\\another folder\\the last one\\";

class PathDisplayTest : public testing::Test {
protected:
    PathDisplayTest() {
        SendMessageW(control_.Get(), WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)),
                     0);
    }

    /// The width of `text` in the control's font.
    int WidthOf(const std::wstring& text) const {
        const HDC context = GetDC(control_.Get());
        const HGDIOBJ before = SelectObject(context, GetStockObject(DEFAULT_GUI_FONT));
        SIZE size{};
        GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &size);
        SelectObject(context, before);
        ReleaseDC(control_.Get(), context);
        return size.cx;
    }

    /// `path` as it is shown in a client area of this width.
    std::wstring ShownIn(int width, const std::wstring& path) const {
        SetWindowPos(control_.Get(), nullptr, 0, 0, width, 20, SWP_NOMOVE | SWP_NOZORDER);
        return PathDisplay(control_.Get()).Shown(path);
    }

    test::TestWindow control_{
        CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 10, 20, nullptr, nullptr, nullptr, nullptr)};
};

TEST_F(PathDisplayTest, APathThatJustFitsIsShownWhole) {
    EXPECT_EQ(ShownIn(WidthOf(kPath), kPath), kPath);
    EXPECT_EQ(ShownIn(WidthOf(kPath) + 1, kPath), kPath);
}

TEST_F(PathDisplayTest, APathThatIsWiderByOneDotIsShortened) {
    const std::wstring shown = ShownIn(WidthOf(kPath) - 1, kPath);
    EXPECT_NE(shown, kPath);
    EXPECT_TRUE(shown.starts_with(L"C:\\"));
    EXPECT_NE(shown.find(L"..."), std::wstring::npos);
    EXPECT_TRUE(shown.ends_with(L"the last one\\"));
}

TEST_F(PathDisplayTest, AShortenedPathFits) {
    for (int width = WidthOf(kPath) - 1; width > WidthOf(L"...\\the last one\\"); --width) {
        EXPECT_LE(WidthOf(ShownIn(width, kPath)), width);
    }
}

TEST_F(PathDisplayTest, AnAmpersandIsACharacterLikeAnyOther) {
    const std::wstring path = L"C:\\some folder\\another folder\\R&D";
    EXPECT_EQ(ShownIn(WidthOf(path), path), path);
    EXPECT_TRUE(ShownIn(WidthOf(path) - 1, path).ends_with(L"\\R&D"));
}

}  // namespace
}  // namespace ferry::controls
