// The link to the host over real shared memory, mutexes and messages.
#include <windows.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <future>
#include <thread>
#include <vector>

#include "base/handles_win32.h"
#include "base/utf16.h"
#include "hostlink/host_link_win32.h"
#include "hostlink/host_variable.h"
#include "hostlink/shared_memory_view_win32.h"
#include "windows/answered_boxes_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::hostlink {
namespace {

using Texts = std::vector<std::wstring>;

Texts Copy(const base::TextList& list) {
    return {list.begin(), list.end()};
}

constexpr std::uint32_t kBlockBytes = 4096;

/// What the host makes before it starts the program: the variable, the block and its guard.
class HostLinkTest : public testing::Test {
protected:
    ~HostLinkTest() override { SetEnvironmentVariableW(kHostVariableName, nullptr); }

    void SetVariable(const std::wstring& value) {
        ASSERT_TRUE(SetEnvironmentVariableW(kHostVariableName, value.c_str()));
    }

    void MakeBlock(std::wstring_view text) {
        mapping_.Reset(
            CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, kBlockBytes, kName));
        view_.Reset(MapViewOfFile(mapping_.Get(), FILE_MAP_ALL_ACCESS, 0, 0, kBlockBytes));
        ASSERT_TRUE(view_);
        WriteBlock(text);
    }

    void WriteBlock(std::wstring_view text) {
        std::memset(view_.Get(), 0, kBlockBytes);
        std::memcpy(view_.Get(), text.data(), text.size() * sizeof(wchar_t));
    }

    static constexpr wchar_t kName[] = L"ShareMem_10_20";
    static constexpr wchar_t kGuardName[] = L"ShareMem_10_20_Mutex";
    static constexpr wchar_t kShared[] = L"1:1:10:20:4096:x:y:z:Share:";
    static constexpr wchar_t kFullBlock[] =
        L"2\t1\tC:\\Work\toption\tC:\\Work\\a.txt\tC:\\Work\\b\tD:\\Backup\tmore\t";

    base::MappingHandle mapping_;
    base::MappedView view_;
};

TEST_F(HostLinkTest, NoVariableGivesNoData) {
    SetEnvironmentVariableW(kHostVariableName, nullptr);
    const HostData data = ReadHostData().Data;
    EXPECT_EQ(data.WindowMode, 0);
    EXPECT_FALSE(data.ShareMode);
    EXPECT_TRUE(data.SelectedItems.IsEmpty());
}

TEST_F(HostLinkTest, ReadsTheBlockThatTheVariableNames) {
    MakeBlock(kFullBlock);
    SetVariable(kShared);
    const auto [data, blockError] = ReadHostData();
    EXPECT_EQ(blockError, 0U);
    EXPECT_EQ(data.WindowMode, 1);
    EXPECT_EQ(data.ActivateHostOnExit, 1);
    EXPECT_TRUE(data.ShareMode);
    EXPECT_EQ(data.CurrentDir, L"C:\\Work");
    EXPECT_EQ(data.Option, L"option");
    EXPECT_EQ(Copy(data.SelectedItems), (Texts{L"C:\\Work\\a.txt", L"C:\\Work\\b"}));
    EXPECT_EQ(Copy(data.TabFolders), (Texts{L"D:\\Backup"}));
}

TEST_F(HostLinkTest, OtherTransportWordOpensNoBlock) {
    MakeBlock(kFullBlock);
    SetVariable(L"1:1:10:20:4096:x:y:z:share:");
    const HostData data = ReadHostData().Data;
    EXPECT_EQ(data.WindowMode, 1);
    EXPECT_FALSE(data.ShareMode);
    EXPECT_TRUE(data.SelectedItems.IsEmpty());
    EXPECT_EQ(static_cast<wchar_t*>(view_.Get())[1], L'\t');
}

TEST_F(HostLinkTest, VariableWithoutTenFieldsIsIgnoredEntirely) {
    MakeBlock(kFullBlock);
    for (const wchar_t* value : {L"1:1:10:20:4096:x:y:z:Share", L"1:1:10:20:4096:x:y:z:Share::"}) {
        SetVariable(value);
        const HostData data = ReadHostData().Data;
        EXPECT_EQ(data.WindowMode, 0);
        EXPECT_EQ(data.ActivateHostOnExit, 0);
        EXPECT_TRUE(data.SelectedItems.IsEmpty());
    }
}

TEST_F(HostLinkTest, VariableThatIsTooLongIsIgnored) {
    SetVariable(L"1:1:10:20:4096:x:y:z:Shared:" + std::wstring(3000, L'x'));
    EXPECT_EQ(ReadHostData().Data.WindowMode, 0);
}

TEST_F(HostLinkTest, BlockOfEmptyFieldsHasNoItems) {
    MakeBlock(L"0\t0\t\t\t");
    SetVariable(kShared);
    const HostData data = ReadHostData().Data;
    EXPECT_TRUE(data.ShareMode);
    EXPECT_TRUE(data.SelectedItems.IsEmpty());
    EXPECT_TRUE(data.TabFolders.IsEmpty());
}

TEST_F(HostLinkTest, LastFieldWithoutItsTabIsLost) {
    MakeBlock(L"2\t0\t\t\tC:\\a\tC:\\b");
    SetVariable(kShared);
    EXPECT_EQ(Copy(ReadHostData().Data.SelectedItems), (Texts{L"C:\\a"}));
}

TEST_F(HostLinkTest, BlockCanBeReadOnlyOnce) {
    MakeBlock(kFullBlock);
    SetVariable(kShared);
    EXPECT_EQ(ReadHostData().Data.SelectedItems.Size(), 2U);
    EXPECT_TRUE(ReadHostData().Data.SelectedItems.IsEmpty());
}

TEST_F(HostLinkTest, BlockThatTheHostDidNotMakeIsEmpty) {
    SetVariable(kShared);
    const HostData data = ReadHostData().Data;
    EXPECT_TRUE(data.ShareMode);
    EXPECT_TRUE(data.SelectedItems.IsEmpty());
}

TEST_F(HostLinkTest, SizeInBytesBoundsTheIndexOfAUnit) {
    MakeBlock(L"2\t0\t\t\tC:\\a\tC:\\b\t");
    SetVariable(L"1:1:10:20:16:x:y:z:Share:");
    EXPECT_EQ(Copy(ReadHostData().Data.SelectedItems), (Texts{L"C:\\a", L"C:\\b"}));
    WriteBlock(L"2\t0\t\t\tC:\\a\tC:\\b\t");
    SetVariable(L"1:1:10:20:15:x:y:z:Share:");
    EXPECT_EQ(Copy(ReadHostData().Data.SelectedItems), (Texts{L"C:\\a"}));
}

TEST_F(HostLinkTest, BlockThatFillsItsPagesIsReadToTheirEnd) {
    MakeBlock(L"5000\t0\t\t\t" + std::wstring(2039, L'\t'));
    SetVariable(kShared);
    EXPECT_EQ(ReadHostData().Data.SelectedItems.Size(), 2039U);
}

TEST_F(HostLinkTest, UnitsAreThoseOfThePagesThatAreMapped) {
    MakeBlock(kFullBlock);
    EXPECT_EQ(SharedMemoryView(kName, kGuardName, 1).Units().size(), 2048U);
    EXPECT_EQ(SharedMemoryView(kName, kGuardName, kBlockBytes).Units().size(), 2048U);
    EXPECT_EQ(SharedMemoryView(L"ShareMem_10_21", kGuardName, 4097).Units().size(), 4096U);
}

TEST_F(HostLinkTest, MemoryThatTheHostOnlyReservedHasNoUnits) {
    const base::MappingHandle reserved(CreateFileMappingW(
        INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE | SEC_RESERVE, 0, kBlockBytes, kName));
    ASSERT_TRUE(reserved);
    EXPECT_TRUE(SharedMemoryView(kName, kGuardName, kBlockBytes).Units().empty());
    SetVariable(kShared);
    const auto [data, blockError] = ReadHostData();
    EXPECT_EQ(blockError, 0U);
    EXPECT_TRUE(data.SelectedItems.IsEmpty());
}

TEST_F(HostLinkTest, HoldsNoSharedMemoryAfterwards) {
    MakeBlock(kFullBlock);
    SetVariable(kShared);
    ReadHostData();
    view_.Reset();
    mapping_.Reset();
    EXPECT_FALSE(base::MappingHandle(OpenFileMappingW(FILE_MAP_READ, FALSE, kName)));
    EXPECT_FALSE(base::MutexHandle(OpenMutexW(SYNCHRONIZE, FALSE, kGuardName)));
}

TEST_F(HostLinkTest, WaitsForTheHostToLetTheBlockGo) {
    MakeBlock(L"1\t0\t\t\tunfinished\t");
    SetVariable(kShared);
    const base::MutexHandle guard(CreateMutexW(nullptr, TRUE, kGuardName));
    std::atomic<HANDLE> opened = nullptr;
    std::atomic<bool> isWaiting = false;
    const test::WatchedImport<&CreateMutexW> opening(
        "CreateMutexW", [&](LPSECURITY_ATTRIBUTES security, BOOL owned, LPCWSTR name) {
            return opened = opening.CallReal(security, owned, name);
        });
    const test::WatchedImport<&WaitForSingleObject> waiting("WaitForSingleObject",
                                                            [&](HANDLE object, DWORD limitMs) {
                                                                if (object == opened) {
                                                                    EXPECT_EQ(limitMs, INFINITE);
                                                                    isWaiting = true;
                                                                }
                                                                return waiting.CallReal(object, limitMs);
                                                            });
    auto reading = std::async(std::launch::async, ReadHostData);
    EXPECT_TRUE(test::WaitUntil([&] { return isWaiting.load(); }));
    WriteBlock(L"1\t0\t\t\tfinished\t");
    ReleaseMutex(guard.Get());
    EXPECT_EQ(Copy(reading.get().Data.SelectedItems), (Texts{L"finished"}));
    // And it is free again.
    EXPECT_EQ(WaitForSingleObject(guard.Get(), 0), WAIT_OBJECT_0);
    ReleaseMutex(guard.Get());
}

TEST_F(HostLinkTest, GuardOfAHostThatIsGoneCountsAsFree) {
    MakeBlock(kFullBlock);
    SetVariable(kShared);
    const base::MutexHandle guard(CreateMutexW(nullptr, FALSE, kGuardName));
    std::thread([&] { WaitForSingleObject(guard.Get(), INFINITE); }).join();
    EXPECT_EQ(ReadHostData().Data.SelectedItems.Size(), 2U);
}

TEST_F(HostLinkTest, BlockThatCannotBeMappedGivesItsErrorAndLeavesTheRest) {
    MakeBlock(kFullBlock);
    SetVariable(L"2:1:10:20:1000000:x:y:z:Share:");
    DWORD error = 0;
    {
        const SharedMemoryView view(kName, kGuardName, 1000000);
        EXPECT_FALSE(view.IsOpen());
        error = view.Error();
    }
    ASSERT_NE(error, 0U);
    const auto [data, blockError] = ReadHostData();
    EXPECT_EQ(blockError, error);
    EXPECT_EQ(data.WindowMode, 2);
    EXPECT_TRUE(data.ShareMode);
    EXPECT_TRUE(data.SelectedItems.IsEmpty());
}

TEST_F(HostLinkTest, NameThatIsNoMappingGivesItsError) {
    const base::EventHandle other(CreateEventW(nullptr, FALSE, FALSE, kName));
    SetVariable(kShared);
    EXPECT_EQ(ReadHostData().BlockError, DWORD{ERROR_INVALID_HANDLE});
}

TEST_F(HostLinkTest, NameThatIsNoGuardGivesItsError) {
    MakeBlock(kFullBlock);
    const base::EventHandle other(CreateEventW(nullptr, FALSE, FALSE, kGuardName));
    SetVariable(kShared);
    const auto [data, blockError] = ReadHostData();
    EXPECT_TRUE(data.SelectedItems.IsEmpty());
    EXPECT_EQ(blockError, DWORD{ERROR_INVALID_HANDLE});
}

TEST(PresenceMutex, OnlyTheFirstInstanceHoldsIt) {
    const std::wstring fileName = test::UniqueName(L"Ferry") + L".exe";
    const std::wstring modulePath = L"C:\\App\\" + fileName;
    const auto exists = [name = L"ExCommand." + fileName] {
        return static_cast<bool>(base::MutexHandle(OpenMutexW(SYNCHRONIZE, FALSE, name.c_str())));
    };
    PresenceMutex first(modulePath);
    EXPECT_TRUE(exists());
    {
        const PresenceMutex second(modulePath);
        first.Close();
        EXPECT_FALSE(exists()) << "the second holds it too";
    }
    const PresenceMutex third(modulePath);
    EXPECT_TRUE(exists());
}

TEST(PresenceMutex, IsNotLocked) {
    const std::wstring fileName = test::UniqueName(L"Ferry") + L".exe";
    const PresenceMutex presence(L"C:\\" + fileName);
    std::thread([&] {
        const base::MutexHandle mutex(
            OpenMutexW(MUTEX_ALL_ACCESS, FALSE, (L"ExCommand." + fileName).c_str()));
        EXPECT_EQ(WaitForSingleObject(mutex.Get(), 0), WAIT_OBJECT_0);
        ReleaseMutex(mutex.Get());
    }).join();
}

}  // namespace
}  // namespace ferry::hostlink
