// Settings in memory, for the tests of whatever reads and writes them. They keep the store's contract.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/case_order.h"
#include "base/utf16.h"
#include "settings/settings_store.h"

namespace ferry::test {

using TextValues = std::map<std::wstring, std::wstring>;
using NumberValues = std::map<std::wstring, std::uint32_t>;

/// A store whose values are its members. It keeps the names of the values that were written to the
/// program's key, in their order.
class MemoryStore : public settings::SettingsStore {
public:
    explicit MemoryStore(std::wstring programKey = std::wstring(settings::kProgramKeyPrefix) +
                                                   settings::kProgramName)
        : programKey_(std::move(programKey)) {}

    std::wstring ReadText(std::wstring_view name, std::wstring_view defaultText) override {
        return TextIn(programKey_, name, defaultText);
    }
    std::uint32_t ReadNumber(std::wstring_view name, std::uint32_t defaultNumber) override {
        return NumberIn(programKey_, name, defaultNumber);
    }
    bool WriteText(std::wstring_view name, std::wstring_view text) override {
        return WriteTextToKey(programKey_, name, text);
    }
    bool WriteNumber(std::wstring_view name, std::uint32_t number) override {
        return WriteNumberToKey(programKey_, name, number);
    }
    std::wstring ReadHostText(std::wstring_view name, std::wstring_view defaultText) override {
        ++HostReads;
        return TextIn(settings::kHostKey, name, defaultText);
    }
    std::uint32_t ReadHostNumber(std::wstring_view name) override {
        ++HostReads;
        return NumberIn(settings::kHostKey, name, 0);
    }
    bool WriteTextToKey(std::wstring_view key, std::wstring_view name, std::wstring_view text) override {
        const std::optional<Key> place = KeyToWrite(key, name);
        if (place)
            place->Texts[std::wstring(name)] = text;
        return place.has_value();
    }
    bool WriteNumberToKey(std::wstring_view key, std::wstring_view name, std::uint32_t number) override {
        const std::optional<Key> place = KeyToWrite(key, name);
        if (place)
            place->Numbers[std::wstring(name)] = number;
        return place.has_value();
    }

    /// Whether there is a key at `path`; every call that touches a key makes it, with those above it.
    bool HasKey(std::wstring_view path) const {
        return std::ranges::any_of(OtherKeys, [&](const auto& key) {
            const std::wstring start = (key.first + L'\\').substr(0, path.size() + 1);
            return base::EqualsIgnoringCase(start, std::wstring(path) + L'\\');
        });
    }

    /// The values of one key. A name has one value, a text or a number.
    struct Values {
        TextValues Texts;
        NumberValues Numbers;
    };

    TextValues Texts;
    NumberValues Numbers;
    TextValues HostTexts;
    NumberValues HostNumbers;
    std::map<std::wstring, Values> OtherKeys;  ///< Every key that was made; those above lie empty here.
    std::vector<std::wstring> Writes;          ///< To the program's key; refused ones, too.
    bool RefusesWrites = false;                ///< As a registry does that may only be read.
    int HostReads = 0;

private:
    struct Key {
        TextValues& Texts;
        NumberValues& Numbers;
    };

    /// The entry called `name`, in whatever case.
    template <class Entries>
    static auto Find(Entries& entries, std::wstring_view name) {
        return std::ranges::find_if(
            entries, [&](const auto& entry) { return base::EqualsIgnoringCase(entry.first, name); });
    }

    template <class Entries>
    static void Remove(Entries& entries, std::wstring_view name) {
        if (const auto found = Find(entries, name); found != entries.end())
            entries.erase(found);
    }

    /// The key at `path`, made when it is missing; nothing for a path that no key can have.
    std::optional<Key> KeyAt(std::wstring_view path) {
        constexpr std::size_t kLongestName = 255;
        for (std::size_t start = 0; start <= path.size();) {
            const std::size_t end = std::min(path.find(L'\\', start), path.size());
            if (end - start > kLongestName)
                return std::nullopt;
            start = end + 1;
        }
        if (Find(OtherKeys, path) == OtherKeys.end())
            OtherKeys[std::wstring(path)];
        if (base::EqualsIgnoringCase(path, programKey_))
            return Key{Texts, Numbers};
        if (base::EqualsIgnoringCase(path, settings::kHostKey))
            return Key{HostTexts, HostNumbers};
        Values& values = Find(OtherKeys, path)->second;
        return Key{values.Texts, values.Numbers};
    }

    /// The key at `path` without its old value of that name; nothing when it cannot be written.
    std::optional<Key> KeyToWrite(std::wstring_view path, std::wstring_view name) {
        if (base::EqualsIgnoringCase(path, programKey_))
            Writes.emplace_back(name);
        const std::optional<Key> key = RefusesWrites ? std::nullopt : KeyAt(path);
        if (key) {
            Remove(key->Texts, name);
            Remove(key->Numbers, name);
        }
        return key;
    }

    /// What a query of `limit` bytes gives of a value: a text comes with its terminator where there is room
    /// for one. Nothing when the value is missing or too long.
    std::optional<std::vector<std::byte>> Query(std::wstring_view path, std::wstring_view name,
                                                std::size_t limit) {
        const std::optional<Key> key = KeyAt(path);
        if (!key)
            return std::nullopt;
        std::wstring units;
        if (const auto text = Find(key->Texts, name); text != key->Texts.end()) {
            units = text->second;
            if (!units.empty() && units.size() * 2 + 2 <= limit)
                units.push_back(L'\0');
        } else if (const auto number = Find(key->Numbers, name); number != key->Numbers.end()) {
            units = {static_cast<wchar_t>(number->second & 0xFFFF),
                     static_cast<wchar_t>(number->second >> 16)};
        } else {
            return std::nullopt;
        }
        return units.size() * 2 > limit ? std::nullopt : std::optional(base::BytesFromUnits(units));
    }

    std::wstring TextIn(std::wstring_view path, std::wstring_view name, std::wstring_view defaultText) {
        const auto value = Query(path, name, settings::kMaxTextBytes);
        if (!value)
            return std::wstring(defaultText);
        // The value lies over the default, which stands where the value has no byte.
        std::vector<std::byte> bytes = base::BytesFromUnits(defaultText.substr(0, settings::kMaxTextBytes));
        bytes.resize(std::max(bytes.size(), value->size()));
        std::ranges::copy(*value, bytes.begin());
        return settings::TextFromValue(bytes);
    }

    std::uint32_t NumberIn(std::wstring_view path, std::wstring_view name, std::uint32_t defaultNumber) {
        const auto value = Query(path, name, sizeof(std::uint32_t));
        std::uint32_t number = defaultNumber;
        for (std::size_t index = 0; value && index < value->size(); ++index) {
            const std::size_t shift = 8 * index;
            number &= ~(std::uint32_t{0xFF} << shift);
            number |= std::to_integer<std::uint32_t>((*value)[index]) << shift;
        }
        return number;
    }

    std::wstring programKey_;
};

}  // namespace ferry::test
