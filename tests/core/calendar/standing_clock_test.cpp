// The clock that stands still keeps the contract that the system's clock keeps.
#include "core/calendar/standing_clock.h"

#include "core/calendar/clock_contract.h"

namespace ferry::calendar::contract {
namespace {

INSTANTIATE_TEST_SUITE_P(Standing, ClockContract, testing::Values(&test::Make<Clock, test::StandingClock>));

TEST(StandingClock, IsNineHoursAheadOfUtc) {
    constexpr std::uint64_t kDayTicks = 864'000'000'000;
    constexpr std::uint64_t kHourTicks = kDayTicks / 24;
    test::StandingClock clock;
    EXPECT_EQ(clock.LocalTime(0), (CalendarFields{1601, 1, 1, 9, 0, 0}));
    EXPECT_EQ(clock.LocalDate(134'774 * kDayTicks - 9 * kHourTicks), 25569.0);
    EXPECT_EQ(clock.LocalDate(109'205 * kDayTicks - 27 * kHourTicks), -1.25)
        << "a quarter past the start of day -1";
    const CalendarFields some{2024, 2, 29, 23, 59, 58};
    EXPECT_EQ(clock.LocalTime(test::FileTimeAt(some)), some);
}

}  // namespace
}  // namespace ferry::calendar::contract
