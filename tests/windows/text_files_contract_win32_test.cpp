// Text files on a disk keep the contract of text files.
#include <windows.h>

#include "core/lang/text_files_contract.h"
#include "lang/text_files_win32.h"
#include "windows/support_win32.h"

namespace ferry::lang::contract {
namespace {

class DiskPlace final : public Place {
public:
    TextFiles& Files() override { return files_; }
    std::wstring Path() override { return folder_ / L"Msg.ja-JP.txt"; }
    void Write(std::wstring_view units) override { test::WriteUnits(Path(), units); }
    void Remove() override { EXPECT_TRUE(DeleteFileW(Path().c_str())); }

private:
    test::TempFolder folder_;
    DiskTextFiles files_;
};

INSTANTIATE_TEST_SUITE_P(Disk, TextFilesContract, testing::Values(&test::Make<Place, DiskPlace>));

}  // namespace
}  // namespace ferry::lang::contract
