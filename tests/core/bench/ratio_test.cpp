#include "bench/ratio.h"

#include <cstddef>
#include <numeric>
#include <vector>

#include <gtest/gtest.h>

namespace ferry::bench {
namespace {

TEST(MedianOf, IsTheMiddleOrTheMeanOfTheTwoMiddles) {
    EXPECT_EQ(MedianOf({7}), 7);
    EXPECT_EQ(MedianOf({9, 1, 5}), 5);
    EXPECT_EQ(MedianOf({9, 1, 5, 2}), 3.5);
}

TEST(IntervalOfMedian, NeedsSixFigures) {
    EXPECT_FALSE(IntervalOfMedian({}));
    EXPECT_FALSE(IntervalOfMedian({1, 2, 3, 4, 5}));
    EXPECT_TRUE(IntervalOfMedian({1, 2, 3, 4, 5, 6}));
}

/// The figures 1 to `count`, the greatest first.
std::vector<double> CountedDown(std::size_t count) {
    std::vector<double> figures(count);
    std::iota(figures.rbegin(), figures.rend(), 1);
    return figures;
}

TEST(IntervalOfMedian, LeavesOutAsManyFiguresAsTheTablesOfTheSignTestSay) {
    struct Case {
        std::size_t Count;
        double Low;
        double High;
    };
    // The ranks that tables give for a median at 95 %.
    constexpr Case kCases[] = {{6, 1, 6},   {8, 1, 8},   {9, 2, 8},    {12, 3, 10},
                               {15, 4, 12}, {20, 6, 15}, {30, 10, 21}, {50, 18, 33}};
    for (const auto& [count, low, high] : kCases) {
        SCOPED_TRACE(count);
        const auto interval = IntervalOfMedian(CountedDown(count));
        ASSERT_TRUE(interval);
        EXPECT_EQ(interval->Low, low);
        EXPECT_EQ(interval->High, high);
    }
}

}  // namespace
}  // namespace ferry::bench
