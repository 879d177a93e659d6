// What the user's language says of letters and dates, for a C library that does not know the language.
#include "base/language.h"

namespace ferry::base {

namespace {

/// Of the process, like the locale that it stands in for.
const Language*& Current() noexcept {
    static const Language* current = nullptr;
    return current;
}

}  // namespace

const Language* StandInLanguage() noexcept {
    return Current();
}

LanguageInForce::LanguageInForce(const Language& language) noexcept {
    Current() = &language;
}

LanguageInForce::~LanguageInForce() {
    Current() = nullptr;
}

}  // namespace ferry::base
