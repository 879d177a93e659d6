// The clock of the system.
#pragma once

#include "calendar/clock.h"

namespace ferry::calendar {

/// Asks the system, in the user's time zone.
class SystemClock final : public Clock {
public:
    CalendarFields Now() override;
    std::optional<CalendarFields> LocalTime(std::uint64_t fileTime) override;
    double LocalDate(std::uint64_t fileTime) override;
};

}  // namespace ferry::calendar
