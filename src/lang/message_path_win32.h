// Where the message file lies.
#pragma once

#include <string>
#include <string_view>

#include "settings/settings_store.h"

namespace ferry::lang {

/// The absolute path of the message file of the user's language for the executable at `modulePath`; as
/// composed when it cannot be made absolute.
std::wstring MessageFilePath(settings::SettingsStore& store, std::wstring_view modulePath);

}  // namespace ferry::lang
