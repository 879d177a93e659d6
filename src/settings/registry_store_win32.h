// The settings in the current user's registry.
#pragma once

#include <string>
#include <string_view>

#include "settings/settings_store.h"

namespace ferry::settings {

/// The store over HKEY_CURRENT_USER. No key stays open between calls; every call, a read too,
/// creates the key that it touches.
class RegistryStore : public SettingsStore {
public:
    /// `programKey` is the path of the program's own key below HKEY_CURRENT_USER.
    explicit RegistryStore(std::wstring programKey) : programKey_(std::move(programKey)) {}

    std::wstring ReadText(std::wstring_view name, std::wstring_view defaultText) override;
    std::uint32_t ReadNumber(std::wstring_view name, std::uint32_t defaultNumber) override;
    bool WriteText(std::wstring_view name, std::wstring_view text) override;
    bool WriteNumber(std::wstring_view name, std::uint32_t number) override;

    std::wstring ReadHostText(std::wstring_view name, std::wstring_view defaultText) override;
    std::uint32_t ReadHostNumber(std::wstring_view name) override;

    bool WriteTextToKey(std::wstring_view key, std::wstring_view name, std::wstring_view text) override;
    bool WriteNumberToKey(std::wstring_view key, std::wstring_view name, std::uint32_t number) override;

private:
    std::wstring programKey_;
};

}  // namespace ferry::settings
