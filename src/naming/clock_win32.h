// The clock and the file times of the system.
#pragma once

#include "naming/clock.h"

namespace ferry::naming {

/// Asks the system, in the user's time zone.
class SystemClock final : public Clock {
public:
    CalendarFields Now() override;
    std::optional<CalendarFields> ItemTime(std::wstring_view path, DateSource source) override;
};

}  // namespace ferry::naming
