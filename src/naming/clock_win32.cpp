#include "naming/clock_win32.h"

#include <windows.h>

#include "process/file_search_win32.h"

namespace ferry::naming {

namespace {

CalendarFields FieldsOf(const SYSTEMTIME& time) noexcept {
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

/// The asked time of the item at `path`, in UTC; zero when there is no such item.
FILETIME FileTimeOf(std::wstring_view path, DateSource source) {
    WIN32_FIND_DATAW data{};
    if (!process::FindFirst(path, data)) {
        return {};
    }
    switch (source) {
        case DateSource::Created:
            return data.ftCreationTime;
        case DateSource::Accessed:
            return data.ftLastAccessTime;
        default:
            return data.ftLastWriteTime;
    }
}

}  // namespace

CalendarFields SystemClock::Now() {
    // Not by the C library: it obeys a TZ variable that programs from elsewhere leave about.
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return FieldsOf(time);
}

std::optional<CalendarFields> SystemClock::ItemTime(std::wstring_view path, DateSource source) {
    const FILETIME utc = FileTimeOf(path, source);
    FILETIME local{};
    SYSTEMTIME time{};
    if (FileTimeToLocalFileTime(&utc, &local) == 0 || FileTimeToSystemTime(&local, &time) == 0) {
        // Zero has no local time where that is behind UTC; a vanished item's year is the same everywhere.
        const bool isZero = utc.dwHighDateTime == 0 && utc.dwLowDateTime == 0;
        return isZero ? std::optional(CalendarFields{1601, 1, 1, 0, 0, 0}) : std::nullopt;
    }
    return FieldsOf(time);
}

}  // namespace ferry::naming
