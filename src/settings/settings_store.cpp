// The persistent settings: what a stored value's bytes mean.
#include "settings/settings_store.h"

#include "base/utf16.h"

namespace ferry::settings {

std::wstring TextFromValue(std::span<const std::byte> bytes) {
    return base::TextFromBytes(bytes);
}

}  // namespace ferry::settings
