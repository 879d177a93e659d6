// The settings in memory keep the contract that the registry keeps.
#include "core/settings/memory_store.h"

#include "core/settings/store_contract.h"

namespace ferry::settings::contract {
namespace {

template <class Entries>
auto ValueIn(const Entries& entries, const std::wstring& name) {
    const auto found = entries.find(name);
    return found == entries.end() ? std::nullopt : std::optional(found->second);
}

class MemoryPlace final : public Place {
public:
    std::unique_ptr<SettingsStore> Open(const std::wstring& programKey) override {
        return std::make_unique<test::MemoryStore>(programKey);
    }
    SettingsStore& Store() override { return store_; }
    bool HasKey(const std::wstring& path) override { return store_.HasKey(path); }

    std::optional<std::wstring> Text(const std::wstring& path, const std::wstring& name) override {
        return ValueIn(path == ProgramKey() ? store_.Texts : store_.OtherKeys[path].Texts, name);
    }
    std::optional<std::uint32_t> Number(const std::wstring& path, const std::wstring& name) override {
        return ValueIn(path == ProgramKey() ? store_.Numbers : store_.OtherKeys[path].Numbers, name);
    }

private:
    test::MemoryStore store_;
};

INSTANTIATE_TEST_SUITE_P(Memory, StoreContract, testing::Values(&test::Make<Place, MemoryPlace>));

}  // namespace
}  // namespace ferry::settings::contract
