// The folders of this machine keep the contract of the search.
#include <windows.h>

#include "base/handles_win32.h"
#include "core/files/search_contract.h"
#include "files/disk_win32.h"
#include "windows/support_win32.h"

namespace ferry::files::contract {
namespace {

FILETIME FileTimeOf(std::uint64_t time) {
    return {static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
}

class DiskFolders final : public SearchPlace {
public:
    FolderSearch& Search() override { return search_; }
    std::wstring Folder() override { return folder_.Path() + L"\\"; }
    void AddFolder(const std::wstring& name) override { test::MakeFolders(folder_ / name); }
    void AddFile(const std::wstring& name) override { test::WriteUnits(folder_ / name, L"x"); }
    void SetTimes(const std::wstring& name, const ItemTimes& times) override {
        const base::FileHandle item(CreateFileW((folder_ / name).c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr,
                                                OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
        const FILETIME used = FileTimeOf(times.LastAccess);
        const FILETIME written = FileTimeOf(times.LastWrite);
        EXPECT_TRUE(SetFileTime(item.Get(), nullptr, &used, &written)) << GetLastError();
    }

private:
    test::TempFolder folder_;
    DiskSearch search_;
};

INSTANTIATE_TEST_SUITE_P(Disk, SearchContract, testing::Values(&test::Make<SearchPlace, DiskFolders>));

}  // namespace
}  // namespace ferry::files::contract
