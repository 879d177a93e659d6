// The registry keeps the contract of the settings store, in a root that is this test's own.
#include <windows.h>

#include <vector>

#include "base/handles_win32.h"
#include "core/settings/store_contract.h"
#include "settings/registry_store_win32.h"
#include "windows/own_root_win32.h"

namespace ferry::settings::contract {
namespace {

class RegistryPlace final : public Place {
public:
    std::unique_ptr<SettingsStore> Open(const std::wstring& programKey) override {
        return std::make_unique<RegistryStore>(programKey);
    }
    SettingsStore& Store() override { return store_; }
    bool HasKey(const std::wstring& path) override { return static_cast<bool>(OpenKey(path)); }

    std::optional<std::wstring> Text(const std::wstring& path, const std::wstring& name) override {
        const auto bytes = Bytes(path, name, REG_SZ);
        return bytes ? std::optional(TextFromValue(*bytes)) : std::nullopt;
    }

    std::optional<std::uint32_t> Number(const std::wstring& path, const std::wstring& name) override {
        const auto bytes = Bytes(path, name, REG_DWORD);
        if (!bytes || bytes->size() != sizeof(std::uint32_t))
            return std::nullopt;
        std::uint32_t number = 0;
        for (std::size_t index = 0; index < sizeof number; ++index)
            number |= std::to_integer<std::uint32_t>((*bytes)[index]) << (8 * index);
        return number;
    }

private:
    static base::RegistryKey OpenKey(const std::wstring& path) {
        base::RegistryKey key;
        RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, key.Put());
        return key;
    }

    static std::optional<std::vector<std::byte>> Bytes(const std::wstring& path, const std::wstring& name,
                                                       DWORD wantedType) {
        const base::RegistryKey key = OpenKey(path);
        std::vector<std::byte> bytes(100'000);
        auto size = static_cast<DWORD>(bytes.size());
        DWORD type = REG_NONE;
        if (!key || RegQueryValueExW(key.Get(), name.c_str(), nullptr, &type,
                                     reinterpret_cast<BYTE*>(bytes.data()), &size) != ERROR_SUCCESS)
            return std::nullopt;
        bytes.resize(size);
        return type == wantedType ? std::optional(bytes) : std::nullopt;
    }

    test::OwnRoot root_;
    RegistryStore store_{ProgramKey()};
};

INSTANTIATE_TEST_SUITE_P(Registry, StoreContract, testing::Values(&test::Make<Place, RegistryPlace>));

}  // namespace
}  // namespace ferry::settings::contract
