// The adapters keep the contract on a real disk with the real shell.
#include <windows.h>

#include <cstddef>
#include <span>

#include "base/com_ptr_win32.h"
#include "base/handles_win32.h"
#include "core/transfer/port_contract.h"
#include "desktop/shell_operations_win32.h"
#include "files/disk_win32.h"
#include "windows/support_win32.h"

namespace ferry::transfer::contract {
namespace {

class DiskPlace final : public Place {
public:
    files::FileInfo& Info() override { return info_; }
    files::FolderSearch& Search() override { return search_; }
    files::FileChanges& Changes() override { return changes_; }
    ShellOperations& Shell() override { return shell_; }
    bool HasShell() const override { return test::ShellTransfers(); }
    std::wstring Root() const override { return folder_.Path(); }

    void WriteFile(const std::wstring& path, const std::string& content, std::uint64_t time) override {
        const auto bytes = std::as_bytes(std::span(content));
        test::WriteBytes(path, {bytes.begin(), bytes.end()});
        SetTime(path, time);
    }

    void SetTime(const std::wstring& path, std::uint64_t time) override {
        const FILETIME written{static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
        const base::FileHandle item(CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr,
                                                OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
        EXPECT_TRUE(SetFileTime(item.Get(), nullptr, nullptr, &written));
    }

    std::optional<std::string> ReadFile(const std::wstring& path) override {
        const auto bytes = test::ReadBytes(path);
        if (!bytes)
            return std::nullopt;
        return std::string(reinterpret_cast<const char*>(bytes->data()), bytes->size());
    }

private:
    base::ComApartment apartment_;
    test::TempFolder folder_;
    files::DiskInfo info_;
    files::DiskSearch search_;
    files::DiskChanges changes_;
    desktop::WindowsShellOperations shell_{nullptr, info_};
};

INSTANTIATE_TEST_SUITE_P(Disk, FileSystemContract, testing::Values(&test::Make<Place, DiskPlace>));
INSTANTIATE_TEST_SUITE_P(Disk, ShellContract, testing::Values(&test::Make<Place, DiskPlace>));

}  // namespace
}  // namespace ferry::transfer::contract
