// How wide texts are in dialogs, by estimate.
#include "texts/text_width.h"

#include <gtest/gtest.h>

namespace ferry::texts {
namespace {

ControlSource Room(Shape looks, int width, int height = 8) {
    ControlSource control;
    control.Looks = looks;
    control.Width = width;
    control.Height = height;
    return control;
}

TEST(TextWidth, IsAboutFourUnitsForALatinLetterAndSevenForAnIdeograph) {
    std::wstring letters;
    for (wchar_t letter = L'a'; letter <= L'z'; ++letter) {
        letters += letter;
        letters += static_cast<wchar_t>(letter - L'a' + L'A');
    }
    EXPECT_NEAR(TextWidth(letters, true), 52 * 40, 52 * 2);
    EXPECT_EQ(TextWidth(L"漢字", true), 2 * 68);
    EXPECT_LT(TextWidth(L"かな", true), TextWidth(L"漢字", true));
    EXPECT_LT(TextWidth(L"カナ", true), TextWidth(L"漢字", true));
    EXPECT_LT(TextWidth(L"ｶﾅ", true), TextWidth(L"カナ", true));
    EXPECT_LT(TextWidth(L"。、", true), TextWidth(L"かな", true));
    EXPECT_GT(TextWidth(L"é", true), 40);
}

TEST(TextWidth, LeavesOutTheAmpersandBeforeALetter) {
    EXPECT_EQ(TextWidth(L"&Copy", true), TextWidth(L"Copy", true));
    EXPECT_EQ(TextWidth(L"a && b", true), TextWidth(L"a & b", false));
    EXPECT_GT(TextWidth(L"&Copy", false), TextWidth(L"Copy", false));
}

TEST(WidthBeyond, LeavesRoomForWhatAControlDrawsAroundItsText) {
    const std::wstring text(10, L'n');  // 41 units wide
    const std::pair<Shape, int> needed[] = {
        {Shape::Label, 41}, {Shape::Button, 47}, {Shape::Choice, 51}, {Shape::Frame, 49}, {Shape::List, 52}};
    for (const auto& [looks, width] : needed) {
        SCOPED_TRACE(width);
        EXPECT_EQ(WidthBeyond(text, Room(looks, width)), 0);
        EXPECT_EQ(WidthBeyond(text, Room(looks, width - 1)), 10);
    }
    EXPECT_EQ(WidthBeyond(text, Room(Shape::NotMeasured, 1)), 0);
}

TEST(WidthBeyond, LetsALabelGoOnInItsNextLine) {
    const std::wstring text(20, L'n');
    EXPECT_GT(WidthBeyond(text, Room(Shape::Label, 41, 8)), 0);
    EXPECT_EQ(WidthBeyond(text, Room(Shape::Label, 41, 16)), 0);
    EXPECT_GT(WidthBeyond(text + L"\n" + text, Room(Shape::Label, 41, 24)), 0);
    EXPECT_GT(WidthBeyond(text, Room(Shape::Button, 47, 16)), 0);
}

TEST(TitleWidthBeyond, LeavesRoomForTheCloseBox) {
    const std::wstring title(10, L'n');
    EXPECT_EQ(TitleWidthBeyond(title, 61), 0);
    EXPECT_EQ(TitleWidthBeyond(title, 60), 10);
    EXPECT_EQ(TitleWidthBeyond(L"", 10), 0);
}

}  // namespace
}  // namespace ferry::texts
