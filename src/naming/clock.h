// Where the date that is put into a name comes from.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "naming/date_time.h"

namespace ferry::naming {

/// Which instant is inserted; the numbers are those of the stored setting and of the list.
enum class DateSource { Now = 0, Created = 1, Modified = 2, Accessed = 3 };

/// The source with the number `number`; Now for a number that has none.
DateSource ToDateSource(int number) noexcept;

/// The system's clock and the times of files, in local calendar fields.
class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    /// The local date and time.
    virtual CalendarFields Now() = 0;

    /// The local time of the item at `path`, of any length: when it was created, last written or
    /// last accessed (`source` is not Now). An item that is not found has the file time zero,
    /// 1601-01-01 00:00:00 UTC, which is taken for local time where that is behind UTC. Nothing when
    /// the system cannot make local fields of another file time.
    virtual std::optional<CalendarFields> ItemTime(std::wstring_view path, DateSource source) = 0;
};

/// The instant that `source` names, of `clock` or of the item at `path`; the zero date for an
/// item's time that `clock` cannot tell.
DateTimeValue SourceDateTime(Clock& clock, DateSource source, std::wstring_view path);

/// What is inserted into a name for `source`: its instant written by `format`.
std::wstring InsertedText(Clock& clock, DateSource source, std::wstring_view path, std::wstring_view format);

}  // namespace ferry::naming
