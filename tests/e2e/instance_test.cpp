// What a running Ferry is to the system: the presence mutex, which tells others that it runs, and its error
// mode.
#include "base/handles_win32.h"
#include "e2e/driver/surroundings.h"
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

constexpr wchar_t kPresenceName[] = L"ExCommand.Ferry.exe";

bool IsPresent() {
    return static_cast<bool>(base::MutexHandle(OpenMutexW(SYNCHRONIZE, FALSE, kPresenceName)));
}

class Presence : public FerryTest {};

TEST_F(Presence, IsThereWhileFerryRunsAndGoneAfterwards) {
    ASSERT_FALSE(IsPresent());
    ASSERT_TRUE(OpenWithoutHost());
    EXPECT_TRUE(IsPresent());
    ASSERT_TRUE(CancelEndsWell());
    EXPECT_FALSE(IsPresent());
}

TEST_F(Presence, StaysWithTheFirstInstance) {
    ASSERT_TRUE(OpenWithoutHost());
    FerryRun second(PlanWithoutHost());
    ASSERT_TRUE(second.WaitForDialog().IsOpen());
    EXPECT_TRUE(Run().IsRunning());
    ASSERT_TRUE(second.CancelAndWait().IsGood());
    EXPECT_TRUE(IsPresent());
}

TEST_F(Presence, IsNotHeldByTheSecondInstance) {
    ASSERT_TRUE(OpenWithoutHost());
    FerryRun second(PlanWithoutHost());
    ASSERT_TRUE(second.WaitForDialog().IsOpen());
    ASSERT_TRUE(CancelEndsWell());
    EXPECT_FALSE(IsPresent());
    EXPECT_TRUE(second.IsRunning());
}

/// The error mode of another process; only a thread in it is told. The system's libraries lie at one address
/// in all processes.
std::optional<DWORD> ErrorModeOf(HWND window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    constexpr DWORD kRights = PROCESS_CREATE_THREAD | PROCESS_QUERY_INFORMATION | PROCESS_VM_OPERATION |
                              PROCESS_VM_READ | PROCESS_VM_WRITE;
    const base::ProcessHandle process(OpenProcess(kRights, FALSE, id));
    const auto ask = reinterpret_cast<LPTHREAD_START_ROUTINE>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetErrorMode")));
    const HANDLE thread = CreateRemoteThread(process.Get(), nullptr, 0, ask, nullptr, 0, nullptr);
    DWORD mode = 0;
    const bool isTold = thread != nullptr && WaitForSingleObject(thread, kPatienceMs) == WAIT_OBJECT_0 &&
                        GetExitCodeThread(thread, &mode);
    CloseHandle(thread);
    return isTold ? std::optional(mode) : std::nullopt;
}

class RunningFerry : public FerryTest {
protected:
    /// Programs inherit the mode, and a test program has one that hides failures.
    RunningFerry() : mode_(SetErrorMode(0)) {}
    ~RunningFerry() override { SetErrorMode(mode_); }

private:
    UINT mode_;
};

TEST_F(RunningFerry, ShowsNoBoxOfTheSystemAboutADriveWithoutADisk) {
    ASSERT_TRUE(OpenWithoutHost());
    const std::optional<DWORD> mode = ErrorModeOf(Dialog().Window());
    ASSERT_TRUE(mode);
    EXPECT_EQ(*mode & SEM_FAILCRITICALERRORS, DWORD{SEM_FAILCRITICALERRORS});
    EXPECT_TRUE(CancelEndsWell());
}

}  // namespace
}  // namespace ferry::e2e
