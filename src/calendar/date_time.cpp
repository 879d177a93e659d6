#include "calendar/date_time.h"

#include <chrono>
#include <cstdint>
#include <optional>

namespace ferry::calendar {

namespace {

namespace chrono = std::chrono;

/// The instant that the fields count to, when the year and the month exist; a day or time of day
/// that does not exist runs over into the next ones.
std::optional<chrono::sys_seconds> CountInstant(const CalendarFields& fields) noexcept {
    constexpr int kFirstYear = 100;
    constexpr int kLastYear = 9999;
    if (fields.Year < kFirstYear || fields.Year > kLastYear || fields.Month < 1 || fields.Month > 12) {
        return std::nullopt;
    }
    const chrono::sys_days firstDay =
        chrono::year(fields.Year) / chrono::month(static_cast<unsigned>(fields.Month)) / 1;
    // In 64 bits, where fields of any size cannot overflow.
    const auto inSeconds = [](std::int64_t count, std::int64_t unit) {
        return chrono::seconds(count * unit);
    };
    return firstDay + inSeconds(std::int64_t{fields.Day} - 1, 86400) + inSeconds(fields.Hour, 3600) +
           inSeconds(fields.Minute, 60) + inSeconds(fields.Second, 1);
}

CalendarFields ReadInstant(chrono::sys_seconds instant) noexcept {
    const auto day = chrono::floor<chrono::days>(instant);
    const chrono::year_month_day date(day);
    const chrono::hh_mm_ss time(instant - day);
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
}

}  // namespace

DateTimeValue ToDateTime(const CalendarFields& fields) noexcept {
    const std::optional<chrono::sys_seconds> instant = CountInstant(fields);
    const bool isValid = instant && ReadInstant(*instant) == fields;
    return {fields, isValid ? DateTimeStatus::Valid : DateTimeStatus::Invalid};
}

DateTimeValue ToFileDateTime(CalendarFields fields) noexcept {
    fields.Year = fields.Year < kFirstFileYear ? kFirstFileYear : fields.Year;
    return ToDateTime(fields);
}

DateTimeValue ZeroDateTime() noexcept {
    return {kZeroDate, DateTimeStatus::Valid};
}

}  // namespace ferry::calendar
