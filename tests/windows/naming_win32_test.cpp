// The clock of the system, and names under its C library.
#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cwchar>
#include <optional>
#include <string>

#include "base/handles_win32.h"
#include "base/utf16.h"
#include "calendar/clock_win32.h"
#include "calendar/date_format.h"
#include "files/disk_win32.h"
#include "naming/inserted_date.h"
#include "naming/name_edits.h"
#include "naming/scan.h"
#include "windows/local_times_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::naming {
namespace {

using namespace calendar;

using test::FileTimeOfLocal;
using test::TempFolder;

CalendarFields FieldsOf(const SYSTEMTIME& time) {
    return {time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond};
}

constexpr CalendarFields kWritten{2024, 2, 29, 23, 59, 58};
constexpr CalendarFields kRead{2031, 12, 31, 12, 30, 1};

/// Gives the item at `path` both times that every file system here keeps as they are set.
void SetTimes(const std::wstring& path) {
    const base::FileHandle item(CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING,
                                            FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    ASSERT_TRUE(item) << GetLastError();
    const FILETIME written = FileTimeOfLocal(kWritten);
    const FILETIME read = FileTimeOfLocal(kRead);
    ASSERT_TRUE(SetFileTime(item.Get(), nullptr, &read, &written));
}

/// What is added to UTC for local time at present, in minutes.
LONG OffsetMinutes() {
    TIME_ZONE_INFORMATION zone{};
    const DWORD season = GetTimeZoneInformation(&zone);
    const LONG seasonBias = season == TIME_ZONE_ID_DAYLIGHT   ? zone.DaylightBias
                            : season == TIME_ZONE_ID_STANDARD ? zone.StandardBias
                                                              : 0;
    return -(zone.Bias + seasonBias);
}

TEST(SystemClock, TellsTheLocalTime) {
    SystemClock clock;
    // Again when the second changes between the looks.
    for (int attempt = 0; attempt < 100; ++attempt) {
        SYSTEMTIME before{};
        SYSTEMTIME after{};
        GetLocalTime(&before);
        const CalendarFields now = clock.Now();
        GetLocalTime(&after);
        if (FieldsOf(before) == FieldsOf(after)) {
            EXPECT_EQ(now, FieldsOf(before));
            EXPECT_EQ(ToDateTime(now).Status, DateTimeStatus::Valid);
            return;
        }
    }
    FAIL() << "the second changed each time";
}

/// What is inserted for the item at `path`, of this machine's clock and disk.
std::wstring TextOf(DateSource source, const std::wstring& path) {
    calendar::SystemClock clock;
    files::DiskSearch search;
    return InsertedText(clock, search, source, path, L"%Y-%m-%d %H:%M:%S");
}

constexpr wchar_t kWrittenText[] = L"2024-02-29 23:59:58";
constexpr wchar_t kReadText[] = L"2031-12-31 12:30:01";

TEST(InsertedTextOnDisk, IsTheTimeOfAFileInLocalTime) {
    const TempFolder folder;
    const std::wstring file = folder / L"資料.txt";
    test::WriteUnits(file, L"x");
    ASSERT_NO_FATAL_FAILURE(SetTimes(file));
    EXPECT_EQ(TextOf(DateSource::Modified, file), kWrittenText);
    EXPECT_EQ(TextOf(DateSource::Accessed, file), kReadText);
    EXPECT_EQ(TextOf(DateSource::Modified, file), kWrittenText) << "looking at an item changes no time of it";
    EXPECT_EQ(TextOf(DateSource::Accessed, file), kReadText);
}

TEST(InsertedTextOnDisk, IsTheTimeOfAFolderAndOfALongPath) {
    const TempFolder folder;
    const std::wstring item = folder.LongFolder() + L"\\資料";
    test::MakeFolders(item);
    ASSERT_NO_FATAL_FAILURE(SetTimes(L"\\\\?\\" + item));
    EXPECT_EQ(TextOf(DateSource::Modified, item), kWrittenText);
    EXPECT_EQ(TextOf(DateSource::Accessed, item), kReadText);
}

TEST(InsertedTextOnDisk, IsTheTimeAtWhichAFileWasCreated) {
    const TempFolder folder;
    const std::wstring file = folder / L"new.txt";
    test::WriteUnits(file, L"x");
    ASSERT_NO_FATAL_FAILURE(SetTimes(file));
    // The system is asked by the open file, not by a search.
    FILETIME created{};
    {
        const base::FileHandle open(
            CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(open);
        ASSERT_TRUE(GetFileTime(open.Get(), &created, nullptr, nullptr));
    }
    calendar::SystemClock clock;
    const auto local = clock.LocalTime(std::uint64_t{created.dwHighDateTime} << 32 | created.dwLowDateTime);
    ASSERT_TRUE(local);
    EXPECT_EQ(TextOf(DateSource::Created, file), FormatDateTime(ToDateTime(*local), L"%Y-%m-%d %H:%M:%S"));
}

TEST(InsertedTextOnDisk, IsThatOfTheFileTimeZeroForAnItemThatHasVanished) {
    const TempFolder folder;
    // Zero less the offset is no file time where local time is behind UTC.
    const LONG minutes = std::max(OffsetMinutes(), 0L);
    const DateTimeValue expected =
        ToDateTime({1900, 1, 1, static_cast<int>(minutes / 60), static_cast<int>(minutes % 60), 0});
    for (const DateSource source : {DateSource::Created, DateSource::Modified, DateSource::Accessed})
        EXPECT_EQ(TextOf(source, folder / L"vanished"), FormatDateTime(expected, L"%Y-%m-%d %H:%M:%S"));
}

TEST(InsertedTextOnDisk, IsTheZeroDateForATimeThatTheSystemCannotConvert) {
    const TempFolder folder;
    const std::wstring file = folder / L"a.txt";
    test::WriteUnits(file, L"x");
    {
        const test::WatchedImport<&FileTimeToLocalFileTime> toLocal(
            "FileTimeToLocalFileTime", [](const FILETIME*, LPFILETIME) { return FALSE; });
        EXPECT_EQ(TextOf(DateSource::Modified, file), L"1899-12-30 00:00:00");
    }
    const test::WatchedImport<&FileTimeToSystemTime> toFields(
        "FileTimeToSystemTime", [](const FILETIME*, LPSYSTEMTIME) { return FALSE; });
    EXPECT_EQ(TextOf(DateSource::Modified, file), L"1899-12-30 00:00:00");
}

TEST(InsertedTextOnDisk, CountsTheHoursInTheZoneOfTheUser) {
    const TempFolder folder;
    const std::wstring file = folder / L"a.txt";
    test::WriteUnits(file, L"x");
    ASSERT_NO_FATAL_FAILURE(SetTimes(file));
    const FILETIME noon = FileTimeOfLocal(CalendarFields{2024, 5, 1, 12, 0, 0});
    FILETIME local{};
    ASSERT_TRUE(FileTimeToLocalFileTime(&noon, &local));
    // The zone of the machine may be one in which both are the same.
    const test::WatchedImport<&FileTimeToLocalFileTime> toLocal("FileTimeToLocalFileTime",
                                                                [&](const FILETIME*, LPFILETIME answer) {
                                                                    *answer = local;
                                                                    return TRUE;
                                                                });
    EXPECT_EQ(TextOf(DateSource::Modified, file), L"2024-05-01 12:00:00");
}

TEST(InsertedTextOnDisk, KeepsNoHoldOfWhatItLookedAt) {
    const TempFolder folder;
    const std::wstring inner = folder / L"inner";
    test::MakeFolders(inner);
    test::WriteUnits(inner + L"\\file", L"x");
    {
        const test::WatchedImport<&FindClose> close("FindClose");
        EXPECT_NE(TextOf(DateSource::Modified, inner + L"\\file"), L"");
        EXPECT_EQ(close.Calls().size(), 1U);
        EXPECT_NE(TextOf(DateSource::Modified, inner + L"\\nothing"), L"");
        EXPECT_EQ(close.Calls().size(), 1U) << "what was not found is no search";
    }
    EXPECT_TRUE(DeleteFileW((inner + L"\\file").c_str()));
    EXPECT_TRUE(RemoveDirectoryW(inner.c_str()));
}

/// The C library in the locale `name`, for as long as this lives.
class LocaleInForce {
public:
    explicit LocaleInForce(const char* name)
        : before_(std::setlocale(LC_ALL, nullptr)), isSet_(std::setlocale(LC_ALL, name) != nullptr) {}
    ~LocaleInForce() { std::setlocale(LC_ALL, before_.c_str()); }

    LocaleInForce(const LocaleInForce&) = delete;
    LocaleInForce& operator=(const LocaleInForce&) = delete;

    bool IsSet() const { return isSet_; }

private:
    std::string before_;
    bool isSet_;
};

TEST(FormatDateTime, NamesWeekdaysAndHalvesOfTheDayInTheLocale) {
    const LocaleInForce locale("Japanese_Japan.932");
    ASSERT_TRUE(locale.IsSet());
    const DateTimeValue mayDay = ToDateTime({2024, 5, 1, 15, 4, 9});
    EXPECT_EQ(base::ToUtf8(FormatDateTime(mayDay, L"%a")), base::ToUtf8(L"水"));
    EXPECT_EQ(base::ToUtf8(FormatDateTime(mayDay, L"%A")), base::ToUtf8(L"水曜日"));
    EXPECT_EQ(base::ToUtf8(FormatDateTime(mayDay, L"%p%I時%M分%S秒")), base::ToUtf8(L"午後03時04分09秒"));
}

TEST(FormatDateTime, CopiesJapaneseTextInEveryLocale) {
    const DateTimeValue mayDay = ToDateTime({2024, 5, 1, 15, 4, 9});
    for (const char* name : {"C", "English_United States.1252", "Japanese_Japan.932", ""}) {
        const LocaleInForce locale(name);
        EXPECT_TRUE(locale.IsSet()) << name;
        EXPECT_EQ(FormatDateTime(mayDay, L"%Y年%m月%d日 ～ \xD83D\xDE00"), L"2024年05月01日 ～ \xD83D\xDE00")
            << name;
    }
}

TEST(FormatDateTime, AsksTheCLibraryForNothingThatItRefuses) {
    for (const char* name : {"C", "Japanese_Japan.932"}) {
        const LocaleInForce locale(name);
        for (const int year : {100, 1899, 1900, 2024, 9999}) {
            const std::wstring_view conversions =
                year < 1900 ? L"aAbBdHIjmMpSUwWXyY%" : L"aAbBcdHIjmMpSUwWxXyY%";
            for (const wchar_t conversion : conversions) {
                const std::wstring format{L'%', conversion};
                EXPECT_NE(FormatDateTime(ToDateTime({year, 12, 30, 1, 2, 3}), format), L"")
                    << name << ' ' << year << ' ' << base::ToUtf8(format);
            }
        }
    }
}

TEST(Scan, BoundsAFieldAsTheCheckedScanOfTheCLibraryDoes) {
    constexpr unsigned kCapacity = 1040;
    for (const std::size_t length : {std::size_t{1}, std::size_t{1038}, std::size_t{1039}, std::size_t{1040},
                                     std::size_t{1041}, std::size_t{1100}}) {
        const std::wstring text = std::wstring(length, L'資') + L" - コピー (3)";
        std::wstring field(kCapacity, L'\0');
        int number = -1;
        const int assigned = swscanf_s(text.c_str(), L"%s - コピー (%d)", field.data(), kCapacity, &number);
        const Scanned scanned = Scan(text, L"%s - コピー (%d)", kCapacity);
        EXPECT_EQ((scanned.Field.empty() ? 0 : 1) + (scanned.Number ? 1 : 0), assigned) << length;
        EXPECT_EQ(scanned.Number.value_or(-1), number) << length;
    }
}

}  // namespace
}  // namespace ferry::naming
