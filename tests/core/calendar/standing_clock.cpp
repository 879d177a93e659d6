#include "core/calendar/standing_clock.h"

#include <chrono>

namespace ferry::test {
namespace {

using namespace std::chrono;

constexpr std::uint64_t kSecond = 10'000'000;
constexpr std::int64_t kSecondsPerDay = 86'400;
constexpr sys_days kFirstDay = year(1601) / 1 / 1;
constexpr sys_days kEpoch = year(1899) / 12 / 30;
constexpr sys_days kEndOfCalendar = year(10'000) / 1 / 1;
constexpr hours kAheadOfUtc(9);

sys_seconds LocalInstant(std::uint64_t fileTime) {
    return kFirstDay + seconds(fileTime / kSecond) + kAheadOfUtc;
}

}  // namespace

std::optional<calendar::CalendarFields> StandingClock::LocalTime(std::uint64_t fileTime) {
    Asked.push_back(fileTime);
    const sys_seconds instant = LocalInstant(fileTime);
    const auto day = floor<days>(instant);
    // The system's own calendar of file times ends with the largest positive one.
    if (!KnowsZone || fileTime >> 63 != 0)
        return std::nullopt;
    const year_month_day date(day);
    const hh_mm_ss time(instant - day);
    return calendar::CalendarFields{static_cast<int>(date.year()),
                                    static_cast<int>(static_cast<unsigned>(date.month())),
                                    static_cast<int>(static_cast<unsigned>(date.day())),
                                    static_cast<int>(time.hours().count()),
                                    static_cast<int>(time.minutes().count()),
                                    static_cast<int>(time.seconds().count())};
}

double StandingClock::LocalDate(std::uint64_t fileTime) {
    const sys_seconds instant = LocalInstant(fileTime);
    if (!KnowsZone || instant >= kEndOfCalendar)
        return 0.0;
    const auto day = floor<days>(instant);
    const std::int64_t wholeDays = (day - kEpoch).count();
    const double fraction = static_cast<double>((instant - day).count()) / kSecondsPerDay;
    // Before its epoch the date type counts the fraction of a day forward all the same.
    return wholeDays < 0 ? static_cast<double>(wholeDays) - fraction
                         : static_cast<double>(wholeDays) + fraction;
}

std::uint64_t FileTimeAt(const calendar::CalendarFields& local) {
    const sys_days day = year(local.Year) / month(static_cast<unsigned>(local.Month)) /
                         std::chrono::day(static_cast<unsigned>(local.Day));
    const sys_seconds instant =
        day + hours(local.Hour) + minutes(local.Minute) + seconds(local.Second) - kAheadOfUtc;
    return static_cast<std::uint64_t>((instant - kFirstDay).count()) * kSecond;
}

}  // namespace ferry::test
