// What the program relies on in its settings store. The store in memory and the registry are held against
// the same tests.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "settings/settings_store.h"
#include "support/contract.h"

namespace ferry::settings::contract {

/// A store under test, and looks at its keys by other means. Every key is missing at first.
class Place {
public:
    virtual ~Place() = default;

    /// A store with the key `programKey` of its own.
    virtual std::unique_ptr<SettingsStore> Open(const std::wstring& programKey) = 0;

    /// The store whose keys can be looked at.
    virtual SettingsStore& Store() = 0;

    /// Whether there is a key at `path`.
    virtual bool HasKey(const std::wstring& path) = 0;

    /// What is stored under `name` in the key at `path`; nothing when it is missing or of the other type.
    virtual std::optional<std::wstring> Text(const std::wstring& path, const std::wstring& name) = 0;
    virtual std::optional<std::uint32_t> Number(const std::wstring& path, const std::wstring& name) = 0;
};

/// The program's own key.
inline std::wstring ProgramKey() {
    return std::wstring(kProgramKeyPrefix) + kProgramName;
}

class StoreContract : public test::ContractOf<Place> {
protected:
    bool HasKey(const std::wstring& path) { return AtPlace().HasKey(path); }
    SettingsStore& Store() { return AtPlace().Store(); }
};

}  // namespace ferry::settings::contract
