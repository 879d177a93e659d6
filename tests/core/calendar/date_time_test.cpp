// Which calendar fields make a date.
#include "calendar/date_time.h"

#include <gtest/gtest.h>

#include <limits>

namespace ferry::calendar {
namespace {

bool IsValid(const CalendarFields& fields) {
    return ToDateTime(fields).Status == DateTimeStatus::Valid;
}

TEST(DateTime, IsNullWithoutAValue) {
    EXPECT_EQ(DateTimeValue{}.Status, DateTimeStatus::Null);
}

TEST(DateTime, KeepsTheFieldsOfADateThatExists) {
    for (const CalendarFields& fields :
         {CalendarFields{2024, 5, 1, 12, 34, 56}, CalendarFields{2024, 2, 29, 23, 59, 59},
          CalendarFields{2000, 2, 29, 0, 0, 0}, CalendarFields{1899, 12, 29, 0, 0, 1},
          CalendarFields{100, 1, 1, 0, 0, 0}, CalendarFields{9999, 12, 31, 23, 59, 59}}) {
        EXPECT_EQ(ToDateTime(fields).Fields, fields);
        EXPECT_TRUE(IsValid(fields)) << fields.Year << '-' << fields.Month << '-' << fields.Day;
    }
}

TEST(DateTime, IsInvalidWhenCountingAndReadingBackGivesOtherFields) {
    constexpr int kMost = std::numeric_limits<int>::max();
    constexpr int kLeast = std::numeric_limits<int>::min();
    for (const CalendarFields& fields :
         {CalendarFields{2023, 2, 29, 0, 0, 0}, CalendarFields{1900, 2, 29, 0, 0, 0},
          CalendarFields{2024, 4, 31, 0, 0, 0}, CalendarFields{2024, 1, 0, 0, 0, 0},
          CalendarFields{2024, 0, 1, 0, 0, 0}, CalendarFields{2024, 13, 1, 0, 0, 0},
          CalendarFields{2024, 257, 1, 0, 0, 0}, CalendarFields{2024, 1, 257, 0, 0, 0},
          CalendarFields{2024, 1, 1, 24, 0, 0}, CalendarFields{2024, 1, 1, -1, 0, 0},
          CalendarFields{2024, 1, 1, 0, 60, 0}, CalendarFields{2024, 12, 31, 23, 59, 60},
          CalendarFields{99, 12, 31, 0, 0, 0}, CalendarFields{10000, 1, 1, 0, 0, 0},
          CalendarFields{0, 0, 0, 0, 0, 0}, CalendarFields{2024, 1, kMost, kMost, kMost, kMost},
          CalendarFields{2024, 1, kLeast, kLeast, kLeast, kLeast}, CalendarFields{kLeast, 1, 1, 0, 0, 0}}) {
        EXPECT_FALSE(IsValid(fields)) << fields.Year << '-' << fields.Month << '-' << fields.Day;
    }
}

TEST(FileDateTime, TakesYearsBefore1900For1900) {
    const DateTimeValue value = ToFileDateTime({1601, 1, 1, 9, 0, 0});
    EXPECT_EQ(value.Status, DateTimeStatus::Valid);
    EXPECT_EQ(value.Fields, (CalendarFields{1900, 1, 1, 9, 0, 0}));
    EXPECT_EQ(ToFileDateTime({1899, 12, 31, 23, 59, 58}).Fields, (CalendarFields{1900, 12, 31, 23, 59, 58}));
    EXPECT_EQ(ToFileDateTime({1900, 3, 4, 5, 6, 7}).Fields, (CalendarFields{1900, 3, 4, 5, 6, 7}));
    EXPECT_EQ(ToFileDateTime({2024, 3, 4, 5, 6, 7}).Fields, (CalendarFields{2024, 3, 4, 5, 6, 7}));
}

TEST(FileDateTime, IsInvalidForTheLeapDayThat1900DoesNotHave) {
    EXPECT_EQ(ToFileDateTime({1604, 2, 29, 0, 0, 0}).Status, DateTimeStatus::Invalid);
    EXPECT_EQ(ToFileDateTime({1904, 2, 29, 0, 0, 0}).Status, DateTimeStatus::Valid);
}

TEST(FileDateTime, IsInvalidBeyondTheYear9999) {
    EXPECT_EQ(ToFileDateTime({30828, 9, 14, 2, 48, 5}).Status, DateTimeStatus::Invalid);
}

TEST(ZeroDateTime, IsAValidDay) {
    EXPECT_EQ(ZeroDateTime().Status, DateTimeStatus::Valid);
    EXPECT_EQ(ZeroDateTime().Fields, (CalendarFields{1899, 12, 30, 0, 0, 0}));
}

}  // namespace
}  // namespace ferry::calendar
