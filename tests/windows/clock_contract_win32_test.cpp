// The system's clock and the times of real items keep the contract of the clock.
#include <windows.h>

#include "base/handles_win32.h"
#include "core/naming/clock_contract.h"
#include "naming/clock_win32.h"
#include "windows/local_times_win32.h"
#include "windows/support_win32.h"

namespace ferry::naming::contract {
namespace {

class DiskPlace final : public Place {
public:
    DiskPlace() {
        test::WriteUnits(file_, L"x");
        test::MakeFolders(inner_);
        test::WriteUnits(deepFile_, L"x");
        for (const std::wstring& path : {file_, inner_, deepFile_})
            SetTimes(path);
    }

    Clock& TheClock() override { return clock_; }
    std::wstring File() override { return file_; }
    std::wstring Folder() override { return inner_; }
    std::wstring DeepFile() override { return deepFile_; }
    std::wstring Nothing() override { return folder_ / L"nothing"; }

private:
    static void SetTimes(const std::wstring& path) {
        const base::FileHandle item(CreateFileW((L"\\\\?\\" + path).c_str(), FILE_WRITE_ATTRIBUTES, 0,
                                                nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
        const FILETIME written = test::FileTimeOfLocal(kWritten);
        const FILETIME read = test::FileTimeOfLocal(kRead);
        EXPECT_TRUE(SetFileTime(item.Get(), nullptr, &read, &written)) << GetLastError();
    }

    test::TempFolder folder_;
    std::wstring file_ = folder_ / L"Memo 資料.txt";
    std::wstring inner_ = folder_ / L"Folder";
    std::wstring deepFile_ = folder_.LongFolder() + L"\\file";
    SystemClock clock_;
};

INSTANTIATE_TEST_SUITE_P(Disk, ClockContract, testing::Values(&test::Make<Place, DiskPlace>));

}  // namespace
}  // namespace ferry::naming::contract
