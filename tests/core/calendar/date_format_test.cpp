// Dates written by formats of strftime.
#include "calendar/date_format.h"

#include <array>
#include <ctime>
#include <cwchar>
#include <utility>
#include <vector>

#include "support/text_cases.h"

namespace ferry::calendar {
namespace {

using test::ExpectEach;

/// A Wednesday.
constexpr CalendarFields kMayDay{2024, 5, 1, 15, 4, 9};

std::wstring Format(const CalendarFields& fields, std::wstring_view format) {
    return FormatDateTime(ToDateTime(fields), format);
}

TEST(FormatDateTime, KnowsTheFormatsOfTheLists) {
    ExpectEach([](std::wstring_view format) { return Format(kMayDay, format); },
               {{L"%Y-%m-%d", L"2024-05-01"},
                {L"%Y%m%d", L"20240501"},
                {L"%Y年%m月%d日", L"2024年05月01日"},
                {L"%y-%m-%d", L"24-05-01"},
                {L"%y%m%d", L"240501"},
                {L"%y年%m月%d日", L"24年05月01日"},
                {L"%H-%M-%S", L"15-04-09"},
                {L"%H%M%S", L"150409"},
                {L"%H時%M分%S秒", L"15時04分09秒"},
                {L"%I-%M-%S", L"03-04-09"},
                {L"%I%M%S", L"030409"},
                {L"%p%I時%M分%S秒", L"PM03時04分09秒"},
                {L"%a", L"Wed"},
                {L"%A", L"Wednesday"},
                {L"%U", L"17"},
                {L"%w", L"3"},
                {L"%W", L"18"}});
}

TEST(FormatDateTime, KnowsTheOtherConversionsOfC90) {
    ExpectEach([](std::wstring_view format) { return Format(kMayDay, format); }, {{L"%b", L"May"},
                                                                                  {L"%B", L"May"},
                                                                                  {L"%j", L"122"},
                                                                                  {L"100%%", L"100%"},
                                                                                  {L"%%Y", L"%Y"},
                                                                                  {L"%%%Y%%", L"%2024%"},
                                                                                  {L"%d%d", L"0101"},
                                                                                  {L"%X", L"15:04:09"},
                                                                                  {L"%x", L"05/01/24"}});
    EXPECT_NE(Format(kMayDay, L"%c").find(L"15:04:09"), std::wstring::npos);
}

TEST(FormatDateTime, CopiesWhatIsNoConversionInTheCLocale) {
    ASSERT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    EXPECT_EQ(Format(kMayDay, L"資料 é \xD83D\xDE00 %d か\x3099"), L"資料 é \xD83D\xDE00 01 か\x3099");
    EXPECT_EQ(Format(kMayDay, std::wstring_view(L"a\0%d", 4)), std::wstring(L"a\0"
                                                                            L"01",
                                                                            4));
    EXPECT_EQ(Format(kMayDay, L""), L"");
}

TEST(FormatDateTime, CountsNoonAndMidnightAsTwelve) {
    for (const auto& [hour, text] :
         {std::pair{0, L"12AM"}, {1, L"01AM"}, {11, L"11AM"}, {12, L"12PM"}, {13, L"01PM"}, {23, L"11PM"}}) {
        EXPECT_EQ(Format({2024, 5, 1, hour, 0, 0}, L"%I%p"), text);
    }
}

TEST(FormatDateTime, WritesTheZeroDate) {
    EXPECT_EQ(FormatDateTime(ZeroDateTime(), L"%Y-%m-%d %y %H%M%S %a %j"), L"1899-12-30 99 000000 Sat 364");
}

TEST(FormatDateTime, SaysWhenAValueIsInvalidAndNothingForNone) {
    EXPECT_EQ(Format({2024, 2, 30, 0, 0, 0}, L"%Y"), L"Invalid DateTime");
    EXPECT_EQ(Format({2024, 2, 30, 0, 0, 0}, L""), L"Invalid DateTime");
    EXPECT_EQ(FormatDateTime({}, L"%Y"), L"");
}

TEST(FormatDateTime, GivesNothingForATextThatDoesNotFit) {
    const std::wstring fill(251, L'年');
    EXPECT_EQ(Format(kMayDay, fill + L"%Y"), fill + L"2024");
    EXPECT_EQ(Format(kMayDay, fill + L"x%Y"), L"");
    EXPECT_EQ(Format(kMayDay, std::wstring(256, L'年')), L"");
    EXPECT_EQ(Format(kMayDay, std::wstring(1100, L'年')), L"");
}

TEST(FormatDateTime, GivesNothingForAConversionThatIsNotOfC90) {
    for (const std::wstring_view format :
         {L"%", L"%Y%", L"%e", L"%F", L"%T", L"%Q", L"%#d", L"%Ey", L"%-d", L"% d", L"%年"}) {
        SCOPED_TRACE(base::ToUtf8(format));
        EXPECT_EQ(Format(kMayDay, format), L"");
    }
}

TEST(FormatDateTime, GivesNoDateOfTheLocaleForAYearBefore1900) {
    EXPECT_EQ(FormatDateTime(ZeroDateTime(), L"%x"), L"");
    EXPECT_EQ(FormatDateTime(ZeroDateTime(), L"%Y %c"), L"");
    EXPECT_EQ(FormatDateTime(ZeroDateTime(), L"%X"), L"00:00:00");
    EXPECT_EQ(Format({1900, 1, 2, 0, 0, 0}, L"%x"), L"01/02/00");
}

/// The record of strftime, its last two fields counted by hand.
std::tm RecordOf(const CalendarFields& fields, int weekday, int dayOfYear) {
    std::tm record{};
    record.tm_sec = fields.Second;
    record.tm_min = fields.Minute;
    record.tm_hour = fields.Hour;
    record.tm_mday = fields.Day;
    record.tm_mon = fields.Month - 1;
    record.tm_year = fields.Year - 1900;
    record.tm_wday = weekday;
    record.tm_yday = dayOfYear;
    return record;
}

/// All dates of `year`, at various times of day.
std::vector<CalendarFields> DatesOf(int year) {
    std::vector<CalendarFields> dates;
    for (int month = 1; month <= 12; ++month) {
        for (int day = 1; day <= 31; ++day) {
            const CalendarFields fields{year, month, day, (month + day) % 24, day, month};
            if (ToDateTime(fields).Status == DateTimeStatus::Valid) {
                dates.push_back(fields);
            }
        }
    }
    return dates;
}

TEST(FormatDateTime, AgreesWithTheCLibraryOnEveryDayFrom1900To2100) {
    const wchar_t* const format = L"%Y-%m-%d %y %H-%M-%S %I%p %a %A %b %B %j %U %w %W";
    // 1 January 1900 was a Monday.
    int weekday = 1;
    for (int year = 1900; year <= 2100; ++year) {
        int dayOfYear = 0;
        for (const CalendarFields& fields : DatesOf(year)) {
            const std::tm record = RecordOf(fields, weekday, dayOfYear);
            std::array<wchar_t, kDateTextCapacity> expected{};
            ASSERT_GT(std::wcsftime(expected.data(), expected.size(), format, &record), 0U);
            ASSERT_EQ(Format(fields, format), expected.data());
            ++dayOfYear;
            weekday = (weekday + 1) % 7;
        }
        ASSERT_GE(dayOfYear, 365) << year;
    }
}

}  // namespace
}  // namespace ferry::calendar
