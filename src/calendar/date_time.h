// A calendar instant that may be invalid or missing.
#pragma once

namespace ferry::calendar {

/// A local date and time of day as a calendar shows them: months and days count from 1.
struct CalendarFields {
    int Year = 0;
    int Month = 0;
    int Day = 0;
    int Hour = 0;
    int Minute = 0;
    int Second = 0;

    bool operator==(const CalendarFields&) const = default;
};

enum class DateTimeStatus { Valid, Invalid, Null };

/// A date-time value; `Fields` mean something only when it is valid. Without a value it is null.
struct DateTimeValue {
    CalendarFields Fields;
    DateTimeStatus Status = DateTimeStatus::Null;
};

/// The day from which automation dates count, at midnight.
inline constexpr CalendarFields kZeroDate{1899, 12, 30, 0, 0, 0};

/// The first year that a file's time may have; earlier ones are taken for this one.
inline constexpr int kFirstFileYear = 1900;

/// The value of `fields`; invalid unless counting them as an instant and reading that instant
/// back gives the same fields, and when the year is outside 100 to 9999, the years of an
/// automation date.
DateTimeValue ToDateTime(const CalendarFields& fields) noexcept;

/// The value of a file's local time. A year below 1900 counts as 1900, with month, day and time of
/// day kept, so that 29 February of an earlier leap year comes out invalid.
DateTimeValue ToFileDateTime(CalendarFields fields) noexcept;

/// The zero date, valid: what stands for a file's time that no calendar can show.
DateTimeValue ZeroDateTime() noexcept;

}  // namespace ferry::calendar
