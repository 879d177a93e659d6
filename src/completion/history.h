// The destinations used last, most recent first.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "settings/settings_store.h"

namespace ferry::completion {

/// A fixed number of slots, of which slot 0 is the most recent; an empty one is unused. Texts are
/// compared exactly.
class History {
public:
    static constexpr int kSlotCount = 20;

    /// The name of the value that stores slot `index`: the program's name and three digits.
    /// Throws base::InvalidArgument for an index that is no slot.
    static std::wstring ValueName(int index);

    /// The text of slot `index`. Throws base::InvalidArgument for an index that is no slot.
    const std::wstring& Slot(int index) const;

    /// The texts of the used slots, in order.
    std::vector<std::wstring> Entries() const;

    /// Moves `text` to slot 0, where it pushes the others back as far as the place where it was, or
    /// the oldest one out. An empty text changes nothing.
    void Add(std::wstring_view text);

    /// Empties every slot.
    void Clear();

    /// Reads every slot; a missing value is an empty slot.
    void Load(settings::SettingsStore& store);

    /// Writes every slot, the unused ones as empty texts.
    void Save(settings::SettingsStore& store) const;

private:
    std::array<std::wstring, kSlotCount> slots_;
};

}  // namespace ferry::completion
