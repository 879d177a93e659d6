// What programs, files and pages are opened with, call by call.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which it builds on.
#include <shellapi.h>

#include <optional>
#include <string>

#include "desktop/shell_open.h"
#include "process/manual.h"
#include "process/module_path_win32.h"
#include "process/program_runner_win32.h"
#include "windows/answered_boxes_win32.h"
#include "windows/child_process_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::process {
namespace {

using test::RunAskingInABox;

using desktop::OpenManualPage;
using desktop::ShellOpen;

constexpr ULONG kExpandVariables = 0x200;
constexpr ULONG kWaitForShell = 0x100;

/// What the shell was asked to open; a null text stays nothing.
struct AskedOpening {
    DWORD Size = 0;
    ULONG Mask = 0;
    HWND Owner = nullptr;
    std::optional<std::wstring> Verb, File, Parameters, Folder;
    int ShowMode = -1;
};

std::optional<std::wstring> Copy(LPCWSTR text) {
    return text == nullptr ? std::nullopt : std::optional<std::wstring>(text);
}

/// Writes the request down instead of opening anything.
class WatchedShell {
public:
    explicit WatchedShell(BOOL answer = TRUE)
        : execute_("ShellExecuteExW", [this, answer](SHELLEXECUTEINFOW* info) {
              Asked = {info->cbSize,
                       info->fMask,
                       info->hwnd,
                       Copy(info->lpVerb),
                       Copy(info->lpFile),
                       Copy(info->lpParameters),
                       Copy(info->lpDirectory),
                       info->nShow};
              SetLastError(answer ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND);
              return answer;
          }) {}

    AskedOpening Asked;

private:
    test::WatchedImport<&ShellExecuteExW> execute_;
};

/// Opens `file` with what is usual for the rest.
void OpenFile(std::wstring_view file, std::wstring_view workingFolder = {}, bool waits = false) {
    ShellOpen({.File = file, .Parameters = {}, .WorkingFolder = workingFolder, .WaitForShell = waits});
}

TEST(ShellOpenCalls, PassEverythingOnForTheDefaultAction) {
    const WatchedShell shell;
    ShellOpen({.Owner = GetDesktopWindow(),
               .File = L"C:\\dir\\a.txt",
               .Parameters = L"-x",
               .WorkingFolder = L"D:\\work",
               .ShowMode = SW_SHOWMINIMIZED});
    EXPECT_EQ(shell.Asked.Size, 112U);
    EXPECT_EQ(shell.Asked.Mask, kExpandVariables);
    EXPECT_EQ(shell.Asked.Owner, GetDesktopWindow());
    EXPECT_EQ(shell.Asked.Verb, std::nullopt);
    EXPECT_EQ(shell.Asked.File, L"C:\\dir\\a.txt");
    EXPECT_EQ(shell.Asked.Parameters, L"-x");
    EXPECT_EQ(shell.Asked.Folder, L"D:\\work");
    EXPECT_EQ(shell.Asked.ShowMode, SW_SHOWMINIMIZED);
}

TEST(ShellOpenCalls, WaitForTheShellOnlyWhenToldSo) {
    const WatchedShell shell;
    OpenFile(L"a.txt", {}, true);
    EXPECT_EQ(shell.Asked.Mask, kExpandVariables | kWaitForShell);
    OpenFile(L"a.txt");
    EXPECT_EQ(shell.Asked.Mask, kExpandVariables);
    EXPECT_EQ(shell.Asked.ShowMode, SW_SHOWNORMAL);
    EXPECT_EQ(shell.Asked.Folder, L"");
}

TEST(ShellOpenCalls, GiveLongPathsInTheirPrefixedForm) {
    const WatchedShell shell;
    const std::wstring folder = L"C:\\" + std::wstring(300, L'd');
    const std::wstring other = L"\\\\server\\share\\" + std::wstring(300, L'o');
    OpenFile(folder + L"\\a.txt");
    EXPECT_EQ(shell.Asked.File, L"\\\\?\\" + folder + L"\\a.txt");
    EXPECT_EQ(shell.Asked.Folder, L"\\\\?\\" + folder + L"\\");
    OpenFile(L"a.txt", other);
    EXPECT_EQ(shell.Asked.Folder, L"\\\\?\\UNC" + other.substr(1));
}

TEST(ShellOpenCalls, SayNothingOfAFailure) {
    const test::AnsweredBoxes boxes;
    const WatchedShell shell(FALSE);
    OpenFile(L"missing");
    OpenManualPage(nullptr, L"https://manual.invalid");
    EXPECT_TRUE(boxes.Asked.empty());
}

TEST(ManualCalls, ShowThePageWithoutParametersOrFolder) {
    const WatchedShell shell;
    OpenManualPage(GetDesktopWindow(), ManualAddress(L"https://manual.invalid", kFerryManualPage, {}));
    EXPECT_EQ(shell.Asked.Size, 112U);
    EXPECT_EQ(shell.Asked.Mask, kExpandVariables);
    EXPECT_EQ(shell.Asked.Owner, GetDesktopWindow());
    EXPECT_EQ(shell.Asked.Verb, std::nullopt);
    EXPECT_EQ(shell.Asked.File, L"https://manual.invalid/kiv/man5/6.Command/2.DefaultCommand/Ferry.html");
    EXPECT_EQ(shell.Asked.Parameters, L"");
    EXPECT_EQ(shell.Asked.Folder, L"");
    EXPECT_EQ(shell.Asked.ShowMode, 5);
}

TEST(RunAndWaitCalls, StartTheProgramByItsCommandLineAlone) {
    const test::WatchedImport<&CreateProcessW> create(
        "CreateProcessW", [](LPCWSTR application, LPWSTR line, LPSECURITY_ATTRIBUTES process,
                             LPSECURITY_ATTRIBUTES thread, BOOL inherits, DWORD flags, LPVOID environment,
                             LPCWSTR folder, LPSTARTUPINFOW startup, LPPROCESS_INFORMATION) {
            EXPECT_EQ(application, nullptr);
            EXPECT_EQ(std::wstring(line), L"\"C:\\dir\\a.exe\" -x y");
            EXPECT_EQ(process, nullptr);
            EXPECT_EQ(thread, nullptr);
            EXPECT_FALSE(inherits);
            EXPECT_EQ(flags, 0U);
            EXPECT_EQ(environment, nullptr);
            EXPECT_EQ(folder, nullptr);
            EXPECT_EQ(startup->cb, 104U);
            EXPECT_EQ(startup->dwFlags, DWORD{STARTF_USESHOWWINDOW});
            EXPECT_EQ(startup->wShowWindow, SW_HIDE);
            EXPECT_EQ(startup->lpDesktop, nullptr);
            return FALSE;
        });
    EXPECT_FALSE(RunAskingInABox({L"\"C:\\dir\\a.exe\"", L"-x y", {}, SW_HIDE, 0}));
    EXPECT_EQ(create.Calls().size(), 1U);
}

TEST(RunAndWaitCalls, AskWithYesAndNo) {
    const test::AnsweredBoxes boxes(IDNO);
    const test::WatchedImport<&WaitForSingleObject> wait(
        "WaitForSingleObject", [&](HANDLE object, DWORD limitMs) -> DWORD {
            return limitMs == 1234 ? WAIT_TIMEOUT : wait.CallReal(object, limitMs);
        });
    const test::WatchedImport<&TerminateProcess> terminate("TerminateProcess");
    const std::wstring program = L"\"" + ModulePath() + L"\"";
    const std::wstring arguments = test::ExitArguments(0);
    EXPECT_FALSE(RunAskingInABox({program, arguments, {}, SW_SHOW, 1234}));
    EXPECT_EQ(boxes.Only().Text, L"Timeout!\nAre you sure you want to kill the process?");
    EXPECT_EQ(boxes.Only().Style, 4U);
    EXPECT_TRUE(terminate.Calls().empty());
}

}  // namespace
}  // namespace ferry::process
