#include "core/scripts/moved_script.h"

#include <gtest/gtest.h>

#include "base/utf16.h"
#include "support/text_cases.h"

namespace ferry::scripttools {
namespace {

using test::TextCase;

const MovedPlaces kPlaces{L"E:\\menu", L"E:\\drives"};

InstalledWorld Installed() {
    return {.MenuFolder = kPlaces.Scripts,
            .ProgramFolder = L"E:\\Kiv\\Command\\Ferry\\",
            .Environment = {{L"HERE", L"there"}},
            .HostSettings = {},
            .Metric = [](int index) { return index + 1; },
            .Narrow = [](const std::wstring& text) { return base::ToUtf8(text); }};
}

TEST(MovedPaths, LieInTheMenuOrBelowAFolderForTheirDrive) {
    constexpr TextCase kCases[] = {
        {L"", L""},
        {L"no path", L"no path"},
        {L"C:\\s\\main.txt", L"E:\\menu\\main.txt"},
        {L"c:\\S", L"E:\\menu"},
        {L"C:\\sub\\a.txt", L"E:\\drives\\C\\sub\\a.txt"},
        {L"send 100 D:\\,C:/a", L"send 100 E:\\drives\\D\\,E:\\drives\\C/a"},
        {L"\"C:\\s\" C:\\s_1", L"\"E:\\menu\" E:\\drives\\C\\s_1"},
        {L"abc:\\x C: C:x", L"abc:\\x C: C:x"},
    };
    test::ExpectEach([](std::wstring_view text) { return WithMovedPaths(text, kPlaces); }, kCases);
}

class Rehearsals : public testing::Test {
protected:
    Hindrance Try(const std::wstring& lines, bool isAboutBoxes = false) {
        const ScriptFile file = ReadMovedScript(L"// A rule.\n" + lines, kPlaces);
        EXPECT_TRUE(file.Mistakes.empty());
        return Rehearse(file, isAboutBoxes, Installed(), rehearsal_);
    }

    Rehearsal rehearsal_;
};

TEST_F(Rehearsals, SayWhatTheScriptDoesInItsNewPlace) {
    EXPECT_EQ(Try(L"//@ dir C:\\out\n//@ program tool.exe 0 1\n//@ answer 7\n"
                  L"fileopen=C:\\out\\a\nfilewritew=?ScriptPath?\nfileclose\nexec=tool.exe,-a\n"
                  L"messageboxyn=go on?\nmessageboxok=never\n"
                  L"//> open C:\\out\\a|ab+S\n//> write C:\\out\\a|63003a005c007300\n//> run tool.exe "
                  L"-a||1|nowait\n"
                  L"//> msg 36 go on?\n"),
              Hindrance::NeedsAnotherWorld)
        << "the bytes still tell of the old place";
    EXPECT_EQ(Try(L"//@ program tool.exe 0 1\n//@ answer 7\nexec=tool.exe,C:\\out\nmessageboxyn=go on?\n"
                  L"messageboxok=never\n//> run tool.exe C:\\out||1|nowait\n//> msg 36 go on?\n"),
              Hindrance::None);
    ASSERT_EQ(rehearsal_.Started.size(), 1U);
    EXPECT_EQ(rehearsal_.Started[0].CommandLine, L"tool.exe E:\\drives\\C\\out");
    ASSERT_EQ(rehearsal_.Boxes.size(), 1U);
    EXPECT_EQ(rehearsal_.Boxes[0].Text, L"go on?");
    EXPECT_EQ(rehearsal_.Boxes[0].Button, 7);
    EXPECT_TRUE(rehearsal_.Files.contains(L"E:\\menu\\main.txt"));
}

TEST_F(Rehearsals, HaveWhatTheMenuGives) {
    EXPECT_EQ(Try(L"select=?SelectedCount?\n//> send 800 0\n"), Hindrance::None)
        << "a host, and no selection";
    EXPECT_EQ(Try(L"//@ select C:\\a\nselect=?SelectedCount?\n//> send 800 1\n"),
              Hindrance::NeedsAnotherWorld);
    EXPECT_EQ(Try(L"//@ clock 2026-02-03 04:05:06\nselect=?Year?\n//> send 800 2026\n"),
              Hindrance::NeedsAnotherWorld);
    EXPECT_EQ(Try(L"select=%HERE%\n//> send 800 there\n"), Hindrance::None);
    EXPECT_EQ(Try(L"//@ text C:\\d\\a|\n//@ text C:\\d\\b|\nvar @a\n@a=random(C:\\d)\nselect=@a\n"
                  L"//> send 800 C:\\d\\a\n"),
              Hindrance::NeedsAnotherWorld)
        << "chance may bring the other one";
}

TEST_F(Rehearsals, DoNotCountOnAProgramThatEndsJustInTime) {
    const std::wstring lines = L"runwait=1\ntimeout=2500\nexec=tool.exe\n//> run tool.exe||1|wait\n";
    EXPECT_EQ(Try(L"//@ program tool.exe 0 1000\n" + lines), Hindrance::None);
    EXPECT_EQ(Try(L"//@ program tool.exe 0 2400\n" + lines), Hindrance::NeedsAnotherWorld);
}

TEST_F(Rehearsals, LeaveOutWhatCannotBeSeen) {
    EXPECT_EQ(Try(L"messageboxok=only this\n//> msg 48 only this\n"), Hindrance::TouchesNothing);
    EXPECT_EQ(Try(L"messageboxok=only this\n//> msg 48 only this\n", true), Hindrance::None);
    EXPECT_EQ(Try(L"messagebox=64,another style\n//> msg 64 another style\n"), Hindrance::None);
    EXPECT_EQ(Try(L"messagebox=8,no such box\n//> msg 8 no such box\n"), Hindrance::AsksForNoSuchBox);
    EXPECT_EQ(Try(L"select=a\nspeach=hello\n//> send 800 a\n//> speak hello\n"), Hindrance::Speaks);
    EXPECT_EQ(Try(L"wait=6000\n//> sleep 6000\n"), Hindrance::TakesLong);
    EXPECT_EQ(Try(L"//@ program tool.exe 0 60000\nexec=tool.exe\n//> run tool.exe||1|nowait\n"),
              Hindrance::TakesLong);
    EXPECT_EQ(Try(L"//@ program tool.exe 0 1\nshell=tool.exe\n//> run tool.exe||1|nowait\n"),
              Hindrance::AsksTheShell);
    EXPECT_EQ(Try(L"//@ script C:\\elsewhere\\a.txt\nselect=a\n//> send 800 a\n"), Hindrance::NotInTheMenu);
}

}  // namespace
}  // namespace ferry::scripttools
