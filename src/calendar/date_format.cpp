#include "calendar/date_format.h"

#include <array>
#include <chrono>
#include <ctime>
#include <cwchar>
#include <optional>

namespace ferry::calendar {

namespace {

namespace chrono = std::chrono;

/// The calendar record that strftime reads.
std::tm BreakDown(const CalendarFields& fields) noexcept {
    const chrono::year year(fields.Year);
    const chrono::sys_days day = year / chrono::month(static_cast<unsigned>(fields.Month)) /
                                 chrono::day(static_cast<unsigned>(fields.Day));
    const chrono::sys_days newYear = year / 1 / 1;
    std::tm record{};
    record.tm_sec = fields.Second;
    record.tm_min = fields.Minute;
    record.tm_hour = fields.Hour;
    record.tm_mday = fields.Day;
    record.tm_mon = fields.Month - 1;
    record.tm_year = fields.Year - 1900;
    record.tm_wday = static_cast<int>(chrono::weekday(day).c_encoding());
    record.tm_yday = static_cast<int>((day - newYear).count());
    record.tm_isdst = 0;
    return record;
}

std::wstring Number(int value, std::size_t digits) {
    std::wstring text = std::to_wstring(value);
    return text.size() < digits ? text.insert(0, digits - text.size(), L'0') : text;
}

/// The week of the year, the first one beginning with the year's first day number `firstDay`
/// (0 is Sunday); the days before it lie in week 0.
int WeekOfYear(const std::tm& record, int firstDay) noexcept {
    return (record.tm_yday + 7 - (record.tm_wday + 7 - firstDay) % 7) / 7;
}

/// The conversions that give numbers, which are the same in every locale; nothing for another.
/// They are made here because C libraries differ in which years they take: one refuses %y of
/// years below 1900, and the zero date has such a year.
std::optional<std::wstring> NumericConversion(const std::tm& record, wchar_t conversion) {
    const int year = record.tm_year + 1900;
    switch (conversion) {
        case L'd':
            return Number(record.tm_mday, 2);
        case L'H':
            return Number(record.tm_hour, 2);
        case L'I':
            return Number((record.tm_hour + 11) % 12 + 1, 2);
        case L'j':
            return Number(record.tm_yday + 1, 3);
        case L'm':
            return Number(record.tm_mon + 1, 2);
        case L'M':
            return Number(record.tm_min, 2);
        case L'S':
            return Number(record.tm_sec, 2);
        case L'U':
            return Number(WeekOfYear(record, 0), 2);
        case L'w':
            return Number(record.tm_wday, 1);
        case L'W':
            return Number(WeekOfYear(record, 1), 2);
        case L'y':
            return Number(year % 100, 2);
        case L'Y':
            return Number(year, 4);
        default:
            return std::nullopt;
    }
}

/// One conversion by the C library, for the texts that a locale has.
std::wstring LocaleConversion(const std::tm& record, wchar_t conversion) {
    const std::array<wchar_t, 3> format{L'%', conversion, L'\0'};
    std::array<wchar_t, kDateTextCapacity> text{};
    // A length of 0 is no failure here: there are locales without a text for %p.
    return {text.data(), std::wcsftime(text.data(), text.size(), format.data(), &record)};
}

/// Whether `conversion` writes a whole date in the way of the locale.
bool IsLocaleDate(wchar_t conversion) noexcept {
    return conversion == L'c' || conversion == L'x';
}

/// One conversion, or nothing when a C library may refuse it: C90 does not know it, or it writes
/// the year in the way of the locale and the year is one of those before 1900.
std::optional<std::wstring> Convert(const std::tm& record, wchar_t conversion) {
    if (conversion == L'%') {
        return L"%";
    }
    if (IsLocaleDate(conversion) && record.tm_year < 0) {
        return std::nullopt;
    }
    if (std::wstring_view(L"aAbBcpxXZ").find(conversion) != std::wstring_view::npos) {
        return LocaleConversion(record, conversion);
    }
    return NumericConversion(record, conversion);
}

}  // namespace

std::wstring FormatDateTime(const DateTimeValue& value, std::wstring_view format) {
    if (value.Status == DateTimeStatus::Null) {
        return {};
    }
    if (value.Status == DateTimeStatus::Invalid) {
        return L"Invalid DateTime";
    }
    const std::tm record = BreakDown(value.Fields);
    std::wstring text;
    // The C library sees conversions only: with its locale set to one without these characters,
    // a library that goes by way of bytes would lose what stands between them.
    for (std::size_t at = 0; at < format.size(); ++at) {
        if (format[at] != L'%') {
            text.push_back(format[at]);
            continue;
        }
        ++at;
        const auto converted = at < format.size() ? Convert(record, format[at]) : std::nullopt;
        if (!converted) {
            return {};
        }
        text += *converted;
    }
    return text.size() < kDateTextCapacity ? text : std::wstring();
}

}  // namespace ferry::calendar
