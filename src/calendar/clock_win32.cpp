#include "calendar/clock_win32.h"

#include <windows.h>
// After windows.h, which this builds on.
#include <oleauto.h>

namespace ferry::calendar {

namespace {

CalendarFields FieldsOf(const SYSTEMTIME& time) noexcept {
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

std::optional<SYSTEMTIME> ToLocal(std::uint64_t fileTime) noexcept {
    const FILETIME utc{static_cast<DWORD>(fileTime), static_cast<DWORD>(fileTime >> 32)};
    FILETIME local{};
    SYSTEMTIME time{};
    const bool isLocal = FileTimeToLocalFileTime(&utc, &local) && FileTimeToSystemTime(&local, &time);
    return isLocal ? std::optional(time) : std::nullopt;
}

}  // namespace

CalendarFields SystemClock::Now() {
    // Not by the C library: it obeys a TZ variable that programs from elsewhere leave about.
    SYSTEMTIME time{};
    GetLocalTime(&time);
    return FieldsOf(time);
}

std::optional<CalendarFields> SystemClock::LocalTime(std::uint64_t fileTime) {
    const std::optional<SYSTEMTIME> time = ToLocal(fileTime);
    return time ? std::optional(FieldsOf(*time)) : std::nullopt;
}

double SystemClock::LocalDate(std::uint64_t fileTime) {
    std::optional<SYSTEMTIME> time = ToLocal(fileTime);
    double date = 0;
    return time && SystemTimeToVariantTime(&*time, &date) ? date : 0;
}

}  // namespace ferry::calendar
