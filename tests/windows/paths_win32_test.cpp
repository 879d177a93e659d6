// Path helpers that ask the real system.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which the shell's headers build on.
#include <shlobj.h>

#include <vector>

#include "base/com_ptr_win32.h"
#include "paths/path_helpers_win32.h"
#include "paths/shell_item_win32.h"
#include "windows/drop_win32.h"
#include "windows/recording_operation_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::paths {
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

class ShellItemTest : public testing::Test {
protected:
    base::ComApartment apartment_;
    TempFolder folder_;
};

TEST_F(ShellItemTest, ParsesFoldersWithAndWithoutTheirSeparator) {
    for (const std::wstring& path : {folder_.Path(), folder_.Path() + L"\\"}) {
        base::ComPtr<IShellItem> item;
        EXPECT_EQ(MakeShellItem(path, item), S_OK);
        EXPECT_TRUE(item);
    }
}

/// A shell that parses one form of paths only; what it parses is an item of the folder `any`.
class PickyShell {
public:
    PickyShell(const std::wstring& any, bool takesPrefixed)
        : parse_(
              "SHCreateItemFromParsingName",
              [this, any, takesPrefixed](PCWSTR path, IBindCtx* context, REFIID id, void** item) -> HRESULT {
                  Asked.emplace_back(path);
                  *item = nullptr;
                  if (Asked.back().starts_with(L"\\\\?\\") != takesPrefixed) {
                      return kRefused + static_cast<HRESULT>(Asked.size());
                  }
                  return parse_.CallReal(any.c_str(), context, id, item);
              }) {}

    static constexpr HRESULT kRefused = static_cast<HRESULT>(0x80040000);

    std::vector<std::wstring> Asked;

private:
    test::WatchedImport<&SHCreateItemFromParsingName> parse_;
};

TEST_F(ShellItemTest, OfALongPathIsMadeFromThePlainFormWhereTheShellTakesIt) {
    const std::wstring path = L"C:\\" + std::wstring(300, L'd');
    const PickyShell shell(folder_.Path(), false);
    base::ComPtr<IShellItem> item;
    EXPECT_EQ(MakeShellItem(path, item), S_OK);
    EXPECT_TRUE(item);
    EXPECT_EQ(shell.Asked, (std::vector{path}));
}

TEST_F(ShellItemTest, OfALongPathIsMadeFromThePrefixedFormWhereTheShellWantsThat) {
    const std::wstring path = L"C:\\" + std::wstring(300, L'd');
    const PickyShell shell(folder_.Path(), true);
    base::ComPtr<IShellItem> item;
    EXPECT_EQ(MakeShellItem(path, item), S_OK);
    EXPECT_TRUE(item);
    EXPECT_EQ(shell.Asked, (std::vector{path, L"\\\\?\\" + path}));
}

TEST_F(ShellItemTest, OfAShortPathIsAskedForOnce) {
    const PickyShell shell(folder_.Path(), true);
    base::ComPtr<IShellItem> item;
    EXPECT_EQ(MakeShellItem(L"C:\\short", item), PickyShell::kRefused + 1);
    EXPECT_FALSE(item);
    EXPECT_EQ(shell.Asked, std::vector<std::wstring>{L"C:\\short"});
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

TEST_F(QueueTest, WithoutAFolderPassesNone) {
    const std::wstring source = folder_ / L"a";
    test::WriteUnits(source, L"x");
    test::OperationLog log;
    test::RecordingOperation operation(log);
    EXPECT_EQ(QueueCopy(&operation, source, L""), S_OK);
    EXPECT_EQ(log.Calls, std::vector<std::wstring>{L"CopyItem " + source + L" > (none) as "});
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
