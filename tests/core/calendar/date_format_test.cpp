// Dates written by formats of strftime.
#include "calendar/date_format.h"

#include <array>
#include <ctime>
#include <cwchar>
#include <utility>
#include <vector>

#include "base/language.h"
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

TEST(FormatDateTime, KnowsTheConversionsOfC99) {
    ExpectEach([](std::wstring_view format) { return Format(kMayDay, format); },
               {{L"%C", L"20"},
                {L"%D", L"05/01/24"},
                {L"%e", L" 1"},
                {L"%F", L"2024-05-01"},
                {L"%g", L"24"},
                {L"%G", L"2024"},
                {L"%h", L"May"},
                {L"%n", L"\n"},
                {L"%r", L"03:04:09 PM"},
                {L"%R", L"15:04"},
                {L"%t", L"\t"},
                {L"%T", L"15:04:09"},
                {L"%u", L"3"},
                {L"%V", L"18"},
                {L"a%Fb%Tc", L"a2024-05-01b15:04:09c"}});
    EXPECT_EQ(Format({2024, 5, 5, 0, 0, 0}, L"%u %w"), L"7 0");
    EXPECT_EQ(Format({2024, 12, 30, 0, 0, 0}, L"%e"), L"30");
    EXPECT_EQ(FormatDateTime(ZeroDateTime(), L"%C %D %F %G %V %u"), L"18 12/30/99 1899-12-30 1899 52 6");
}

struct WeekCase {
    CalendarFields Day;
    std::wstring_view Expected;
};

TEST(FormatDateTime, GivesTheWeekToTheYearThatHasItsThursday) {
    const WeekCase cases[] = {
        {{2024, 12, 29, 0, 0, 0}, L"2024-W52-7 24"}, {{2024, 12, 30, 0, 0, 0}, L"2025-W01-1 25"},
        {{2021, 1, 3, 0, 0, 0}, L"2020-W53-7 20"},   {{2021, 1, 4, 0, 0, 0}, L"2021-W01-1 21"},
        {{2010, 1, 1, 0, 0, 0}, L"2009-W53-5 09"},   {{2016, 1, 3, 0, 0, 0}, L"2015-W53-7 15"},
        {{2020, 12, 31, 0, 0, 0}, L"2020-W53-4 20"}, {{2018, 12, 31, 0, 0, 0}, L"2019-W01-1 19"},
        {{1900, 1, 1, 0, 0, 0}, L"1900-W01-1 00"},   {{2000, 1, 2, 0, 0, 0}, L"1999-W52-7 99"},
        {{2017, 1, 1, 0, 0, 0}, L"2016-W52-7 16"},   {{2005, 1, 1, 0, 0, 0}, L"2004-W53-6 04"},
    };
    for (const auto& [day, expected] : cases) {
        EXPECT_EQ(Format(day, L"%G-W%V-%u %g"), expected);
    }
}

TEST(FormatDateTime, LeavesOutZerosInFrontByTheFlag) {
    const CalendarFields early{2004, 3, 2, 1, 5, 7};
    ExpectEach([&](std::wstring_view format) { return Format(early, format); },
               {{L"%#d|%#e|%#H|%#I|%#m|%#M|%#S", L"2|2|1|1|3|5|7"},
                {L"%#j|%#U|%#V|%#W|%#g|%#G|%#y|%#Y|%#C", L"62|9|10|9|4|2004|4|2004|20"},
                {L"%#D|%#F|%#R|%#T", L"3/2/4|2004-3-2|1:5|1:5:7"},
                {L"%#r", L"1:5:7 AM"},
                {L"%#a|%#A|%#b|%#B|%#h|%#p", L"Tue|Tuesday|Mar|March|Mar|AM"},
                {L"%#u|%#w|%#X|%#%|%#n|%#t", L"2|2|01:05:07|%|\n|\t"}});
    EXPECT_EQ(Format({2000, 1, 2, 0, 0, 0}, L"%#H|%#y|%#U|%#W"), L"0|0|1|0");
    for (const wchar_t* date : {L"%#c", L"%#x"}) {
        EXPECT_NE(Format(early, date), L"");
        EXPECT_EQ(FormatDateTime(ZeroDateTime(), date), L"");
    }
}

TEST(FormatDateTime, ReadsOverTheModifiersOfOtherCalendarsAndDigits) {
    ExpectEach([](std::wstring_view format) { return Format(kMayDay, format); },
               {{L"%Ey", L"24"}, {L"%EY %Om", L"2024 05"}, {L"%#Od", L"1"}, {L"%Ex", L"05/01/24"}});
}

TEST(FormatDateTime, TakesTheNamesOfTheLanguageThatStandsInForTheLocale) {
    base::Language language{};
    language.Weekday = [](int day, bool isShort) { return (isShort ? L"d" : L"day") + std::to_wstring(day); };
    language.Month = [](int month, bool isShort) {
        return (isShort ? L"m" : L"month") + std::to_wstring(month);
    };
    language.HalfOfDay = [](bool isAfternoon) -> std::wstring { return isAfternoon ? L"late" : L"early"; };
    const base::LanguageInForce inForce(language);
    ExpectEach([](std::wstring_view format) { return Format(kMayDay, format); },
               {{L"%a|%A|%#a", L"d3|day3|d3"},
                {L"%b|%h|%B", L"m4|m4|month4"},
                {L"%p|%r", L"late|03:04:09 late"},
                {L"%Y-%m-%d %H", L"2024-05-01 15"}});
    EXPECT_EQ(Format({2024, 5, 1, 11, 59, 59}, L"%p"), L"early");
    EXPECT_EQ(Format({2024, 5, 1, 12, 0, 0}, L"%p"), L"late");
}

/// The zone that the C library goes by, for as long as this lives.
class ZoneInForce {
public:
    explicit ZoneInForce(const char* name) { Set(name); }
    ~ZoneInForce() { Set("UTC0"); }

    ZoneInForce(const ZoneInForce&) = delete;
    ZoneInForce& operator=(const ZoneInForce&) = delete;

private:
    static void Set(const char* name) {
#ifdef _WIN32
        _putenv_s("TZ", name);
        _tzset();
#else
        setenv("TZ", name, 1);
        tzset();
#endif
    }
};

TEST(FormatDateTime, WritesTheStandardOffsetOfTheZone) {
    for (const auto& [zone, offset] : {std::pair{"UTC0", L"+0000"},
                                       {"JST-9", L"+0900"},
                                       {"IST-5:30", L"+0530"},
                                       {"NST3:30", L"-0330"},
                                       {"EST5EDT", L"-0500"}}) {
        const ZoneInForce inForce(zone);
        EXPECT_EQ(Format(kMayDay, L"%z"), offset) << zone;
        EXPECT_EQ(Format({2024, 12, 1, 0, 0, 0}, L"%#z"), offset) << zone;
    }
}

TEST(FormatDateTime, GivesNothingForAConversionThatTheCLibraryDoesNotKnow) {
    for (const std::wstring_view format :
         {L"%", L"%Y%", L"%E", L"%#", L"%f", L"%k", L"%L", L"%N", L"%P", L"%Q", L"%s", L"%v", L"%EEy",
          L"%E#y", L"%##d", L"%-d", L"% d", L"%年"}) {
        SCOPED_TRACE(base::ToUtf8(format));
        EXPECT_EQ(Format(kMayDay, format), L"");
    }
    EXPECT_EQ(Format(kMayDay, std::wstring_view(L"%\0Y", 3)), L"");
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
