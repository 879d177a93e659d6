// Dropped paths, and their long forms as the system knows them.
#include <windows.h>
#include <gtest/gtest.h>

#include "controls/dropped_files.h"
#include "windows/drop_win32.h"
#include "windows/support_win32.h"

namespace ferry::controls {
namespace {

using test::TempFolder;

std::wstring ShortName(const std::wstring& path) {
    std::wstring name(GetShortPathNameW(path.c_str(), nullptr, 0), L'\0');
    name.resize(GetShortPathNameW(path.c_str(), name.data(), static_cast<DWORD>(name.size())));
    return name;
}

/// A file with a short name, on a volume that keeps them.
class ShortNameTest : public testing::Test {
protected:
    void SetUp() override {
        test::WriteUnits(file_, L"x");
        shortName_ = ShortName(file_);
        if (shortName_.find(L'~') == std::wstring::npos)
            GTEST_SKIP() << "this volume keeps no short names";
    }

    TempFolder folder_;
    std::wstring file_ = folder_ / L"a name that is longer than eight and three.text";
    std::wstring shortName_;
};

TEST_F(ShortNameTest, IsExpandedWithoutAPrefix) {
    EXPECT_EQ(ExpandLongName(shortName_), file_);
}

TEST(ExpandLongName, LeavesWhatTheSystemDoesNotKnow) {
    const TempFolder folder;
    EXPECT_EQ(ExpandLongName(folder / L"MISSIN~1.TXT"), folder / L"MISSIN~1.TXT");
    EXPECT_EQ(ExpandLongName(folder / L"plain.txt"), folder / L"plain.txt");
    EXPECT_EQ(ExpandLongName(L"\\\\?\\UNC\\srv\\share"), L"srv\\share");
    EXPECT_EQ(ExpandLongName(L""), L"");
}

TEST(DroppedFileName, GivesEachPathInFull) {
    const std::wstring longPath = L"C:\\" + std::wstring(400, L'n');
    const HDROP drop = test::MakeDrop({L"C:\\a.txt", L"\\\\?\\C:\\b", longPath});
    EXPECT_EQ(DroppedFileName(drop, 0), L"C:\\a.txt");
    EXPECT_EQ(DroppedFileName(drop, 1), L"C:\\b");
    EXPECT_EQ(DroppedFileName(drop, 2), longPath);
    EXPECT_EQ(DroppedFileName(drop, 3), L"");
    DragFinish(drop);
}

TEST_F(ShortNameTest, OfADroppedFileIsExpanded) {
    const HDROP drop = test::MakeDrop({shortName_});
    EXPECT_EQ(DroppedFileName(drop, 0), file_);
    DragFinish(drop);
}

}  // namespace
}  // namespace ferry::controls
