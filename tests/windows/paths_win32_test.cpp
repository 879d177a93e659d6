// Path helpers that ask the real system.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which the shell's headers build on.
#include <shlobj.h>

#include <cstring>
#include <vector>

#include "base/com_ptr_win32.h"
#include "paths/path_helpers_win32.h"
#include "paths/shell_item_win32.h"
#include "windows/recording_operation_win32.h"
#include "windows/support_win32.h"

namespace ferry::paths {
namespace {

using test::TempFolder;

std::wstring ShortName(const std::wstring& path) {
    std::wstring name(GetShortPathNameW(path.c_str(), nullptr, 0), L'\0');
    name.resize(GetShortPathNameW(path.c_str(), name.data(), static_cast<DWORD>(name.size())));
    return name;
}

TEST(ExpandLongName, ExpandsShortComponentsWithoutAPrefix) {
    const TempFolder folder;
    const std::wstring file = folder / L"a name that is longer than eight and three.text";
    test::WriteUnits(file, L"x");
    const std::wstring shortName = ShortName(file);
    if (shortName.find(L'~') == std::wstring::npos) {
        GTEST_SKIP() << "this volume keeps no short names";
    }
    EXPECT_EQ(ExpandLongName(shortName), file);
}

TEST(ExpandLongName, LeavesWhatTheSystemDoesNotKnow) {
    const TempFolder folder;
    EXPECT_EQ(ExpandLongName(folder / L"MISSIN~1.TXT"), folder / L"MISSIN~1.TXT");
    EXPECT_EQ(ExpandLongName(folder / L"plain.txt"), folder / L"plain.txt");
    EXPECT_EQ(ExpandLongName(L"\\\\?\\UNC\\srv\\share"), L"srv\\share");
    EXPECT_EQ(ExpandLongName(L""), L"");
}

/// A drop as the system hands it over; the caller frees it with DragFinish.
HDROP MakeDrop(const std::vector<std::wstring>& paths) {
    std::wstring names;
    for (const std::wstring& path : paths) {
        names += path + L'\0';
    }
    names += L'\0';
    const std::size_t bytes = names.size() * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + bytes);
    auto* const header = static_cast<DROPFILES*>(GlobalLock(memory));
    header->pFiles = sizeof(DROPFILES);
    header->fWide = TRUE;
    std::memcpy(header + 1, names.data(), bytes);
    GlobalUnlock(memory);
    return static_cast<HDROP>(memory);
}

TEST(DroppedFileName, GivesEachPathInFull) {
    const std::wstring longPath = L"C:\\" + std::wstring(400, L'n');
    const HDROP drop = MakeDrop({L"C:\\a.txt", L"\\\\?\\C:\\b", longPath});
    EXPECT_EQ(DroppedFileName(drop, 0), L"C:\\a.txt");
    EXPECT_EQ(DroppedFileName(drop, 1), L"C:\\b");
    EXPECT_EQ(DroppedFileName(drop, 2), longPath);
    EXPECT_EQ(DroppedFileName(drop, 3), L"");
    DragFinish(drop);
}

class ShellItemTest : public testing::Test {
protected:
    base::ComApartment apartment_;
    TempFolder folder_;
};

/// Whether the shell itself parses `path` as it is.
bool ShellParses(const std::wstring& path) {
    base::ComPtr<IShellItem> item;
    return SUCCEEDED(SHCreateItemFromParsingName(path.c_str(), nullptr, IID_PPV_ARGS(item.Put())));
}

TEST_F(ShellItemTest, ParsesFoldersWithAndWithoutTheirSeparator) {
    for (const std::wstring& path : {folder_.Path(), folder_.Path() + L"\\"}) {
        base::ComPtr<IShellItem> item;
        EXPECT_EQ(MakeShellItem(path, item), S_OK);
        EXPECT_TRUE(item);
    }
}

TEST_F(ShellItemTest, ParsesLongPathsInWhicheverFormTheShellTakes) {
    const std::wstring path = folder_.LongFolder() + L"\\file";
    test::WriteUnits(path, L"x");
    base::ComPtr<IShellItem> item;
    const bool isParsed = SUCCEEDED(MakeShellItem(path, item));
    EXPECT_EQ(isParsed, ShellParses(path) || ShellParses(L"\\\\?\\" + path));
    EXPECT_EQ(isParsed, static_cast<bool>(item));
}

TEST_F(ShellItemTest, MissingFileGivesNoItem) {
    base::ComPtr<IShellItem> item;
    EXPECT_TRUE(FAILED(MakeShellItem(folder_ / L"missing", item)));
    EXPECT_FALSE(item);
}

using QueueTest = ShellItemTest;

TEST_F(QueueTest, NoOperationGivesOne) {
    EXPECT_EQ(QueueCopy(nullptr, folder_.Path(), folder_ / L"b"), 1);
    EXPECT_EQ(QueueMove(nullptr, folder_.Path(), folder_ / L"b"), 1);
}

TEST_F(QueueTest, QueuesTheItemIntoTheFolderUnderItsNewName) {
    const std::wstring source = folder_ / L"a";
    test::WriteUnits(source, L"x");
    test::OperationLog log;
    test::RecordingOperation operation(log);
    EXPECT_EQ(QueueCopy(&operation, source, folder_ / L"b"), S_OK);
    EXPECT_EQ(QueueMove(&operation, source, folder_ / L"c"), S_OK);
    const std::wstring from = source + L" > " + folder_.Path() + L" as ";
    EXPECT_EQ(log.Calls, (std::vector<std::wstring>{L"CopyItem " + from + L"b", L"MoveItem " + from + L"c"}));
}

TEST_F(QueueTest, StopsAtTheFirstFailure) {
    const std::wstring source = folder_ / L"a";
    test::WriteUnits(source, L"x");
    test::OperationLog log;
    test::RecordingOperation operation(log);
    EXPECT_TRUE(FAILED(QueueCopy(&operation, folder_ / L"missing", folder_ / L"b")));
    EXPECT_TRUE(FAILED(QueueCopy(&operation, source, folder_ / L"missing\\b")));
    EXPECT_TRUE(log.Calls.empty());
}

TEST_F(QueueTest, GivesWhatTheQueueingAnswers) {
    const std::wstring source = folder_ / L"a";
    test::WriteUnits(source, L"x");
    test::OperationLog log;
    log.QueueResult = E_ACCESSDENIED;
    test::RecordingOperation operation(log);
    EXPECT_EQ(QueueMove(&operation, source, folder_ / L"b"), E_ACCESSDENIED);
}

TEST_F(QueueTest, ReleasesTheItems) {
    const std::wstring source = folder_ / L"a";
    test::WriteUnits(source, L"x");
    test::OperationLog log;
    test::RecordingOperation operation(log);
    QueueCopy(&operation, source, folder_ / L"b");
    ASSERT_EQ(log.KeptItems.size(), 2U);
    EXPECT_EQ(log.ReferencesOfKeptItems(), (std::vector<ULONG>{1, 1}));
}

}  // namespace
}  // namespace ferry::paths
