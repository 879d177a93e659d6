// The user's language by the system, for a C library without it.
#include "base/language_win32.h"

#include <windows.h>
#include <gtest/gtest.h>

#include <array>

#include "base/utf16.h"

namespace ferry::base {
namespace {

/// The day of `time` written by the system in the format `picture`.
std::wstring Written(const SYSTEMTIME& time, const wchar_t* picture) {
    std::array<wchar_t, 128> text{};
    GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &time, picture, text.data(), static_cast<int>(text.size()),
                    nullptr);
    return text.data();
}

TEST(SystemLanguage, ChangesTheCaseOfLettersOfEveryAlphabet) {
    for (const auto& [small, capital] :
         {std::pair{L'a', L'A'}, {L'é', L'É'}, {L'ａ', L'Ａ'}, {L'я', L'Я'}, {L'ω', L'Ω'}}) {
        EXPECT_EQ(kSystemLanguage.Capital(small), capital);
        EXPECT_EQ(kSystemLanguage.Small(capital), small);
        EXPECT_EQ(kSystemLanguage.Capital(capital), capital);
        EXPECT_EQ(kSystemLanguage.Small(small), small);
    }
    for (const wchar_t unit : {L'1', L'資', L'ア', L'ß', L'_'}) {
        EXPECT_EQ(kSystemLanguage.Capital(unit), unit);
        EXPECT_EQ(kSystemLanguage.Small(unit), unit);
    }
}

TEST(SystemLanguage, NamesWeekdaysAsTheSystemWritesThem) {
    for (int day = 0; day < 7; ++day) {
        // 5 May 2024 was a Sunday.
        const SYSTEMTIME time{2024, 5, 0, static_cast<WORD>(5 + day), 0, 0, 0, 0};
        EXPECT_EQ(ToUtf8(kSystemLanguage.Weekday(day, false)), ToUtf8(Written(time, L"dddd")));
        EXPECT_EQ(ToUtf8(kSystemLanguage.Weekday(day, true)), ToUtf8(Written(time, L"ddd")));
    }
}

TEST(SystemLanguage, NamesMonthsAsTheSystemWritesThem) {
    for (int month = 0; month < 12; ++month) {
        const SYSTEMTIME time{2024, static_cast<WORD>(month + 1), 0, 1, 0, 0, 0, 0};
        EXPECT_EQ(ToUtf8(kSystemLanguage.Month(month, false)), ToUtf8(Written(time, L"MMMM")));
        EXPECT_EQ(ToUtf8(kSystemLanguage.Month(month, true)), ToUtf8(Written(time, L"MMM")));
    }
}

TEST(SystemLanguage, NamesTheHalvesOfTheDay) {
    for (const bool isAfternoon : {false, true}) {
        const SYSTEMTIME time{2024, 5, 0, 1, static_cast<WORD>(isAfternoon ? 12 : 11), 0, 0, 0};
        std::array<wchar_t, 128> text{};
        GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &time, L"tt", text.data(),
                        static_cast<int>(text.size()));
        EXPECT_EQ(ToUtf8(kSystemLanguage.HalfOfDay(isAfternoon)), ToUtf8(text.data()));
    }
}

}  // namespace
}  // namespace ferry::base
