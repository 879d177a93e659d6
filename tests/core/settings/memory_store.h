// Settings in memory, for the tests of whatever reads and writes them.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "settings/settings_store.h"

namespace ferry::test {

/// A store whose host has no numbers. It keeps the names of the written values in their order.
class MemoryStore : public settings::SettingsStore {
public:
    std::wstring ReadText(std::wstring_view name, std::wstring_view defaultText) override {
        return Read(Texts, name, std::wstring(defaultText));
    }
    std::uint32_t ReadNumber(std::wstring_view name, std::uint32_t defaultNumber) override {
        return Read(Numbers, name, defaultNumber);
    }
    bool WriteText(std::wstring_view name, std::wstring_view text) override {
        Texts[Writes.emplace_back(name)] = text;
        return true;
    }
    bool WriteNumber(std::wstring_view name, std::uint32_t number) override {
        Numbers[Writes.emplace_back(name)] = number;
        return true;
    }
    std::wstring ReadHostText(std::wstring_view name, std::wstring_view defaultText) override {
        return Read(HostTexts, name, std::wstring(defaultText));
    }
    std::uint32_t ReadHostNumber(std::wstring_view) override { return 0; }
    bool WriteTextToKey(std::wstring_view, std::wstring_view, std::wstring_view) override { return false; }
    bool WriteNumberToKey(std::wstring_view, std::wstring_view, std::uint32_t) override { return false; }

    std::map<std::wstring, std::wstring> Texts;
    std::map<std::wstring, std::wstring> HostTexts;
    std::map<std::wstring, std::uint32_t> Numbers;
    std::vector<std::wstring> Writes;

private:
    template <class Value>
    static Value Read(const std::map<std::wstring, Value>& values, std::wstring_view name,
                      Value defaultValue) {
        const auto found = values.find(std::wstring(name));
        return found == values.end() ? defaultValue : found->second;
    }
};

}  // namespace ferry::test
