// The made-up folders keep the contract that the real one keeps.
#include "core/files/fake_folders.h"

#include <algorithm>

#include "core/files/search_contract.h"

namespace ferry::files::contract {
namespace {

class FakePlace final : public SearchPlace {
public:
    FakePlace() { folders_.OnlyFolder = Folder(); }

    FolderSearch& Search() override { return folders_; }
    std::wstring Folder() override { return L"C:\\Temp\\Place\\"; }
    void AddFolder(const std::wstring& name) override { folders_.Items.push_back({name, true}); }
    void AddFile(const std::wstring& name) override { folders_.Items.push_back({name, false}); }
    void SetTimes(const std::wstring& name, const ItemTimes& times) override {
        std::ranges::find(folders_.Items, name, &test::FakeFolders::Item::Name)->Times = times;
    }

private:
    test::FakeFolders folders_;
};

INSTANTIATE_TEST_SUITE_P(Fake, SearchContract, testing::Values(&test::Make<SearchPlace, FakePlace>));

}  // namespace
}  // namespace ferry::files::contract
