// What the user's language says of letters and dates, for a C library that does not know the language.
#pragma once

#include <string>

namespace ferry::base {

/// The rules of a language. Days count from Sunday and months from January, both from 0.
struct Language {
    wchar_t (*Capital)(wchar_t unit) noexcept;
    wchar_t (*Small)(wchar_t unit) noexcept;
    std::wstring (*Weekday)(int day, bool isShort);
    std::wstring (*Month)(int month, bool isShort);
    std::wstring (*HalfOfDay)(bool isAfternoon);
};

/// The language that stands in for the locale of the C library; null as long as that locale is the user's.
const Language* StandInLanguage() noexcept;

/// Lets `language` stand in for as long as this lives. One at a time; `language` must live longer.
class LanguageInForce {
public:
    explicit LanguageInForce(const Language& language) noexcept;
    ~LanguageInForce();

    LanguageInForce(const LanguageInForce&) = delete;
    LanguageInForce& operator=(const LanguageInForce&) = delete;
};

}  // namespace ferry::base
