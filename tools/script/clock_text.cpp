#include "clock_text.h"

#include <algorithm>
#include <cstddef>

#include "base/text.h"

namespace ferry::scripttools {

namespace {

/// How the text looks, with "0" for any digit.
constexpr std::wstring_view kForm = L"0000-00-00 00:00:00";

bool HasForm(std::wstring_view text) noexcept {
    return std::ranges::equal(text, kForm, [](wchar_t unit, wchar_t form) {
        return form == L'0' ? base::IsDigit(unit) : unit == form;
    });
}

}  // namespace

std::optional<calendar::CalendarFields> ClockFromText(std::wstring_view text) {
    if (!HasForm(text))
        return std::nullopt;
    const auto number = [text](std::size_t at, std::size_t count) {
        return base::ToInt(text.substr(at, count));
    };
    const calendar::CalendarFields fields{number(0, 4),  number(5, 2),  number(8, 2),
                                          number(11, 2), number(14, 2), number(17, 2)};
    const bool isThere = calendar::ToDateTime(fields).Status == calendar::DateTimeStatus::Valid;
    return isThere ? std::optional(fields) : std::nullopt;
}

}  // namespace ferry::scripttools
