// The language of the user, as the system knows it.
#pragma once

#include "base/language.h"

namespace ferry::base {

/// Asks the system at each call, so a change of the user's language is followed.
extern const Language kSystemLanguage;

}  // namespace ferry::base
