#include "naming/inserted_date.h"

#include <cstdint>
#include <optional>

#include "calendar/date_format.h"

namespace ferry::naming {
namespace {

/// What the file time zero is where no local time comes of it.
constexpr calendar::CalendarFields kFirstFileDate{1601, 1, 1, 0, 0, 0};

std::uint64_t TimeOf(const files::ItemTimes& times, DateSource source) noexcept {
    switch (source) {
        case DateSource::Created:
            return times.Created;
        case DateSource::Accessed:
            return times.LastAccess;
        default:
            return times.LastWrite;
    }
}

/// The asked time of the item at `path`; zero when there is no such item.
std::uint64_t FileTimeOf(files::FolderSearch& search, std::wstring_view path, DateSource source) {
    std::uint64_t time = 0;
    search.Search(path, [&](const files::Match& match) {
        time = TimeOf(match.Times, source);
        return false;
    });
    return time;
}

calendar::DateTimeValue DateTimeOf(calendar::Clock& clock, std::uint64_t fileTime) {
    const std::optional<calendar::CalendarFields> fields = clock.LocalTime(fileTime);
    if (!fields) {
        return fileTime == 0 ? calendar::ToFileDateTime(kFirstFileDate) : calendar::ZeroDateTime();
    }
    return calendar::ToFileDateTime(*fields);
}

}  // namespace

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

std::wstring InsertedText(calendar::Clock& clock, files::FolderSearch& search, DateSource source,
                          std::wstring_view path, std::wstring_view format) {
    const calendar::DateTimeValue value = source == DateSource::Now
                                              ? calendar::ToDateTime(clock.Now())
                                              : DateTimeOf(clock, FileTimeOf(search, path, source));
    return calendar::FormatDateTime(value, format);
}

}  // namespace ferry::naming
