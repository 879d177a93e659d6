#include "calendar/date_format.h"

#include <array>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <cwchar>
#include <optional>
#include <utility>

#include "base/language.h"

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

/// What stands behind a percent sign.
struct Conversion {
    wchar_t Kind;
    bool IsBare;  ///< By "#": numbers without zeros in front, dates of the locale in their long form.
};

/// Takes a conversion off the front of `rest`, which stands behind a percent sign. The letters "E" and "O"
/// that ask for the other calendar and the other digits of a locale are taken and mean nothing.
Conversion TakeConversion(std::wstring_view& rest) noexcept {
    const auto take = [&](std::wstring_view any) {
        const bool isThere = !rest.empty() && any.find(rest.front()) != std::wstring_view::npos;
        rest.remove_prefix(isThere ? 1 : 0);
        return isThere;
    };
    const bool isBare = take(L"#");
    take(L"EO");
    const wchar_t kind = rest.empty() ? L'\0' : rest.front();
    rest.remove_prefix(rest.empty() ? 0 : 1);
    return {kind, isBare};
}

/// The week of the year, the first one beginning with the year's first day number `firstDay`
/// (0 is Sunday); the days before it lie in week 0.
int WeekOfYear(const std::tm& record, int firstDay) noexcept {
    return (record.tm_yday + 7 - (record.tm_wday + 7 - firstDay) % 7) / 7;
}

/// The weekday by ISO 8601, where Monday is 1 and Sunday 7.
int IsoWeekday(const std::tm& record) noexcept {
    return (record.tm_wday + 6) % 7 + 1;
}

int DaysOf(int year) noexcept {
    return chrono::year(year).is_leap() ? 366 : 365;
}

/// A week of ISO 8601, which belongs to the year that has its Thursday.
struct IsoWeek {
    int Year;
    int Number;
};

IsoWeek IsoWeekOf(const std::tm& record) noexcept {
    const int year = record.tm_year + 1900;
    const int thursday = record.tm_yday + 4 - IsoWeekday(record);
    if (thursday < 0) {
        return {year - 1, (thursday + DaysOf(year - 1)) / 7 + 1};
    }
    if (thursday >= DaysOf(year)) {
        return {year + 1, 1};
    }
    return {year, thursday / 7 + 1};
}

/// How a conversion writes a number.
struct NumberForm {
    int Value;
    std::size_t Digits;
    wchar_t Fill = L'0';
};

/// `form` written; a bare number has nothing before its first digit.
std::wstring Number(const NumberForm& form, bool isBare) {
    std::wstring text = std::to_wstring(form.Value);
    const std::size_t digits = isBare ? 0 : form.Digits;
    return text.size() < digits ? text.insert(0, digits - text.size(), form.Fill) : text;
}

/// The numbers of the day and of what is longer than a day; nothing for another conversion.
std::optional<NumberForm> DateNumber(const std::tm& record, wchar_t kind) noexcept {
    const int year = record.tm_year + 1900;
    switch (kind) {
        case L'C':
            return NumberForm{year / 100, 2};
        case L'd':
            return NumberForm{record.tm_mday, 2};
        case L'e':
            return NumberForm{record.tm_mday, 2, L' '};
        case L'g':
            return NumberForm{IsoWeekOf(record).Year % 100, 2};
        case L'G':
            return NumberForm{IsoWeekOf(record).Year, 4};
        case L'j':
            return NumberForm{record.tm_yday + 1, 3};
        case L'm':
            return NumberForm{record.tm_mon + 1, 2};
        case L'u':
            return NumberForm{IsoWeekday(record), 1};
        case L'U':
            return NumberForm{WeekOfYear(record, 0), 2};
        case L'V':
            return NumberForm{IsoWeekOf(record).Number, 2};
        case L'w':
            return NumberForm{record.tm_wday, 1};
        case L'W':
            return NumberForm{WeekOfYear(record, 1), 2};
        case L'y':
            return NumberForm{year % 100, 2};
        case L'Y':
            return NumberForm{year, 4};
        default:
            return std::nullopt;
    }
}

/// The same of the time of day.
std::optional<NumberForm> TimeNumber(const std::tm& record, wchar_t kind) noexcept {
    switch (kind) {
        case L'H':
            return NumberForm{record.tm_hour, 2};
        case L'I':
            return NumberForm{(record.tm_hour + 11) % 12 + 1, 2};
        case L'M':
            return NumberForm{record.tm_min, 2};
        case L'S':
            return NumberForm{record.tm_sec, 2};
        default:
            return std::nullopt;
    }
}

/// The conversions that give numbers, which are the same in every locale; nothing for another.
/// They are made here because C libraries differ in which conversions they know and which years they
/// take: one refuses %y of years below 1900, and the zero date has such a year.
std::optional<std::wstring> NumericConversion(const std::tm& record, Conversion conversion) {
    auto number = DateNumber(record, conversion.Kind);
    number = number ? number : TimeNumber(record, conversion.Kind);
    if (!number) {
        return std::nullopt;
    }
    return Number(*number, conversion.IsBare);
}

/// How far the standard time of the zone is ahead of UTC, in hours and minutes: no date here says that it
/// lies in summer time.
std::wstring ZoneOffset() {
    // Any recent moment does. The first hours of 1970 do not: some C libraries cannot count them back.
    constexpr std::time_t kMoment = 1'000'000'000;
    // The same by UTC: 9 September 2001, 01:46:40.
    std::tm inUtc{};
    inUtc.tm_year = 101;
    inUtc.tm_mon = 8;
    inUtc.tm_mday = 9;
    inUtc.tm_hour = 1;
    inUtc.tm_min = 46;
    inUtc.tm_sec = 40;
    const auto minutes = static_cast<int>((kMoment - std::mktime(&inUtc)) / 60);
    const int distance = std::abs(minutes);
    return (minutes < 0 ? L"-" : L"+") + Number({distance / 60 * 100 + distance % 60, 4}, false);
}

/// One conversion by the C library, for the texts that a locale has.
std::wstring LocaleConversion(const std::tm& record, const wchar_t* format) {
    std::array<wchar_t, kDateTextCapacity> text{};
    // A length of 0 is no failure here: there are locales without a text for %p.
    return {text.data(), std::wcsftime(text.data(), text.size(), format, &record)};
}

/// The conversions that give a name which the language that stands in for the locale has, if there is one.
std::optional<std::wstring> StandInName(const std::tm& record, wchar_t kind) {
    const base::Language* const language = base::StandInLanguage();
    if (language == nullptr) {
        return std::nullopt;
    }
    switch (kind) {
        case L'a':
        case L'A':
            return language->Weekday(record.tm_wday, kind == L'a');
        case L'b':
        case L'h':
        case L'B':
            return language->Month(record.tm_mon, kind != L'B');
        case L'p':
            return language->HalfOfDay(record.tm_hour >= 12);
        default:
            return std::nullopt;
    }
}

/// A whole date in the way of the locale; nothing for a year of those before 1900, which a C library
/// refuses.
std::optional<std::wstring> LocaleDate(const std::tm& record, Conversion conversion) {
    if (record.tm_year < 0) {
        return std::nullopt;
    }
    if (conversion.Kind == L'c') {
        return LocaleConversion(record, conversion.IsBare ? L"%#c" : L"%c");
    }
    return LocaleConversion(record, conversion.IsBare ? L"%#x" : L"%x");
}

/// The conversions that give a text, or nothing for another.
std::optional<std::wstring> TextConversion(const std::tm& record, Conversion conversion) {
    switch (conversion.Kind) {
        case L'a':
            return LocaleConversion(record, L"%a");
        case L'A':
            return LocaleConversion(record, L"%A");
        case L'b':
        case L'h':
            return LocaleConversion(record, L"%b");
        case L'B':
            return LocaleConversion(record, L"%B");
        case L'c':
        case L'x':
            return LocaleDate(record, conversion);
        case L'n':
            return L"\n";
        case L'p':
            return LocaleConversion(record, L"%p");
        case L't':
            return L"\t";
        case L'X':
            return LocaleConversion(record, L"%X");
        case L'z':
            return ZoneOffset();
        case L'Z':
            return LocaleConversion(record, L"%Z");
        case L'%':
            return L"%";
        default:
            return NumericConversion(record, conversion);
    }
}

/// One conversion that is short for no others; nothing when the C library of Windows refuses it.
std::optional<std::wstring> ConvertOne(const std::tm& record, Conversion conversion) {
    auto name = StandInName(record, conversion.Kind);
    return name ? std::move(name) : TextConversion(record, conversion);
}

/// The conversions that a conversion is short for, with what stands between them; nothing for another.
std::wstring_view LongFormOf(wchar_t kind) noexcept {
    switch (kind) {
        case L'D':
            return L"m/d/y";
        case L'F':
            return L"Y-m-d";
        case L'r':
            return L"I:M:S p";
        case L'R':
            return L"H:M";
        case L'T':
            return L"H:M:S";
        default:
            return {};
    }
}

/// One conversion, or nothing when the C library of Windows refuses it.
std::optional<std::wstring> Convert(const std::tm& record, Conversion conversion) {
    const std::wstring_view longForm = LongFormOf(conversion.Kind);
    if (longForm.empty()) {
        return ConvertOne(record, conversion);
    }
    std::wstring text;
    for (const wchar_t unit : longForm) {
        const auto part = ConvertOne(record, {unit, conversion.IsBare});
        text += part ? *part : std::wstring(1, unit);
    }
    return text;
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
    while (!format.empty()) {
        const wchar_t unit = format.front();
        format.remove_prefix(1);
        if (unit != L'%') {
            text.push_back(unit);
            continue;
        }
        const auto converted = Convert(record, TakeConversion(format));
        if (!converted) {
            return {};
        }
        text += *converted;
    }
    return text.size() < kDateTextCapacity ? text : std::wstring();
}

}  // namespace ferry::calendar
