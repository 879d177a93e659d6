// Programs that really run, and searches in real folders.
#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "base/handles_win32.h"
#include "desktop/shell_open.h"
#include "process/module_path_win32.h"
#include "process/program_runner_win32.h"
#include "windows/child_process_win32.h"
#include "windows/resource_counts_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::process {
namespace {

using test::RunAskingInABox;

using desktop::ShellOpen;

using test::AnswerNextBox;
using test::TempFolder;

constexpr wchar_t kQuestion[] = L"Timeout!\nAre you sure you want to kill the process?";

std::wstring OwnProgram() {
    return L"\"" + ModulePath() + L"\"";
}

/// A child that waits until it is told to stop. It is gone when this is destroyed.
class WaitingChild {
public:
    std::wstring Arguments() const { return test::WaitArguments(startedName_, stopName_); }
    bool HasStarted() const { return WaitForSingleObject(started_.Get(), 20000) == WAIT_OBJECT_0; }
    void Stop() const { SetEvent(stop_.Get()); }

    ~WaitingChild() {
        const base::ProcessHandle process = test::OpenChild();
        Stop();
        if (process) {
            WaitForSingleObject(process.Get(), 20000);
        }
    }

private:
    std::wstring startedName_ = test::UniqueName(L"FerryStarted");
    std::wstring stopName_ = test::UniqueName(L"FerryStop");
    base::EventHandle started_{CreateEventW(nullptr, TRUE, FALSE, startedName_.c_str())};
    base::EventHandle stop_{CreateEventW(nullptr, TRUE, FALSE, stopName_.c_str())};
};

TEST(RunAndWait, TellsThatTheProgramEndedInTime) {
    const std::wstring program = OwnProgram();
    const std::wstring arguments = test::ExitArguments(7);
    EXPECT_TRUE(RunAskingInABox(
        {.Program = program, .Arguments = arguments, .WorkingFolder = {}, .TimeLimitMs = INFINITE}));
}

TEST(RunAndWait, PassesFolderAndShowMode) {
    const TempFolder folder;
    const std::wstring report = folder / L"report";
    const std::wstring program = OwnProgram();
    const std::wstring arguments = test::ReportArguments(report);
    ASSERT_TRUE(RunAskingInABox({program, arguments, folder.Path(), SW_SHOWMINIMIZED, INFINITE}));
    EXPECT_EQ(test::ReadUnits(report), folder.Path() + L"\n" + std::to_wstring(SW_SHOWMINIMIZED));
}

TEST(RunAndWait, EmptyFolderIsInherited) {
    const TempFolder folder;
    const std::wstring report = folder / L"report";
    const std::wstring program = OwnProgram();
    const std::wstring arguments = test::ReportArguments(report);
    ASSERT_TRUE(RunAskingInABox({program, arguments, {}, SW_SHOW, INFINITE}));
    std::wstring own(GetCurrentDirectoryW(0, nullptr), L'\0');
    own.resize(GetCurrentDirectoryW(static_cast<DWORD>(own.size()), own.data()));
    EXPECT_EQ(test::ReadUnits(report), own + L"\n" + std::to_wstring(SW_SHOW));
}

TEST(RunAndWait, ProgramThatCannotBeStartedIsFalseWithoutAQuestion) {
    const TempFolder folder;
    const std::wstring missing = folder / L"missing.exe";
    EXPECT_FALSE(
        RunAskingInABox({.Program = missing, .Arguments = {}, .WorkingFolder = {}, .TimeLimitMs = INFINITE}));
}

TEST(RunAndWait, LimitOfZeroAsksAtOnceAndNoLetsTheProgramRun) {
    const WaitingChild child;
    const std::wstring program = OwnProgram();
    const std::wstring arguments = child.Arguments();
    auto answer = AnswerNextBox(IDNO);
    EXPECT_FALSE(RunAskingInABox({program, arguments, {}, SW_SHOW, 0}));
    EXPECT_EQ(answer.get(), kQuestion);
    // It can only say so when it was not killed.
    EXPECT_TRUE(child.HasStarted());
}

TEST(RunAndWait, YesEndsTheProgramWithItsExitCode) {
    const WaitingChild child;
    const std::wstring program = OwnProgram();
    const std::wstring arguments = child.Arguments();
    base::ProcessHandle process;
    auto answer = AnswerNextBox(IDYES, [&] {
        child.HasStarted();
        process = test::OpenChild();
    });
    EXPECT_FALSE(RunAskingInABox({program, arguments, {}, SW_SHOW, 0}));
    EXPECT_EQ(answer.get(), kQuestion);
    ASSERT_TRUE(process);
    ASSERT_EQ(WaitForSingleObject(process.Get(), 20000), WAIT_OBJECT_0);
    DWORD exitCode = 0;
    ASSERT_TRUE(GetExitCodeProcess(process.Get(), &exitCode));
    EXPECT_EQ(exitCode, 999U);
}

TEST(RunAndWait, ProgramThatEndsDuringTheQuestionStillCountsAsLate) {
    const WaitingChild child;
    const std::wstring program = OwnProgram();
    const std::wstring arguments = child.Arguments();
    auto answer = AnswerNextBox(IDYES, [&] {
        child.HasStarted();
        const base::ProcessHandle process = test::OpenChild();
        child.Stop();
        WaitForSingleObject(process.Get(), 20000);
    });
    EXPECT_FALSE(RunAskingInABox({program, arguments, {}, SW_SHOW, 0}));
    EXPECT_EQ(answer.get(), kQuestion);
}

TEST(RunAndWait, ClosesTheHandlesOfTheProgram) {
    constexpr std::size_t kRuns = 10;
    const std::wstring program = OwnProgram();
    const std::wstring arguments = test::ExitArguments(0);
    const ProgramRun run{program, arguments, {}, SW_SHOW, INFINITE};
    ASSERT_TRUE(RunAskingInABox(run));
    const std::size_t before = test::CountHandles();
    for (std::size_t count = 0; count < kRuns; ++count) {
        ASSERT_TRUE(RunAskingInABox(run));
    }
    // Two for each run, if they were kept.
    EXPECT_LT(test::CountHandles(), before + kRuns);
}

/// A copy of this program in a folder of the test.
std::wstring CopyOfOwnProgram(const std::wstring& path) {
    EXPECT_TRUE(CopyFileW(ModulePath().c_str(), path.c_str(), TRUE));
    return path;
}

/// The folder that a child reported, once it has: the report is there before it is written.
std::wstring ReportedFolder(const std::wstring& report) {
    std::wstring text;
    EXPECT_TRUE(test::WaitUntil([&] {
        text = test::ReadUnits(report);
        return text.find(L'\n') != std::wstring::npos;
    }));
    return text.substr(0, text.find(L'\n'));
}

TEST(ShellOpen, EmptyFolderMeansTheFolderOfTheFile) {
    const TempFolder folder;
    const std::wstring program = CopyOfOwnProgram(folder / L"child.exe");
    const std::wstring report = folder / L"report";
    const std::wstring parameters = test::ReportArguments(report);
    ShellOpen({.File = program, .Parameters = parameters, .WorkingFolder = {}, .WaitForShell = true});
    EXPECT_EQ(ReportedFolder(report), folder.Path());
    EXPECT_TRUE(test::WaitUntil([&] { return DeleteFileW(program.c_str()) != FALSE; }));
}

TEST(ShellOpen, UsesTheWorkingFolderThatIsGiven) {
    const TempFolder folder;
    const TempFolder other;
    const std::wstring program = CopyOfOwnProgram(folder / L"child.exe");
    const std::wstring report = folder / L"report";
    const std::wstring parameters = test::ReportArguments(report);
    ShellOpen({.File = program, .Parameters = parameters, .WorkingFolder = other.Path()});
    EXPECT_EQ(ReportedFolder(report), other.Path());
    EXPECT_TRUE(test::WaitUntil([&] { return DeleteFileW(program.c_str()) != FALSE; }));
}

TEST(ShellOpen, ExpandsEnvironmentVariables) {
    const TempFolder folder;
    const std::wstring program = CopyOfOwnProgram(folder / L"child.exe");
    const std::wstring report = folder / L"report";
    const std::wstring parameters = test::ReportArguments(report);
    ASSERT_TRUE(SetEnvironmentVariableW(L"FERRY_TEST_FOLDER", folder.Path().c_str()));
    ShellOpen({.File = L"%FERRY_TEST_FOLDER%\\child.exe", .Parameters = parameters, .WorkingFolder = {}});
    EXPECT_EQ(ReportedFolder(report), folder.Path());
    SetEnvironmentVariableW(L"FERRY_TEST_FOLDER", nullptr);
    EXPECT_TRUE(test::WaitUntil([&] { return DeleteFileW(program.c_str()) != FALSE; }));
}

TEST(ModulePath, NamesThisProgram) {
    EXPECT_TRUE(ModulePath().ends_with(L"\\ferry_windows_tests.exe"));
    EXPECT_TRUE(test::Exists(ModulePath()));
}

TEST(ModulePath, OfAnyLengthIsGivenWhole) {
    for (const std::size_t length :
         {std::size_t{259}, std::size_t{260}, std::size_t{261}, std::size_t{5000}}) {
        const std::wstring path(length, L'p');
        const test::WatchedImport<&GetModuleFileNameW> name(
            "GetModuleFileNameW", [&](HMODULE, LPWSTR buffer, DWORD size) -> DWORD {
                lstrcpynW(buffer, path.c_str(), static_cast<int>(size));
                return std::min(static_cast<DWORD>(length), size);
            });
        EXPECT_EQ(ModulePath(), path);
    }
}

}  // namespace
}  // namespace ferry::process
