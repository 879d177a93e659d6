// What the program learns of the system's shell, and which search it makes then. It learns that once, so each
// case is played by a child of its own.
#include <windows.h>
#include <gtest/gtest.h>

#include <string>

#include "files/shell_version_win32.h"
#include "process/module_path_win32.h"
#include "process/program_runner_win32.h"
#include "windows/child_process_win32.h"
#include "windows/support_win32.h"

namespace ferry::files {
namespace {

/// What the child says to whom the shell has this version.
std::wstring ReportFor(int major, int minor, bool isReadableAtFirst) {
    const test::TempFolder folder;
    const std::wstring report = folder / L"report";
    const std::wstring program = L"\"" + process::ModulePath() + L"\"";
    const std::wstring arguments = test::ShellVersionArguments(report, major, minor, isReadableAtFirst);
    EXPECT_TRUE(process::RunAndWait({program, arguments, {}, SW_HIDE, INFINITE}, [] { return true; }));
    return test::ReadUnits(report);
}

TEST(ShellVersion, IsKnownAndCombined) {
    const auto version = ShellVersion();
    ASSERT_TRUE(version);
    EXPECT_GT(version->Major, 0);
    EXPECT_EQ(CombinedShellVersion(), version->Major * 100 + version->Minor);
}

TEST(ShellVersion, IsReadOnceFromTheSystemsLibrary) {
    EXPECT_EQ(ReportFor(10, 7, true),
              L"10.7 build 2600 of shell32.dll in the system folder, 10.7 after 1 reading, combined 1007, "
              L"extended search by name, basic, large fetch");
}

TEST(ShellVersion, ThatCannotBeReadIsTriedAgain) {
    EXPECT_EQ(ReportFor(10, 7, false),
              L"unknown, unknown after 2 attempts, combined 0, "
              L"10.7 build 2600 of shell32.dll in the system folder, 10.7 after 1 reading, combined 0, "
              L"extended search by name, basic, large fetch");
}

TEST(ShellVersion, OfTwoOldSystemsMakesThePlainSearch) {
    EXPECT_TRUE(ReportFor(5, 1, true).ends_with(L"combined 501, plain search"));
    EXPECT_TRUE(ReportFor(6, 0, true).ends_with(L"combined 600, plain search"));
    EXPECT_TRUE(ReportFor(6, 1, true).ends_with(L"large fetch"));
    EXPECT_TRUE(ReportFor(5, 1, false).ends_with(L"combined 0, extended search by name, basic, large fetch"));
}

}  // namespace
}  // namespace ferry::files
