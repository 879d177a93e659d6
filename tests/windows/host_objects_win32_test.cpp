// The named objects that the program shares with its host: how they are opened, locked and let go.
#include <windows.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "hostlink/host_link_win32.h"
#include "hostlink/host_variable.h"
#include "hostlink/shared_memory_view_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::hostlink {
namespace {

using Steps = std::vector<std::string>;

constexpr DWORD kMutexAllAccess = 0x1F0001;
constexpr DWORD kMapAllAccess = 0xF001F;

TEST(PresenceMutexCalls, LookForAnEarlierInstanceWithFullAccessAndNoInheritance) {
    const std::wstring fileName = test::UniqueName(L"Ferry") + L".exe";
    std::wstring asked;
    const test::WatchedImport<&OpenMutexW> open("OpenMutexW", [&](DWORD access, BOOL inherits, LPCWSTR name) {
        asked = name;
        return open.CallReal(access, inherits, name);
    });
    const PresenceMutex presence(L"C:\\App\\" + fileName);
    EXPECT_EQ(asked, L"ExCommand." + fileName);
    EXPECT_EQ(std::get<0>(open.OnlyCall()), kMutexAllAccess);
    EXPECT_FALSE(std::get<1>(open.OnlyCall()));
}

TEST(PresenceMutexCalls, MakeItWithDefaultSecurityUnlocked) {
    const test::WatchedImport<&CreateMutexW> create("CreateMutexW");
    const PresenceMutex presence(L"C:\\App\\" + test::UniqueName(L"Ferry") + L".exe");
    EXPECT_EQ(std::get<0>(create.OnlyCall()), nullptr);
    EXPECT_FALSE(std::get<1>(create.OnlyCall()));
}

TEST(PresenceMutexCalls, LetTheMarkerOfAnEarlierInstanceGoAtOnce) {
    const std::wstring path = L"C:\\App\\" + test::UniqueName(L"Ferry") + L".exe";
    const PresenceMutex first(path);
    HANDLE opened = nullptr;
    const test::WatchedImport<&OpenMutexW> open("OpenMutexW", [&](DWORD access, BOOL inherits, LPCWSTR name) {
        return opened = open.CallReal(access, inherits, name);
    });
    const test::WatchedImport<&CloseHandle> close("CloseHandle");
    const test::WatchedImport<&CreateMutexW> create("CreateMutexW");
    const PresenceMutex second(path);
    ASSERT_NE(opened, nullptr);
    EXPECT_EQ(std::get<0>(close.OnlyCall()), opened);
    EXPECT_TRUE(create.Calls().empty());
}

class SharedBlockCalls : public testing::Test {
protected:
    SharedBlockCalls() {
        numbers_ = std::to_wstring(GetCurrentProcessId()) + L":20";
        name_ = L"ShareMem_" + std::to_wstring(GetCurrentProcessId()) + L"_20";
    }
    ~SharedBlockCalls() override { SetEnvironmentVariableW(kHostVariableName, nullptr); }

    std::wstring numbers_;
    std::wstring name_;
};

TEST_F(SharedBlockCalls, MapTheWholeBlockForReadingAndWriting) {
    const test::WatchedImport<&CreateFileMappingW> create(
        "CreateFileMappingW", [&](HANDLE file, LPSECURITY_ATTRIBUTES security, DWORD protection, DWORD high,
                                  DWORD low, LPCWSTR name) {
            EXPECT_EQ(file, INVALID_HANDLE_VALUE);
            EXPECT_EQ(security, nullptr);
            EXPECT_EQ(protection, DWORD{PAGE_READWRITE});
            EXPECT_EQ(high, 0U);
            EXPECT_EQ(low, 4096U);
            EXPECT_EQ(std::wstring(name), name_);
            return create.CallReal(file, security, protection, high, low, name);
        });
    const test::WatchedImport<&MapViewOfFile> map("MapViewOfFile");
    const SharedMemoryView view(name_, name_ + L"_Mutex", 4096);
    EXPECT_TRUE(view.IsOpen());
    EXPECT_EQ(create.Calls().size(), 1U);
    const auto [mapping, access, high, low, size] = map.OnlyCall();
    EXPECT_EQ(access, kMapAllAccess);
    EXPECT_EQ(high, 0U);
    EXPECT_EQ(low, 0U);
    EXPECT_EQ(size, SIZE_T{4096});
}

/// Writes down what is done with the block and its guard, in order.
class BlockDiary {
public:
    Steps Seen;

private:
    bool IsOurs(HANDLE handle) const { return handle == mapping_ || handle == guard_; }

    HANDLE mapping_ = nullptr;
    HANDLE guard_ = nullptr;
    test::WatchedImport<&CreateFileMappingW> makeMapping_{
        "CreateFileMappingW", [this](HANDLE file, LPSECURITY_ATTRIBUTES security, DWORD protection,
                                     DWORD high, DWORD low, LPCWSTR name) {
            return mapping_ = makeMapping_.CallReal(file, security, protection, high, low, name);
        }};
    test::WatchedImport<&MapViewOfFile> map_{
        "MapViewOfFile", [this](HANDLE mapping, DWORD access, DWORD high, DWORD low, SIZE_T size) {
            Seen.emplace_back("map");
            return map_.CallReal(mapping, access, high, low, size);
        }};
    test::WatchedImport<&CreateMutexW> makeGuard_{
        "CreateMutexW", [this](LPSECURITY_ATTRIBUTES security, BOOL owned, LPCWSTR name) {
            EXPECT_EQ(security, nullptr);
            EXPECT_FALSE(owned);
            Seen.emplace_back("guard");
            return guard_ = makeGuard_.CallReal(security, owned, name);
        }};
    test::WatchedImport<&WaitForSingleObject> wait_{"WaitForSingleObject",
                                                    [this](HANDLE object, DWORD limitMs) {
                                                        if (IsOurs(object))
                                                            Seen.emplace_back("lock");
                                                        return wait_.CallReal(object, limitMs);
                                                    }};
    test::WatchedImport<&ReleaseMutex> release_{"ReleaseMutex", [this](HANDLE mutex) {
                                                    Seen.emplace_back("unlock");
                                                    return release_.CallReal(mutex);
                                                }};
    test::WatchedImport<&UnmapViewOfFile> unmap_{"UnmapViewOfFile", [this](LPCVOID view) {
                                                     Seen.emplace_back("unmap");
                                                     return unmap_.CallReal(view);
                                                 }};
    test::WatchedImport<&CloseHandle> close_{
        "CloseHandle", [this](HANDLE handle) {
            if (IsOurs(handle))
                Seen.emplace_back(handle == mapping_ ? "close mapping" : "close guard");
            return close_.CallReal(handle);
        }};
};

TEST_F(SharedBlockCalls, MapBeforeTheLockAndUnlockBeforeTheEnd) {
    ASSERT_TRUE(
        SetEnvironmentVariableW(kHostVariableName, (L"0:0:" + numbers_ + L":4096:x:y:z:Share:").c_str()));
    const BlockDiary diary;
    ReadHostData();
    EXPECT_EQ(diary.Seen, (Steps{"map", "guard", "lock", "unlock", "unmap", "close mapping", "close guard"}));
}

}  // namespace
}  // namespace ferry::hostlink
