// Writes date-time values by formats of strftime.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "calendar/date_time.h"

namespace ferry::calendar {

/// The most units that a formatted date may have, its terminator included.
inline constexpr std::size_t kDateTextCapacity = 256;

/// `value` by `format`, whose conversions are those of strftime in the C library of Windows: all of C99,
/// with the letters E and O read over, and its flag "#", which leaves out zeros in front and asks for the
/// long dates of the locale. The locale is that of the process; other characters are copied, whatever the
/// locale.
/// A null value gives an empty text, an invalid one "Invalid DateTime". A text that does not fit
/// kDateTextCapacity is empty. So is the text of a format with another conversion, or with %c or
/// %x for a year before 1900: some C libraries refuse these, and one ends the process over it.
std::wstring FormatDateTime(const DateTimeValue& value, std::wstring_view format);

}  // namespace ferry::calendar
