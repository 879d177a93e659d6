// The destinations used last, most recent first.
#include "completion/history.h"

#include <algorithm>

#include "base/invalid_argument.h"

namespace ferry::completion {

namespace {

constexpr std::size_t kIndexDigits = 3;

void RequireSlot(int index) {
    if (index < 0 || index >= History::kSlotCount) {
        throw base::InvalidArgument();
    }
}

}  // namespace

std::wstring History::ValueName(int index) {
    RequireSlot(index);
    const std::wstring digits = std::to_wstring(index);
    return std::wstring(settings::kProgramName).append(kIndexDigits - digits.size(), L'0').append(digits);
}

const std::wstring& History::Slot(int index) const {
    RequireSlot(index);
    return slots_[static_cast<std::size_t>(index)];
}

std::vector<std::wstring> History::Entries() const {
    std::vector<std::wstring> entries;
    std::ranges::copy_if(slots_, std::back_inserter(entries),
                         [](const std::wstring& slot) { return !slot.empty(); });
    return entries;
}

void History::Add(std::wstring_view text) {
    if (text.empty()) {
        return;
    }
    // Without a match the last slot is the one that is given up.
    auto place = std::ranges::find(slots_, text);
    if (place == slots_.end()) {
        --place;
        *place = text;
    }
    std::rotate(slots_.begin(), place, place + 1);
}

void History::Clear() {
    slots_.fill({});
}

void History::Load(settings::SettingsStore& store) {
    for (int index = 0; index < kSlotCount; ++index) {
        slots_[static_cast<std::size_t>(index)] = store.ReadText(ValueName(index), L"");
    }
}

void History::Save(settings::SettingsStore& store) const {
    for (int index = 0; index < kSlotCount; ++index) {
        // A store that cannot be written keeps what it had; nobody is told.
        static_cast<void>(store.WriteText(ValueName(index), Slot(index)));
    }
}

}  // namespace ferry::completion
