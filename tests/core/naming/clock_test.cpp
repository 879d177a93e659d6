// What is inserted for each source.
#include "naming/clock.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace ferry::naming {
namespace {

constexpr std::wstring_view kPath = L"C:\\資料\\memo.txt";
constexpr std::wstring_view kFormat = L"%Y-%m-%d %H-%M-%S";

/// A clock that stands still, and files with given times.
class FakeClock final : public Clock {
public:
    CalendarFields Time{2024, 5, 1, 12, 34, 56};
    std::map<DateSource, std::optional<CalendarFields>> Times;
    std::vector<std::wstring> Asked;

    CalendarFields Now() override { return Time; }

    std::optional<CalendarFields> ItemTime(std::wstring_view path, DateSource source) override {
        Asked.emplace_back(path);
        return Times.at(source);
    }
};

TEST(InsertedText, IsTheLocalTimeForNow) {
    FakeClock clock;
    EXPECT_EQ(InsertedText(clock, DateSource::Now, kPath, L"%Y年%m月%d日"), L"2024年05月01日");
    EXPECT_EQ(InsertedText(clock, DateSource::Now, kPath, L"%H時%M分%S秒"), L"12時34分56秒");
    EXPECT_TRUE(clock.Asked.empty());
}

TEST(InsertedText, IsTheItemsTimeForTheOtherSources) {
    FakeClock clock;
    clock.Times[DateSource::Created] = CalendarFields{2001, 1, 2, 3, 4, 5};
    clock.Times[DateSource::Modified] = CalendarFields{2002, 1, 2, 3, 4, 5};
    clock.Times[DateSource::Accessed] = CalendarFields{2003, 1, 2, 3, 4, 5};
    EXPECT_EQ(InsertedText(clock, DateSource::Created, kPath, kFormat), L"2001-01-02 03-04-05");
    EXPECT_EQ(InsertedText(clock, DateSource::Modified, kPath, kFormat), L"2002-01-02 03-04-05");
    EXPECT_EQ(InsertedText(clock, DateSource::Accessed, kPath, kFormat), L"2003-01-02 03-04-05");
    EXPECT_EQ(clock.Asked, std::vector<std::wstring>(3, std::wstring(kPath)));
}

TEST(InsertedText, LiesInTheYear1900ForAnItemThatHasVanished) {
    FakeClock clock;
    clock.Times[DateSource::Modified] = CalendarFields{1601, 1, 1, 9, 0, 0};
    EXPECT_EQ(InsertedText(clock, DateSource::Modified, kPath, kFormat), L"1900-01-01 09-00-00");
}

TEST(InsertedText, IsTheZeroDateForATimeThatCannotBeConverted) {
    FakeClock clock;
    clock.Times[DateSource::Created] = std::nullopt;
    EXPECT_EQ(InsertedText(clock, DateSource::Created, kPath, kFormat), L"1899-12-30 00-00-00");
    EXPECT_EQ(InsertedText(clock, DateSource::Created, kPath, L"%y%m%d %I"), L"991230 12");
}

TEST(InsertedText, SaysSoWhenTheDateIsInvalid) {
    FakeClock clock;
    clock.Time = {2024, 2, 30, 0, 0, 0};
    clock.Times[DateSource::Modified] = CalendarFields{1604, 2, 29, 0, 0, 0};
    EXPECT_EQ(InsertedText(clock, DateSource::Now, kPath, kFormat), L"Invalid DateTime");
    EXPECT_EQ(InsertedText(clock, DateSource::Modified, kPath, kFormat), L"Invalid DateTime");
}

TEST(InsertedText, LeavesTheYearOfTheClockAsItIs) {
    FakeClock clock;
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
