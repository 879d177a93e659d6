// The made-up file system keeps the contract that the real one keeps.
#include "core/completion/fake_lookup.h"

#include "core/completion/lookup_contract.h"

namespace ferry::completion::contract {
namespace {

class FakePlace final : public Place {
public:
    FakePlace() { lookup_.OnlyFolder = Folder(); }

    FolderLookup& Lookup() override { return lookup_; }
    std::wstring Folder() override { return L"C:\\Temp\\Place\\"; }
    void AddFolder(const std::wstring& name) override { lookup_.Items.push_back({name, true}); }
    void AddFile(const std::wstring& name) override { lookup_.Items.push_back({name, false}); }

private:
    test::FakeLookup lookup_;
};

INSTANTIATE_TEST_SUITE_P(Fake, LookupContract, testing::Values(&test::Make<Place, FakePlace>));

}  // namespace
}  // namespace ferry::completion::contract
