// File times of the dates and times that a person reads.
#pragma once

#include <windows.h>
#include <gtest/gtest.h>

#include "calendar/date_time.h"

namespace ferry::test {

/// The file time of a local date and time, by the system's present distance from UTC.
inline FILETIME FileTimeOfLocal(const SYSTEMTIME& fields) {
    FILETIME local{};
    FILETIME utc{};
    EXPECT_TRUE(SystemTimeToFileTime(&fields, &local));
    EXPECT_TRUE(LocalFileTimeToFileTime(&local, &utc));
    return utc;
}

inline FILETIME FileTimeOfLocal(const calendar::CalendarFields& fields) {
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(fields.Year);
    time.wMonth = static_cast<WORD>(fields.Month);
    time.wDay = static_cast<WORD>(fields.Day);
    time.wHour = static_cast<WORD>(fields.Hour);
    time.wMinute = static_cast<WORD>(fields.Minute);
    time.wSecond = static_cast<WORD>(fields.Second);
    return FileTimeOfLocal(time);
}

}  // namespace ferry::test
