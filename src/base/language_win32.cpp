#include "base/language_win32.h"

#include <windows.h>

#include <array>

namespace ferry::base {

namespace {

/// `unit` alone by the simple case mapping; itself where the system has none for it.
wchar_t Mapped(wchar_t unit, DWORD mapping) noexcept {
    wchar_t mapped = unit;
    const int length =
        LCMapStringEx(LOCALE_NAME_USER_DEFAULT, mapping, &unit, 1, &mapped, 1, nullptr, nullptr, 0);
    return length == 1 ? mapped : unit;
}

wchar_t CapitalOf(wchar_t unit) noexcept {
    return Mapped(unit, LCMAP_UPPERCASE);
}

wchar_t SmallOf(wchar_t unit) noexcept {
    return Mapped(unit, LCMAP_LOWERCASE);
}

std::wstring NameOf(LCTYPE type) {
    // The system's own limit for these names is 80 units.
    std::array<wchar_t, 128> name{};
    const int length =
        GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, type, name.data(), static_cast<int>(name.size()));
    return length > 0 ? std::wstring(name.data()) : std::wstring();
}

std::wstring WeekdayName(int day, bool isShort) {
    // The system's first day is Monday.
    const auto place = static_cast<LCTYPE>((day + 6) % 7);
    return NameOf((isShort ? LOCALE_SABBREVDAYNAME1 : LOCALE_SDAYNAME1) + place);
}

std::wstring MonthName(int month, bool isShort) {
    return NameOf((isShort ? LOCALE_SABBREVMONTHNAME1 : LOCALE_SMONTHNAME1) + static_cast<LCTYPE>(month));
}

std::wstring HalfOfDayName(bool isAfternoon) {
    return NameOf(isAfternoon ? LOCALE_S2359 : LOCALE_S1159);
}

}  // namespace

const Language kSystemLanguage{&CapitalOf, &SmallOf, &WeekdayName, &MonthName, &HalfOfDayName};

}  // namespace ferry::base
