// The calls that reach the shell's file operation, and real transfers where it can do them.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which the shell's headers build on.
#include <shlobj.h>

#include <vector>

#include "base/com_ptr_win32.h"
#include "base/handles_win32.h"
#include "desktop/shell_item_win32.h"
#include "desktop/shell_operations_win32.h"
#include "files/disk_win32.h"
#include "windows/recording_operation_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::desktop {
namespace {

using namespace transfer;

using Calls = std::vector<std::wstring>;

/// A folder with the files a and b and an empty folder "to".
class ShellOperationsTest : public testing::Test {
protected:
    ShellOperationsTest() {
        test::WriteUnits(a_, L"first");
        test::WriteUnits(b_, L"second");
        test::MakeFolders(to_);
    }

    BatchOutcome TransferAll(const base::TextList& sources, const std::wstring& folder, Operation what,
                             std::uint32_t flags) {
        return shell_.TransferAll(sources, {{}, folder, {}, what, flags, false});
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
    files::DiskInfo info_;
    WindowsShellOperations shell_{owner_, info_};
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
    EXPECT_EQ(TransferAll(sources, destination_, Operation::Copy, kBatchFlags).What, ShellResult::Done);
    EXPECT_EQ(log_.Calls, (Calls{L"CopyItems " + b_ + L" > " + to_, L"CopyItems " + a_ + L" > " + to_,
                                 OwnerCall(GetDesktopWindow()),
                                 L"SetOperationFlags " + std::to_wstring(0x2840), L"PerformOperations"}));
}

TEST_F(RecordedOperationsTest, BatchMovesAndPassesTheLowSixteenBitsOfTheFlags) {
    base::TextList sources;
    sources.Append(a_);
    log_.PerformResult = E_ACCESSDENIED;
    const BatchOutcome outcome = TransferAll(sources, destination_, Operation::Move, 0xABCD2850);
    EXPECT_EQ(outcome.What, ShellResult::Failed);
    EXPECT_EQ(outcome.Code, E_ACCESSDENIED);
    EXPECT_EQ(log_.Calls, (Calls{L"MoveItems " + a_ + L" > " + to_, OwnerCall(GetDesktopWindow()),
                                 L"SetOperationFlags " + std::to_wstring(0x2850), L"PerformOperations"}));
}

TEST_F(RecordedOperationsTest, BatchIntoAMissingFolderQueuesNothing) {
    base::TextList sources;
    sources.Append(a_);
    TransferAll(sources, folder_ / L"missing\\", Operation::Copy, 0x2800);
    EXPECT_EQ(log_.Calls.front(), OwnerCall(GetDesktopWindow()));
}

TEST_F(RecordedOperationsTest, AMissingFolderIsAskedForOnceAndNotForEachSource) {
    base::TextList sources;
    sources.Append(a_);
    sources.Append(a_);
    const std::wstring missing = folder_ / L"missing\\";
    int asked = 0;
    const test::WatchedImport<&SHCreateItemFromParsingName> parse(
        "SHCreateItemFromParsingName", [&](PCWSTR path, IBindCtx* context, REFIID id, void** item) {
            asked += path == missing ? 1 : 0;
            return parse.CallReal(path, context, id, item);
        });
    const transfer::BatchOutcome outcome =
        shell_.TransferAll(sources, {{}, missing, {}, Operation::Copy, 0x2800, false});
    EXPECT_EQ(asked, 1);
    ASSERT_EQ(outcome.Left.size(), 2U);
    EXPECT_EQ(outcome.Left[0].Why, ShellResult::NoFolderItem);
    EXPECT_EQ(outcome.Left[1].Why, ShellResult::NoFolderItem);
}

TEST_F(RecordedOperationsTest, NoOperationObjectGivesOne) {
    log_.CreateResult = E_OUTOFMEMORY;
    base::TextList sources;
    sources.Append(a_);
    EXPECT_EQ(TransferAll(sources, destination_, Operation::Copy, 0).What, ShellResult::NoObject);
    EXPECT_EQ(shell_.Transfer({a_, destination_, {}, Operation::Copy, 0, true}).What, ShellResult::NoObject);
    EXPECT_EQ(shell_.Transfer({a_, destination_, L"new", Operation::Copy, 0, true}).What,
              ShellResult::NoObject);
    EXPECT_TRUE(log_.Calls.empty());
}

TEST_F(RecordedOperationsTest, TheOperationMayComeFromAnyKindOfServer) {
    constexpr DWORD kAnyServer = 0x17;
    const test::WatchedImport<&CoCreateInstance> create("CoCreateInstance");
    shell_.Transfer({a_, destination_, {}, Operation::Copy, 0, true});
    const auto [classId, outer, servers, interfaceId, object] = create.OnlyCall();
    EXPECT_TRUE(IsEqualGUID(classId, CLSID_FileOperation));
    EXPECT_EQ(outer, nullptr);
    EXPECT_EQ(servers, kAnyServer);
    EXPECT_TRUE(IsEqualGUID(interfaceId, IID_IFileOperation));
    base::TextList sources;
    sources.Append(a_);
    TransferAll(sources, destination_, Operation::Copy, 0);
    EXPECT_EQ(std::get<2>(create.Calls().back()), kAnyServer);
}

TEST_F(RecordedOperationsTest, FileKeepsItsNameAndItsFlagsAndTellsWhetherItWasAborted) {
    log_.PerformResult = S_FALSE;
    log_.IsAborted = TRUE;
    const ShellOutcome outcome = shell_.Transfer({a_, destination_, {}, Operation::Move, 0x2A14, true});
    EXPECT_EQ(outcome.What, ShellResult::NoObject) << "it says that it did nothing";
    EXPECT_TRUE(outcome.Aborted);
    EXPECT_EQ(log_.Calls, (Calls{L"MoveItems " + a_ + L" > " + to_, OwnerCall(owner_),
                                 L"SetOperationFlags " + std::to_wstring(0x2A14), L"PerformOperations",
                                 L"GetAnyOperationsAborted"}));
}

TEST_F(RecordedOperationsTest, AbortIsNotAskedUnlessWanted) {
    log_.IsAborted = TRUE;
    EXPECT_FALSE(shell_.Transfer({a_, destination_, {}, Operation::Copy, 0, false}).Aborted);
    EXPECT_EQ(log_.Calls.front(), L"CopyItems " + a_ + L" > " + to_);
    EXPECT_EQ(log_.Calls.back(), L"PerformOperations");
}

TEST_F(RecordedOperationsTest, FileUnderANewNameIsQueuedWithThatName) {
    shell_.Transfer({a_, destination_, L"new.txt", Operation::Copy, 0x2A04, false});
    shell_.Transfer({b_, destination_, L"other.txt", Operation::Move, 0x2A04, false});
    const std::wstring flags = L"SetOperationFlags " + std::to_wstring(0x2A04);
    EXPECT_EQ(log_.Calls, (Calls{L"CopyItem " + a_ + L" > " + to_ + L" as new.txt", OwnerCall(owner_), flags,
                                 L"PerformOperations", L"MoveItem " + b_ + L" > " + to_ + L" as other.txt",
                                 OwnerCall(owner_), flags, L"PerformOperations"}));
}

TEST_F(RecordedOperationsTest, WithoutAFolderNoneIsPassed) {
    const std::wstring line = L"CopyItem " + a_ + L" > (none) as new";
    shell_.Transfer({a_, {}, L"new", Operation::Copy, 0, false});
    EXPECT_EQ(log_.Calls.front(), line);
    log_.Calls.clear();
    shell_.Transfer({b_, destination_, {}, Operation::Copy, 0, false});
    shell_.Transfer({a_, {}, L"new", Operation::Copy, 0, false});
    EXPECT_EQ(log_.Calls.at(4), line) << "the folder before is forgotten";
}

TEST_F(RecordedOperationsTest, WhatIsMissingIsSaidAndNothingIsQueued) {
    log_.PerformResult = E_UNEXPECTED;
    for (const wchar_t* const name : {L"", L"new"}) {
        const std::wstring missing = folder_ / L"missing";
        const ShellOutcome source = shell_.Transfer({missing, destination_, name, Operation::Copy, 0, false});
        EXPECT_EQ(source.What, ShellResult::NoSourceItem);
        EXPECT_LT(source.Code, 0);
        const ShellOutcome folder = shell_.Transfer({a_, missing, name, Operation::Move, 0, false});
        EXPECT_EQ(folder.What, ShellResult::NoFolderItem);
        EXPECT_LT(folder.Code, 0);
    }
    EXPECT_TRUE(log_.KeptItems.empty());
    EXPECT_EQ(log_.Calls.size(), 4 * 3) << "owner, flags, and the performing of nothing";
}

TEST_F(RecordedOperationsTest, WhatIsNotTakenIntoTheQueueIsToldAsSuchAndPerformedAllTheSame) {
    log_.QueueResult = E_ACCESSDENIED;
    log_.PerformResult = E_UNEXPECTED;
    const ShellOutcome outcome = shell_.Transfer({a_, destination_, {}, Operation::Copy, 0, false});
    EXPECT_EQ(outcome.What, ShellResult::NotQueued);
    EXPECT_EQ(outcome.Code, E_ACCESSDENIED);
    EXPECT_EQ(log_.Calls.back(), L"PerformOperations");
}

TEST_F(RecordedOperationsTest, OnlyAnItemOfAnotherFolderIsParsedByItsPath) {
    std::vector<std::wstring> asked;
    const test::WatchedImport<&SHCreateItemFromParsingName> parse(
        "SHCreateItemFromParsingName", [&](PCWSTR path, IBindCtx* context, REFIID id, void** item) {
            asked.emplace_back(path);
            return parse.CallReal(path, context, id, item);
        });
    base::TextList sources;
    sources.Append(a_);
    sources.Append(b_);
    TransferAll(sources, destination_, Operation::Copy, 0);
    shell_.Transfer({a_, destination_, {}, Operation::Copy, 0, false});
    shell_.Transfer({b_, destination_, L"new", Operation::Copy, 0, false});
    shell_.Transfer({b_, folder_.Path(), L"new", Operation::Copy, 0, false});
    EXPECT_EQ(asked, (std::vector{a_, destination_, folder_.Path()}));
}

TEST_F(RecordedOperationsTest, ReleasesOperationsAndItems) {
    base::TextList sources;
    sources.Append(a_);
    sources.Append(b_);
    {
        WindowsShellOperations shell(owner_, info_);
        shell.TransferAll(sources, {{}, destination_, {}, Operation::Copy, 0, false});
        shell.Transfer({a_, destination_, L"new", Operation::Copy, 0, true});
    }
    EXPECT_EQ(log_.LivingObjects, 0);
    const ULONG onceForEachUse = 3;
    EXPECT_EQ(log_.ReferencesOfKeptItems(),
              (std::vector<ULONG>{1, onceForEachUse, 1, onceForEachUse, 1, onceForEachUse}));
}

TEST_F(ShellOperationsTest, TellsTheShellThatAFolderWasMade) {
    constexpr LONG kMadeEvent = 8;
    constexpr UINT kByPath = 5;
    const test::WatchedImport<&SHChangeNotify> notify(
        "SHChangeNotify", [&](LONG event, UINT flags, LPCVOID item, LPCVOID other) {
            EXPECT_EQ(event, kMadeEvent);
            EXPECT_EQ(flags, kByPath);
            EXPECT_EQ(std::wstring(static_cast<const wchar_t*>(item)), folder_.Path());
            EXPECT_EQ(other, nullptr);
        });
    shell_.NotifyFolderMade(folder_.Path());
    EXPECT_EQ(notify.Calls().size(), 1U);
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
    EXPECT_EQ(TransferAll(sources, destination_, Operation::Copy, kQuiet).What, ShellResult::Done);
    EXPECT_EQ(test::ReadUnits(to_ + L"\\a.txt"), L"first");
    EXPECT_EQ(test::ReadUnits(to_ + L"\\b.txt"), L"second");
    EXPECT_TRUE(test::Exists(a_));
}

TEST_F(RealOperationsTest, BatchMovesAWholeFolder) {
    test::MakeFolders(folder_ / L"tree\\inner");
    test::WriteUnits(folder_ / L"tree\\inner\\file", L"deep");
    base::TextList sources;
    sources.Append(folder_ / L"tree");
    EXPECT_EQ(TransferAll(sources, destination_, Operation::Move, kQuiet).What, ShellResult::Done);
    EXPECT_EQ(test::ReadUnits(to_ + L"\\tree\\inner\\file"), L"deep");
    EXPECT_FALSE(test::Exists(folder_ / L"tree"));
}

TEST_F(RealOperationsTest, FileIsMovedOverAnExistingOne) {
    test::WriteUnits(to_ + L"\\a.txt", L"old");
    const ShellOutcome outcome = shell_.Transfer({a_, destination_, {}, Operation::Move, kQuiet, true});
    EXPECT_EQ(outcome.What, ShellResult::Done);
    EXPECT_FALSE(outcome.Aborted);
    EXPECT_EQ(test::ReadUnits(to_ + L"\\a.txt"), L"first");
    EXPECT_FALSE(test::Exists(a_));
}

TEST_F(RealOperationsTest, FileIsCopiedUnderANewName) {
    EXPECT_EQ(shell_.Transfer({a_, destination_, L"new.txt", Operation::Copy, kQuiet, false}).What,
              ShellResult::Done);
    EXPECT_EQ(test::ReadUnits(to_ + L"\\new.txt"), L"first");
    EXPECT_FALSE(test::Exists(to_ + L"\\a.txt"));
}

TEST_F(RealOperationsTest, ShellPicksANewNameWhenItIsToRename) {
    test::WriteUnits(to_ + L"\\a.txt", L"old");
    EXPECT_EQ(
        shell_.Transfer({a_, destination_, {}, Operation::Copy, kFlagSilent | kFlagRenameOnCollision, false})
            .What,
        ShellResult::Done);
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
    if (FAILED(MakeShellItem(source, info_, item))) {
        GTEST_SKIP() << "this shell has no items for long paths";
    }
    EXPECT_EQ(shell_.Transfer({source, destination_, {}, Operation::Copy, kQuiet, false}).What,
              ShellResult::Done);
    EXPECT_EQ(test::ReadUnits(to_ + L"\\long.txt"), L"far");
}

}  // namespace
}  // namespace ferry::desktop
