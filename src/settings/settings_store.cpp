// The persistent settings: what a stored value's bytes mean.
#include "settings/settings_store.h"

#include <algorithm>

#include "base/utf16.h"

namespace ferry::settings {

std::wstring TextFromValue(std::span<const std::byte> bytes) {
    std::wstring text = base::UnitsFromBytes(bytes);
    text.resize(std::min(text.find(L'\0'), text.size()));
    return text;
}

}  // namespace ferry::settings
