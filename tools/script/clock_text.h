// Moments as people write them.
#pragma once

#include <optional>
#include <string_view>

#include "calendar/date_time.h"

namespace ferry::scripttools {

/// The moment that `text` means, "YYYY-MM-DD HH:MM:SS"; nothing when it is written otherwise, or when there
/// is no such date or time of day.
std::optional<calendar::CalendarFields> ClockFromText(std::wstring_view text);

}  // namespace ferry::scripttools
