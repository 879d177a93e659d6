// What is inserted for each source.
#include "naming/clock.h"

#include <gtest/gtest.h>

#include "core/naming/standing_clock.h"

namespace ferry::naming {
namespace {

constexpr std::wstring_view kPath = L"C:\\資料\\memo.txt";
constexpr std::wstring_view kFormat = L"%Y-%m-%d %H-%M-%S";

TEST(InsertedText, IsTheLocalTimeForNow) {
    test::StandingClock clock;
    EXPECT_EQ(InsertedText(clock, DateSource::Now, kPath, L"%Y年%m月%d日"), L"2024年05月01日");
    EXPECT_EQ(InsertedText(clock, DateSource::Now, kPath, L"%H時%M分%S秒"), L"12時34分56秒");
    EXPECT_TRUE(clock.Asked.empty());
}

TEST(InsertedText, IsTheItemsTimeForTheOtherSources) {
    test::StandingClock clock;
    EXPECT_EQ(InsertedText(clock, DateSource::Created, kPath, kFormat), L"2001-01-02 03-04-05");
    EXPECT_EQ(InsertedText(clock, DateSource::Modified, kPath, kFormat), L"2002-01-02 03-04-05");
    EXPECT_EQ(InsertedText(clock, DateSource::Accessed, kPath, kFormat), L"2003-01-02 03-04-05");
    EXPECT_EQ(clock.Asked, std::vector<std::wstring>(3, std::wstring(kPath)));
}

TEST(InsertedText, LiesInTheYear1900ForAnItemThatHasVanished) {
    test::StandingClock clock;
    clock.Vanished = {std::wstring(kPath)};
    for (const DateSource source : {DateSource::Created, DateSource::Modified, DateSource::Accessed})
        EXPECT_EQ(InsertedText(clock, source, kPath, kFormat), L"1900-01-01 09-00-00");
}

TEST(InsertedText, IsTheZeroDateForATimeThatCannotBeConverted) {
    test::StandingClock clock;
    for (const DateSource source : {DateSource::Created, DateSource::Modified, DateSource::Accessed}) {
        clock.Times[source] = std::nullopt;
        EXPECT_EQ(InsertedText(clock, source, kPath, kFormat), L"1899-12-30 00-00-00");
        EXPECT_EQ(InsertedText(clock, source, kPath, L"%y%m%d %I"), L"991230 12");
    }
}

TEST(InsertedText, SaysSoWhenTheDateIsInvalid) {
    test::StandingClock clock;
    clock.Time = {2024, 2, 30, 0, 0, 0};
    clock.Times[DateSource::Modified] = CalendarFields{1604, 2, 29, 0, 0, 0};
    EXPECT_EQ(InsertedText(clock, DateSource::Now, kPath, kFormat), L"Invalid DateTime");
    EXPECT_EQ(InsertedText(clock, DateSource::Modified, kPath, kFormat), L"Invalid DateTime");
}

TEST(InsertedText, LeavesTheYearOfTheClockAsItIs) {
    test::StandingClock clock;
    clock.Time = {1899, 1, 2, 3, 4, 5};
    EXPECT_EQ(InsertedText(clock, DateSource::Now, kPath, kFormat), L"1899-01-02 03-04-05");
}

TEST(DateSource, HasTheNumbersOfTheListAndIsNowForOthers) {
    EXPECT_EQ(ToDateSource(0), DateSource::Now);
    EXPECT_EQ(ToDateSource(1), DateSource::Created);
    EXPECT_EQ(ToDateSource(2), DateSource::Modified);
    EXPECT_EQ(ToDateSource(3), DateSource::Accessed);
    for (const int number : {-1, 4, 1000, -2147483647}) {
        EXPECT_EQ(ToDateSource(number), DateSource::Now);
    }
}

}  // namespace
}  // namespace ferry::naming
