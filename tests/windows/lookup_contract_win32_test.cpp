// The folders of this machine keep the contract of the lookup.
#include <windows.h>

#include "completion/folder_lookup_win32.h"
#include "core/completion/lookup_contract.h"
#include "windows/support_win32.h"

namespace ferry::completion::contract {
namespace {

class DiskPlace final : public Place {
public:
    FolderLookup& Lookup() override { return lookup_; }
    std::wstring Folder() override { return folder_.Path() + L"\\"; }
    void AddFolder(const std::wstring& name) override { test::MakeFolders(folder_ / name); }
    void AddFile(const std::wstring& name) override { test::WriteUnits(folder_ / name, L"x"); }

private:
    test::TempFolder folder_;
    WindowsFolderLookup lookup_;
};

INSTANTIATE_TEST_SUITE_P(Disk, LookupContract, testing::Values(&test::Make<Place, DiskPlace>));

}  // namespace
}  // namespace ferry::completion::contract
