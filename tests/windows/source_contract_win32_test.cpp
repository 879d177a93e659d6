// The message file on a disk keeps the contract of the catalogue's source.
#include <windows.h>

#include "core/lang/source_contract.h"
#include "core/settings/memory_store.h"
#include "lang/message_file_win32.h"
#include "windows/support_win32.h"

namespace ferry::lang::contract {
namespace {

class DiskPlace final : public Place {
public:
    DiskPlace() {
        test::MakeFolders(folder_ / L"Command\\Ferry");
        test::MakeFolders(folder_ / L"Lang");
    }

    CatalogueSource& Source() override { return file_; }
    void Write(std::wstring_view units) override { test::WriteUnits(path_, units); }
    void Remove() override { EXPECT_TRUE(DeleteFileW(path_.c_str())); }

    bool Reports() override {
        auto box = test::AnswerNextBox(IDOK);
        file_.ReportCannotOpen();
        return box.get() == L"Cannot open message file.\n" + path_;
    }

private:
    test::TempFolder folder_;
    std::wstring path_ = folder_ / L"Lang\\Msg.ja-JP.txt";
    test::MemoryStore store_;
    MessageFile file_{store_, folder_ / L"Command\\Ferry\\Ferry.exe"};
};

INSTANTIATE_TEST_SUITE_P(Disk, SourceContract, testing::Values(&test::Make<Place, DiskPlace>));

}  // namespace
}  // namespace ferry::lang::contract
