// The contract of the clock.
#include "core/calendar/clock_contract.h"

#include <cmath>
#include <cstdint>
#include <tuple>

namespace ferry::calendar::contract {
namespace {

constexpr std::uint64_t kSecond = 10'000'000;
constexpr std::uint64_t kHour = 3600 * kSecond;
constexpr std::uint64_t kDay = 24 * kHour;
constexpr std::uint64_t kSomeTime = 132'539'328'000'000'000;      // 2021-01-01 00:00:00 UTC
constexpr std::uint64_t kEndOfYears = 2'650'467'743'990'000'000;  // the last second of the year 9999, UTC

auto InOrder(const CalendarFields& fields) {
    return std::tuple(fields.Year, fields.Month, fields.Day, fields.Hour, fields.Minute, fields.Second);
}

/// A date value on a scale without a fold: before the epoch the fraction counts forward all the same.
double Unfolded(double date) {
    return date >= 0 ? date : std::ceil(date) - (date - std::ceil(date));
}

TEST_P(ClockContract, NowIsADateThatExistsAndGoesOn) {
    const CalendarFields first = TheClock().Now();
    const CalendarFields second = TheClock().Now();
    EXPECT_EQ(ToDateTime(first).Status, DateTimeStatus::Valid);
    EXPECT_GE(first.Year, 2024);
    EXPECT_LE(InOrder(first), InOrder(second));
}

TEST_P(ClockContract, LocalTimesAreDatesThatExistAndDropWhatIsBelowASecond) {
    for (std::uint64_t hour = 0; hour < 48; ++hour) {
        const auto local = TheClock().LocalTime(kSomeTime + hour * kHour);
        ASSERT_TRUE(local);
        EXPECT_EQ(ToDateTime(*local).Status, DateTimeStatus::Valid);
        EXPECT_EQ(TheClock().LocalTime(kSomeTime + hour * kHour + kSecond - 1), local);
        EXPECT_EQ(TheClock().LocalTime(kSomeTime + (hour + 24) * kHour)->Hour, local->Hour);
    }
}

TEST_P(ClockContract, LocalTimesLieWithinADayOfUtc) {
    const auto local = TheClock().LocalTime(kSomeTime + kDay / 2);
    ASSERT_TRUE(local);
    EXPECT_GE(InOrder(*local), InOrder({2021, 1, 1, 0, 0, 0}));
    EXPECT_LT(InOrder(*local), InOrder({2021, 1, 2, 12, 0, 0}));
}

TEST_P(ClockContract, AFileTimeThatNobodyCountsHasNoLocalTime) {
    EXPECT_EQ(TheClock().LocalTime(~std::uint64_t{0}), std::nullopt);
    EXPECT_EQ(TheClock().LocalTime(std::uint64_t{1} << 63), std::nullopt);
}

TEST_P(ClockContract, LocalDatesCountDaysAndDropWhatIsBelowASecond) {
    // 1880, 1899 about the epoch, and 2021.
    for (const std::uint64_t start :
         {std::uint64_t{88'043'328'000'000'000}, std::uint64_t{94'352'256'000'000'000}, kSomeTime}) {
        const double first = Unfolded(TheClock().LocalDate(start));
        for (std::uint64_t hour = 0; hour <= 100; ++hour) {
            const double date = TheClock().LocalDate(start + hour * kHour);
            EXPECT_NEAR(Unfolded(date) - first, static_cast<double>(hour) / 24, 1e-7) << hour;
            EXPECT_EQ(TheClock().LocalDate(start + hour * kHour + kSecond - 1), date);
            EXPECT_NE(TheClock().LocalDate(start + hour * kHour + kSecond), date);
        }
    }
}

TEST_P(ClockContract, ATimeOutsideTheCalendarIsDateZero) {
    EXPECT_GT(TheClock().LocalDate(kEndOfYears - 2 * kDay), 2'958'000.0);
    for (const std::uint64_t time : {kEndOfYears + 2 * kDay, std::uint64_t{1} << 63, ~std::uint64_t{0}})
        EXPECT_EQ(TheClock().LocalDate(time), 0.0) << time;
}

}  // namespace
}  // namespace ferry::calendar::contract
