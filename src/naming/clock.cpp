#include "naming/clock.h"

#include "naming/date_format.h"

namespace ferry::naming {

DateSource ToDateSource(int number) noexcept {
    switch (number) {
        case 1:
            return DateSource::Created;
        case 2:
            return DateSource::Modified;
        case 3:
            return DateSource::Accessed;
        default:
            return DateSource::Now;
    }
}

DateTimeValue SourceDateTime(Clock& clock, DateSource source, std::wstring_view path) {
    if (source == DateSource::Now) {
        return ToDateTime(clock.Now());
    }
    const std::optional<CalendarFields> fields = clock.ItemTime(path, source);
    return fields ? ToFileDateTime(*fields) : ZeroDateTime();
}

std::wstring InsertedText(Clock& clock, DateSource source, std::wstring_view path, std::wstring_view format) {
    return FormatDateTime(SourceDateTime(clock, source, path), format);
}

}  // namespace ferry::naming
