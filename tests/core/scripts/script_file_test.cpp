#include "core/scripts/script_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/utf16.h"
#include "script/shown_text.h"

namespace ferry::scripttools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

constexpr std::wstring_view kStart = L"// A rule.\n//= result 0\n";

ScriptFile Read(const std::wstring& lines) {
    return ReadScriptFile(std::wstring(kStart) + lines);
}

TEST(ScriptFileFormat, MakesAScriptOfItself) {
    const ScriptFile file = ReadScriptFile(L"// A rule.\nexit\n//= result 0");
    EXPECT_THAT(file.Mistakes, IsEmpty());
    EXPECT_EQ(base::UnitsFromBytes(file.World.Files.at(L"C:\\s\\main.txt")),
              L"\xFEFF// A rule.\r\nexit\r\n//= result 0");
    EXPECT_EQ(file.World.CurrentFolder, L"C:\\cur");
    EXPECT_EQ(file.World.Clock, (calendar::CalendarFields{2026, 2, 3, 4, 5, 6}));
    EXPECT_FALSE(file.World.HasHostWindow);
}

TEST(ScriptFileFormat, ReadsTheWorld) {
    const ScriptFile file = Read(
        L"//@ nomark\n//@ script D:\\x.txt\n//@ select C:\\a b\n//@ select C:\\c\n//@ clock 2025-01-02 "
        L"03:04:05\n"
        L"//@ host UserDir=D:\\u=v\n//@ host UserDirMode=#2\n//@ env A=b␠\n//@ answer 7\n"
        L"//@ program my tool.exe 3 500\n//@ trace debugger\n  //@ host_window\n//@ clipboard a␤b\n//@ cwd "
        L"C:\\w\n"
        L"//@ login me\n//@ local_appdata C:\\l\n//@ exe_dir C:\\e\\\n//@ metric 0=1920\n//@ dir C:\\d\n"
        L"//@ text C:\\t|a␍␤\n//@ bytes C:\\b|00ff\n");
    EXPECT_THAT(file.Mistakes, IsEmpty());
    const WorldDescription& world = file.World;
    EXPECT_EQ(world.Script, L"D:\\x.txt");
    EXPECT_EQ(base::UnitsFromBytes(world.Files.at(L"D:\\x.txt")).substr(0, 4), L"// A");
    EXPECT_FALSE(world.Files.contains(L"C:\\s\\main.txt"));
    EXPECT_THAT(world.Selection, ElementsAre(L"C:\\a b", L"C:\\c"));
    EXPECT_EQ(world.Clock, (calendar::CalendarFields{2025, 1, 2, 3, 4, 5}));
    EXPECT_THAT(world.HostSettings, ElementsAre(Pair(L"UserDir", HostSetting(L"D:\\u=v")),
                                                Pair(L"UserDirMode", HostSetting(2U))));
    EXPECT_THAT(world.Environment, ElementsAre(Pair(L"A", L"b ")));
    EXPECT_THAT(world.Answers, ElementsAre(7));
    EXPECT_THAT(world.Programs, ElementsAre(Pair(L"my tool.exe", PretendedProgram{3, 500})));
    EXPECT_EQ(world.Trace, TraceKind::Debugger);
    EXPECT_TRUE(world.HasHostWindow);
    EXPECT_EQ(world.Clipboard, L"a\nb");
    EXPECT_EQ(world.CurrentFolder, L"C:\\w");
    EXPECT_EQ(world.LoginName, L"me");
    EXPECT_EQ(world.LocalAppData, L"C:\\l");
    EXPECT_EQ(world.ProgramFolder, L"C:\\e\\");
    EXPECT_THAT(world.Metrics, ElementsAre(Pair(0, 1920)));
    EXPECT_THAT(world.Folders, ElementsAre(L"C:\\d"));
    EXPECT_EQ(base::UnitsFromBytes(world.Files.at(L"C:\\t")), L"a\r\n");
    EXPECT_EQ(world.Files.at(L"C:\\b"), (Bytes{std::byte{0}, std::byte{0xFF}}));
}

TEST(ScriptFileFormat, ReadsWhatIsExpected) {
    const ScriptFile file = Read(
        L"//> msg 48 a␤b\n//> send 103 C:\\x\n//> speak\n//= file C:\\f|01\n//= nofile C:\\g\n//= result "
        L"-1\n");
    EXPECT_THAT(file.Mistakes, IsEmpty());
    EXPECT_THAT(file.Effects,
                ElementsAre(Effect{L"msg", L"48 a\nb", std::nullopt}, Effect{L"send", L"103 C:\\x", 40},
                            Effect{L"speak", L"", std::nullopt}));
    EXPECT_THAT(file.Files, ElementsAre(Pair(L"C:\\f", Bytes{std::byte{1}})));
    EXPECT_THAT(file.MissingFiles, ElementsAre(L"C:\\g"));
    EXPECT_EQ(file.Result, script::RunResult::EndedAll);
}

TEST(ScriptFileFormat, ComplainsOfLinesThatItDoesNotUnderstand) {
    for (const wchar_t* line : {L"//@ colour red",
                                L"//@",
                                L"//@select C:\\a",
                                L"//@ select",
                                L"//@ clock noon",
                                L"//@ host UserDir",
                                L"//@ host a=#x",
                                L"//@ env A",
                                L"//@ answer yes",
                                L"//@ program t.exe 1",
                                L"//@ program t.exe 1 x",
                                L"//@ trace on",
                                L"//@ host_window gone",
                                L"//@ metric 1",
                                L"//@ metric a=1",
                                L"//@ text C:\\a",
                                L"//@ bytes C:\\a|0",
                                L"//@ nomark please",
                                L"//> shout x",
                                L"//>",
                                L"//>msg 1 x",
                                L"//> send 103",
                                L"//= file C:\\a",
                                L"//= file C:\\a|x",
                                L"//= nofile",
                                L"//= result 1",
                                L"//= var a|b",
                                L"//="})
        EXPECT_THAT(Read(std::wstring(line) + L"\nexit").Mistakes, ElementsAre(HasSubstr("line 3")))
            << base::ToUtf8(line);
}

TEST(ScriptFileFormat, WantsARuleAndAnExpectation) {
    EXPECT_THAT(ReadScriptFile(L"exit\n//> msg 1 x").Mistakes, ElementsAre(HasSubstr("first line")));
    EXPECT_THAT(ReadScriptFile(L"// A rule.\n//@ answer 1").Mistakes,
                ElementsAre(HasSubstr("nothing is expected")));
    EXPECT_THAT(ReadScriptFile(L"").Mistakes, testing::SizeIs(2));
}

/// Does what the script of the tests below is said to do.
script::RunResult SayAndWrite(PretendedWorld& world) {
    world.Ports().Boxes.Show(L"one", 48);
    world.Ports().Boxes.Show(L"two", 48);
    world.Ports().ByteFiles.OpenToWrite(L"C:\\cur\\f", script::OpenMode::Append);
    return script::RunResult::Ended;
}

constexpr wchar_t kDone[] = L"//> msg 48 one\n//> msg 48 two\n//> open C:\\cur\\f|ab+S\n";

std::string Judged(const std::wstring& lines) {
    return Judge(Read(lines), SayAndWrite);
}

TEST(ScriptFileJudgement, IsEmptyWhenAllIsAsExpected) {
    EXPECT_EQ(Judged(std::wstring(kDone) + L"//= file C:\\cur\\f|\n//= nofile C:\\cur\\g\n"), "");
}

TEST(ScriptFileJudgement, ShowsTheEffectsThatDiffer) {
    EXPECT_EQ(
        Judged(L"//> msg 48 one\n//> msg 16 two\n//> open C:\\cur\\f|ab+S\n"),
        "effects (- expected, + done):\n  msg 48 one\n- msg 16 two\n+ msg 48 two\n  open C:\\cur\\f|ab+S\n");
    EXPECT_EQ(Judged(L"//> msg 48 one\n//> open C:\\cur\\f|ab+S\n"),
              "effects (- expected, + done):\n  msg 48 one\n+ msg 48 two\n  open C:\\cur\\f|ab+S\n");
    EXPECT_EQ(Judged(std::wstring(kDone) + L"//> send 1 x\n"),
              "effects (- expected, + done):\n  msg 48 one\n  msg 48 two\n  open C:\\cur\\f|ab+S\n- send 1 x "
              "(16 bytes)\n");
}

TEST(ScriptFileJudgement, ShowsFilesResultsAndMistakes) {
    EXPECT_EQ(Judged(std::wstring(kDone) + L"//= file C:\\cur\\f|00\n"), "C:\\cur\\f holds , not 00\n");
    EXPECT_EQ(Judged(std::wstring(kDone) + L"//= file C:\\cur\\g|00\n"), "there is no file C:\\cur\\g\n");
    EXPECT_EQ(Judged(std::wstring(kDone) + L"//= nofile C:\\cur\\f\n"), "there is a file C:\\cur\\f\n");
    EXPECT_EQ(Judged(std::wstring(kDone) + L"//= result -1\n"), "the result is 0, not -1\n");
    EXPECT_THAT(Judged(std::wstring(kDone) + L"//@ colour red\n"), HasSubstr("is not understood"));
}

TEST(ShownText, PutsSignsForWhatBreaksOrHides) {
    EXPECT_EQ(WithSigns(L" a\r\n\tb "), L"␠a␍␤␉b␠");
    EXPECT_EQ(FromSigns(L"␠a␍␤␉b␠"), L" a\r\n\tb ");
    EXPECT_EQ(WithSigns(L" "), L"␠");
    EXPECT_EQ(WithSigns(L""), L"");
}

}  // namespace
}  // namespace ferry::scripttools
