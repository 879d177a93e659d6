// The calls that reach the shell's file operation, and real transfers where it can do them.
#include <windows.h>
#include <gtest/gtest.h>

#include <vector>

#include "base/com_ptr_win32.h"
#include "base/handles_win32.h"
#include "paths/shell_item_win32.h"
#include "transfer/shell_operations_win32.h"
#include "windows/recording_operation_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::transfer {
namespace {

using Calls = std::vector<std::wstring>;

/// A folder with the files a and b and an empty folder "to".
class ShellOperationsTest : public testing::Test {
protected:
    ShellOperationsTest() {
        test::WriteUnits(a_, L"first");
        test::WriteUnits(b_, L"second");
        test::MakeFolders(to_);
    }

    base::ComApartment apartment_;
    test::TempFolder folder_;
    std::wstring a_ = folder_ / L"a.txt";
    std::wstring b_ = folder_ / L"b.txt";
    std::wstring to_ = folder_ / L"to";
    std::wstring destination_ = to_ + L"\\";
    test::TestWindow window_{
        CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr)};
    HWND owner_ = window_.Get();
    WindowsShellOperations shell_{owner_};
};

std::wstring OwnerCall(HWND owner) {
    return L"SetOwnerWindow " + std::to_wstring(reinterpret_cast<UINT_PTR>(owner));
}

class RecordedOperationsTest : public ShellOperationsTest {
protected:
    test::OperationLog log_;
    test::RecordingClass class_{log_};
};

TEST_F(RecordedOperationsTest, BatchCopiesEverySourceInOrderAndSkipsWhatCannotBeParsed) {
    base::TextList sources;
    sources.Append(b_);
    sources.Append(folder_ / L"missing");
    sources.Append(a_);
    EXPECT_EQ(shell_.TransferBatch(sources, destination_, kFunctionCopy, 0x2800), S_OK);
    EXPECT_EQ(log_.Calls, (Calls{L"CopyItems " + b_ + L" > " + to_, L"CopyItems " + a_ + L" > " + to_,
                                 OwnerCall(GetDesktopWindow()),
                                 L"SetOperationFlags " + std::to_wstring(0x2840), L"PerformOperations"}));
}

TEST_F(RecordedOperationsTest, BatchMovesAndPassesTheLowSixteenBitsOfTheFlags) {
    base::TextList sources;
    sources.Append(a_);
    log_.PerformResult = E_ACCESSDENIED;
    EXPECT_EQ(shell_.TransferBatch(sources, destination_, kFunctionMove, 0xABCD2810), E_ACCESSDENIED);
    EXPECT_EQ(log_.Calls, (Calls{L"MoveItems " + a_ + L" > " + to_, OwnerCall(GetDesktopWindow()),
                                 L"SetOperationFlags " + std::to_wstring(0x2850), L"PerformOperations"}));
}

TEST_F(RecordedOperationsTest, BatchIntoAMissingFolderQueuesNothing) {
    base::TextList sources;
    sources.Append(a_);
    shell_.TransferBatch(sources, folder_ / L"missing\\", kFunctionCopy, 0x2800);
    EXPECT_EQ(log_.Calls.front(), OwnerCall(GetDesktopWindow()));
}

TEST_F(RecordedOperationsTest, NoOperationObjectGivesOne) {
    log_.CreateResult = E_OUTOFMEMORY;
    base::TextList sources;
    sources.Append(a_);
    EXPECT_EQ(shell_.TransferBatch(sources, destination_, kFunctionCopy, 0), 1);
    EXPECT_EQ(shell_.TransferFile({a_, destination_, {}, kFunctionCopy, 0, true}).Result, 1);
    EXPECT_EQ(shell_.TransferFile({a_, destination_, L"new", kFunctionCopy, 0, true}).Result, 1);
    EXPECT_TRUE(log_.Calls.empty());
}

TEST_F(RecordedOperationsTest, TheOperationMayComeFromAnyKindOfServer) {
    constexpr DWORD kAnyServer = 0x17;
    const test::WatchedImport<&CoCreateInstance> create("CoCreateInstance");
    shell_.TransferFile({a_, destination_, {}, kFunctionCopy, 0, true});
    const auto [classId, outer, servers, interfaceId, object] = create.OnlyCall();
    EXPECT_TRUE(IsEqualGUID(classId, CLSID_FileOperation));
    EXPECT_EQ(outer, nullptr);
    EXPECT_EQ(servers, kAnyServer);
    EXPECT_TRUE(IsEqualGUID(interfaceId, IID_IFileOperation));
    base::TextList sources;
    sources.Append(a_);
    shell_.TransferBatch(sources, destination_, kFunctionCopy, 0);
    EXPECT_EQ(std::get<2>(create.Calls().back()), kAnyServer);
}

TEST_F(RecordedOperationsTest, FileKeepsItsNameAndItsFlagsAndTellsWhetherItWasAborted) {
    log_.PerformResult = S_FALSE;
    log_.IsAborted = TRUE;
    const ShellOutcome outcome = shell_.TransferFile({a_, destination_, {}, kFunctionMove, 0x2A14, true});
    EXPECT_EQ(outcome.Result, S_FALSE);
    EXPECT_TRUE(outcome.Aborted);
    EXPECT_EQ(log_.Calls, (Calls{L"MoveItems " + a_ + L" > " + to_, OwnerCall(owner_),
                                 L"SetOperationFlags " + std::to_wstring(0x2A14), L"PerformOperations",
                                 L"GetAnyOperationsAborted"}));
}

TEST_F(RecordedOperationsTest, AbortIsNotAskedUnlessWanted) {
    log_.IsAborted = TRUE;
    EXPECT_FALSE(shell_.TransferFile({a_, destination_, {}, kFunctionCopy, 0, false}).Aborted);
    EXPECT_EQ(log_.Calls.front(), L"CopyItems " + a_ + L" > " + to_);
    EXPECT_EQ(log_.Calls.back(), L"PerformOperations");
}

TEST_F(RecordedOperationsTest, FileUnderANewNameIsQueuedWithThatName) {
    shell_.TransferFile({a_, destination_, L"new.txt", kFunctionCopy, 0x2A04, false});
    shell_.TransferFile({b_, destination_, L"other.txt", kFunctionMove, 0x2A04, false});
    const std::wstring flags = L"SetOperationFlags " + std::to_wstring(0x2A04);
    EXPECT_EQ(log_.Calls, (Calls{L"CopyItem " + a_ + L" > " + to_ + L" as new.txt", OwnerCall(owner_), flags,
                                 L"PerformOperations", L"MoveItem " + b_ + L" > " + to_ + L" as other.txt",
                                 OwnerCall(owner_), flags, L"PerformOperations"}));
}

TEST_F(RecordedOperationsTest, ReleasesOperationsAndItems) {
    base::TextList sources;
    sources.Append(a_);
    sources.Append(b_);
    shell_.TransferBatch(sources, destination_, kFunctionCopy, 0);
    shell_.TransferFile({a_, destination_, L"new", kFunctionCopy, 0, true});
    EXPECT_EQ(log_.LivingObjects, 0);
    EXPECT_EQ(log_.ReferencesOfKeptItems(), std::vector<ULONG>(6, 1));
}

class RealOperationsTest : public ShellOperationsTest {
protected:
    void SetUp() override {
        if (!test::ShellTransfers()) {
            GTEST_SKIP() << test::kNoTransfers;
        }
    }

    static constexpr std::uint32_t kQuiet = kFlagSilent | kFlagNoConfirmation | kFlagNoConfirmMakeFolder;
};

TEST_F(RealOperationsTest, BatchCopiesWhatItCanParse) {
    base::TextList sources;
    sources.Append(a_);
    sources.Append(folder_ / L"missing");
    sources.Append(b_);
    EXPECT_EQ(shell_.TransferBatch(sources, destination_, kFunctionCopy, kQuiet), S_OK);
    EXPECT_EQ(test::ReadUnits(to_ + L"\\a.txt"), L"first");
    EXPECT_EQ(test::ReadUnits(to_ + L"\\b.txt"), L"second");
    EXPECT_TRUE(test::Exists(a_));
}

TEST_F(RealOperationsTest, BatchMovesAWholeFolder) {
    test::MakeFolders(folder_ / L"tree\\inner");
    test::WriteUnits(folder_ / L"tree\\inner\\file", L"deep");
    base::TextList sources;
    sources.Append(folder_ / L"tree");
    EXPECT_EQ(shell_.TransferBatch(sources, destination_, kFunctionMove, kQuiet), S_OK);
    EXPECT_EQ(test::ReadUnits(to_ + L"\\tree\\inner\\file"), L"deep");
    EXPECT_FALSE(test::Exists(folder_ / L"tree"));
}

TEST_F(RealOperationsTest, FileIsMovedOverAnExistingOne) {
    test::WriteUnits(to_ + L"\\a.txt", L"old");
    const ShellOutcome outcome = shell_.TransferFile({a_, destination_, {}, kFunctionMove, kQuiet, true});
    EXPECT_EQ(outcome.Result, S_OK);
    EXPECT_FALSE(outcome.Aborted);
    EXPECT_EQ(test::ReadUnits(to_ + L"\\a.txt"), L"first");
    EXPECT_FALSE(test::Exists(a_));
}

TEST_F(RealOperationsTest, FileIsCopiedUnderANewName) {
    EXPECT_EQ(shell_.TransferFile({a_, destination_, L"new.txt", kFunctionCopy, kQuiet, false}).Result, S_OK);
    EXPECT_EQ(test::ReadUnits(to_ + L"\\new.txt"), L"first");
    EXPECT_FALSE(test::Exists(to_ + L"\\a.txt"));
}

TEST_F(RealOperationsTest, ShellPicksANewNameWhenItIsToRename) {
    test::WriteUnits(to_ + L"\\a.txt", L"old");
    EXPECT_EQ(
        shell_
            .TransferFile({a_, destination_, {}, kFunctionCopy, kFlagSilent | kFlagRenameOnCollision, false})
            .Result,
        S_OK);
    EXPECT_EQ(test::ReadUnits(to_ + L"\\a.txt"), L"old");
    WIN32_FIND_DATAW data{};
    int count = 0;
    const base::FindHandle search(FindFirstFileW((to_ + L"\\*.txt").c_str(), &data));
    do {
        ++count;
    } while (FindNextFileW(search.Get(), &data));
    EXPECT_EQ(count, 2);
}

TEST_F(RealOperationsTest, LongPathsAreTransferred) {
    const std::wstring longFolder = folder_.LongFolder();
    const std::wstring source = longFolder + L"\\long.txt";
    test::WriteUnits(source, L"far");
    base::ComPtr<IShellItem> item;
    if (FAILED(paths::MakeShellItem(source, item))) {
        GTEST_SKIP() << "this shell has no items for long paths";
    }
    EXPECT_EQ(shell_.TransferFile({source, destination_, {}, kFunctionCopy, kQuiet, false}).Result, S_OK);
    EXPECT_EQ(test::ReadUnits(to_ + L"\\long.txt"), L"far");
}

}  // namespace
}  // namespace ferry::transfer
