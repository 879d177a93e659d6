// The present moment, and what the moments that files remember are in local time.
#pragma once

#include <cstdint>
#include <optional>

#include "calendar/date_time.h"

namespace ferry::calendar {

/// The system's clock, in the user's time zone.
class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    /// The local date and time.
    virtual CalendarFields Now() = 0;

    /// The local date and time of a FILETIME value; nothing when the system cannot make any of it.
    virtual std::optional<CalendarFields> LocalTime(std::uint64_t fileTime) = 0;

    /// The local date value of a FILETIME in days since 1899-12-30, without milliseconds; 0 when a
    /// conversion fails.
    virtual double LocalDate(std::uint64_t fileTime) = 0;
};

}  // namespace ferry::calendar
