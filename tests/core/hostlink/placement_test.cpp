// Where the dialog goes, and what each window mode asks for.
#include "hostlink/placement.h"

#include <gtest/gtest.h>

#include <climits>

namespace ferry::hostlink {
namespace {

constexpr Box kWork = {0, 0, 1920, 1040};

void ExpectBox(const Box& box, int left, int top, int right, int bottom) {
    EXPECT_EQ(box.Left, left);
    EXPECT_EQ(box.Top, top);
    EXPECT_EQ(box.Right, right);
    EXPECT_EQ(box.Bottom, bottom);
}

TEST(CentredOverHost, PutsTheWindowInTheMiddleOfTheHost) {
    ExpectBox(CentredOverHost({100, 100, 900, 700}, {0, 0, 400, 200}, kWork), 300, 300, 700, 500);
}

TEST(CentredOverHost, KeepsTheSizeWhereverTheWindowWas) {
    ExpectBox(CentredOverHost({100, 100, 900, 700}, {-5000, 77, -4600, 277}, kWork), 300, 300, 700, 500);
}

TEST(CentredOverHost, DividesTowardZero) {
    ExpectBox(CentredOverHost({100, 100, 201, 201}, {0, 0, 50, 50}, kWork), 125, 125, 175, 175);
    ExpectBox(CentredOverHost({500, 500, 550, 550}, {0, 0, 101, 101}, kWork), 475, 475, 576, 576);
}

TEST(CentredOverHost, PullsTheRightAndBottomEdgesIntoTheWorkArea) {
    ExpectBox(CentredOverHost({1700, 900, 1920, 1040}, {0, 0, 400, 300}, kWork), 1520, 740, 1920, 1040);
}

TEST(CentredOverHost, PushesTheLeftAndTopEdgesIntoTheWorkArea) {
    ExpectBox(CentredOverHost({-300, -200, 100, 100}, {0, 0, 400, 300}, kWork), 0, 0, 400, 300);
    ExpectBox(CentredOverHost({-1900, 20, -1800, 60}, {0, 0, 400, 300}, {-1920, 10, 0, 1040}), -1920, 10,
              -1520, 310);
}

TEST(CentredOverHost, LetsTheLeftAndTopEdgesWinOverAWindowThatIsTooLarge) {
    ExpectBox(CentredOverHost({0, 0, 1920, 1040}, {0, 0, 3000, 2000}, {10, 20, 1920, 1040}), 10, 20, 3010,
              2020);
}

TEST(CentredOverHost, LeavesAWindowThatTouchesTheEdges) {
    ExpectBox(CentredOverHost({1520, 740, 1920, 1040}, {0, 0, 400, 300}, kWork), 1520, 740, 1920, 1040);
}

TEST(CentredOverHost, BearsAHostAtTheEndsOfTheCoordinates) {
    constexpr Box kAround = {-1000, -1000, 1000, 1000};
    ExpectBox(CentredOverHost({INT_MIN, INT_MIN, INT_MAX, INT_MAX}, {0, 0, 401, 301}, kAround), -201, -151,
              200, 150);
}

TEST(RuleOfWindowMode, TellsTheKnownModesApart) {
    struct Case {
        int Mode;
        bool ToolWindow, Topmost, RaiseOnce;
    };
    const Case cases[] = {
        {1, false, true, false},  {2, true, true, false},        {3, false, false, false},
        {4, true, false, true},   {0, false, false, true},       {5, false, false, true},
        {-1, false, false, true}, {INT_MAX, false, false, true}, {INT_MIN, false, false, true},
    };
    for (const auto& [mode, toolWindow, topmost, raiseOnce] : cases) {
        SCOPED_TRACE(mode);
        const WindowModeRule rule = RuleOfWindowMode(mode);
        EXPECT_EQ(rule.ToolWindow, toolWindow);
        EXPECT_EQ(rule.Topmost, topmost);
        EXPECT_EQ(rule.RaiseOnce, raiseOnce);
    }
}

}  // namespace
}  // namespace ferry::hostlink
