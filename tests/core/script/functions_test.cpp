// The functions of assignments.
#include <gtest/gtest.h>

#include "base/utf16.h"
#include "script/limits.h"
#include "script_run.h"

namespace ferry::script {
namespace {

constexpr const wchar_t* kScript = L"var $v\n$v=old\n$v=";

/// The value that `call` gives in `run`, or what else is shown.
std::string ValueIn(ScriptRun& run, std::wstring_view call) {
    run.World.Effects.clear();
    const Lines effects = run.Run(std::wstring(kScript).append(call).append(L"\nmessagebox=0,<$v>"));
    return effects.size() == 1 ? effects.front() : effects.front() + " / " + effects.back();
}

std::string ValueOf(std::wstring_view call) {
    ScriptRun run;
    return ValueIn(run, call);
}

TEST(Functions, OfTexts) {
    constexpr std::pair<const wchar_t*, const char*> kCases[] = {
        {L"Length(a,b c)", "msg 0 <5>"},
        {L"length()", "msg 0 <0>"},
        {L"SubString(abcdef,1,3)", "msg 0 <bcd>"},
        {L"SubString(abcdef,-1,0x2)", "msg 0 <ab>"},
        {L"SubString(abcdef,4,100,9)", "msg 0 <ef>"},
        {L"SubString(abc,3,1)", "msg 0 <abc,3,1>"},
        {L"left(abc,2)", "msg 0 <ab>"},
        {L"left(abc,9)", "msg 0 <abc>"},
        {L"left(abc,0)", "msg 0 <abc,0>"},
        {L"left(abc,)", "msg 0 <abc,>"},
        {L"left( abc , 2 ,x)", "msg 0 < a>"},
        {L"right(abc,2)", "msg 0 <bc>"},
        {L"right(abc,9)", "msg 0 <abc>"},
        {L"find(abcabc,ca)", "msg 0 <2>"},
        {L"find(abc,x)", "msg 0 <-1>"},
        {L"find(abc,)", "msg 0 <0>"},
        {L"replace(abcabc,b,xx)", "msg 0 <axxcaxxc>"},
        {L"replace(abc,,x)", "msg 0 <abc>"},
        {L"replace(abc,abc,)", "msg 0 <abc,abc,>"},
    };
    for (const auto& [call, shown] : kCases) {
        EXPECT_EQ(ValueOf(call), shown);
    }
}

TEST(Functions, GiveAnEmptyTextForItsMarkAlone) {
    ScriptRun run;
    run.World.Held = L"\t空文字\n\r置換\t";
    EXPECT_EQ(ValueIn(run, L"GetClipboardText()"), "msg 0 <>");
    run.World.Held = L"clip";
    EXPECT_EQ(ValueIn(run, L"GetClipboardText(x)"), "msg 0 <clip>");
    run.World.Held = L"";
    EXPECT_EQ(ValueIn(run, L"GetClipboardText(x)"), "msg 0 <x>");
}

TEST(Functions, OfPaths) {
    ScriptRun run;
    run.World.Found[L"C:\\d"] = 0x10;
    run.World.Found[L"C:\\f.txt"] = 0x20;
    constexpr std::pair<const wchar_t*, const char*> kCases[] = {
        {L"Exist(C:\\d)", "msg 0 <1>"},
        {L"Exist(C:\\no)", "msg 0 <0>"},
        {L"IsDirectory(C:\\d)", "msg 0 <1>"},
        {L"IsDirectory(C:\\f.txt)", "msg 0 <0>"},
        {L"IsDirectory(C:\\no)", "msg 0 <1>"},
        {L"IsFile(C:\\d)", "msg 0 <0>"},
        {L"IsFile(C:\\f.txt)", "msg 0 <1>"},
        {L"IsFile(C:\\no)", "msg 0 <0>"},
        {L"GetPath(C:\\a\\b.c,d)", "msg 0 <\\a\\>"},
        {L"GetName(C:\\a\\b,c.d)", "msg 0 <b,c>"},
        {L"GetExt(C:\\a\\b.d)", "msg 0 <.d>"},
        {L"GetExt(C:\\a\\b)", "msg 0 <C:\\a\\b>"},
        {L"RemoveLastSeparator(C:\\a\\)", "msg 0 <C:\\a>"},
        {L"RemoveLastSeparator(C:\\)", "msg 0 <C:\\>"},
        {L"GetSystemMetrics(0x2)", "msg 0 <200>"},
    };
    for (const auto& [call, shown] : kCases) {
        EXPECT_EQ(ValueIn(run, call), shown) << base::ToUtf8(call);
    }
}

TEST(Functions, ThatCannotBeCalledKeepTheValue) {
    for (const wchar_t* const call :
         {L"SubString(a,1)", L"left(a)", L"left()", L"right(a)", L"find(a)", L"replace(a,b)"}) {
        EXPECT_EQ(ValueOf(call), "err Syntax error!\n$v=" + base::ToUtf8(call) + " / msg 0 <old>");
    }
    for (const wchar_t* const call :
         {L"Exist()", L"IsDirectory()", L"IsFile()", L"GetPath()", L"GetName()", L"GetExt()",
          L"RemoveLastSeparator()", L"fileread()", L"fileallread()", L"random()", L"GetSystemMetrics()",
          L"MainWindowPosition()", L"nothing(1)"}) {
        EXPECT_EQ(ValueOf(call), "err Illegal Function Call!\n$v=" + base::ToUtf8(call) + " / msg 0 <old>");
    }
    EXPECT_EQ(ValueOf(L"no thing(1)"), "msg 0 <no thing(1)>");
}

TEST(Functions, TellWhereTheHostStands) {
    ScriptRun run;
    run.World.Place = ScreenBox{1, -2, 30, 40};
    EXPECT_EQ(ValueIn(run, L"MainWindowPosition()"), "msg 0 <1,-2,30,40>");
}

TEST(Functions, ChooseByChance) {
    ScriptRun run;
    EXPECT_EQ(ValueIn(run, L"random(a,b, c)"), "msg 0 < c>");
    run.World.Found[L"C:\\d\\"] = 0x10;
    EXPECT_EQ(ValueIn(run, L"random(C:\\d\\)"),
              "err Illegal Function Call!\n$v=random(C:\\d\\) / msg 0 <old>");
    run.World.Names = {L".", L"..", L"Z.txt", L"folder\\", L"a.txt"};
    EXPECT_EQ(ValueIn(run, L"random(C:\\d\\)"), "msg 0 <C:\\d\\Z.txt>");
}

TEST(FileRead, GivesLineAfterLineUntilTheEnd) {
    ScriptRun run;
    run.World.Texts[L"f"] = std::wstring(1, wchar_t{0xFEFF}) + L"one\r\n\ntwo";
    run.World.Texts[L"g"] = L"other\n";
    EXPECT_EQ(
        run.Run(
            L"var $v\n$v=fileread(f)\nmessagebox=0,<$v>\n$v=fileread(f)\nmessagebox=0,<$v>\n$v=fileread(f)\n"
            L"messagebox=0,<$v>\n$v=fileread(f)\nmessagebox=0,<$v>\n$v=fileread(f)\nmessagebox=0,<$v>\n"
            L"$v=fileread(g)\nmessagebox=0,<$v>\n$v=fileread(g)\nmessagebox=0,<$v>\n$v=fileread(f)"
            L"\nmessagebox=0,<$v>"),
        (Lines{"msg 0 <one>", "msg 0 <f>", "msg 0 <two>", "msg 0 <ERROR>", "msg 0 <ERROR>", "msg 0 <other>",
               "msg 0 <ERROR>", "msg 0 <one>"}));
}

TEST(FileRead, HoldsItsFileUntilAnotherOneIsRead) {
    ScriptRun run;
    run.World.Texts[L"f"] = L"one";
    run.World.Texts[L"g"] = L"other";
    const std::wstring whileHeld = L"fileopen=f\n";
    EXPECT_EQ(run.Run(L"var $v\n$v=fileread(f)\n" + whileHeld + L"$v=fileread(f)\n" + whileHeld +
                      L"$v=fileread(f)\n" + whileHeld + L"$v=fileread(g)\n" + whileHeld),
              (Lines{"open f|ab+S", "err File is not open.", "open f|ab+S", "err File is not open.",
                     "open f|ab+S", "err File is not open.", "open f|ab+S", "close f"}));
    EXPECT_EQ(run.World.Readers[L"g"], 0);
}

TEST(FileRead, PassesOverALineThatIsTooLong) {
    ScriptRun run;
    run.World.Texts[L"f"] =
        std::wstring(kMaxValueUnits - 8, L'a') + L"\r\n" + std::wstring(kMaxValueUnits + 1, L'a') + L"\nlast";
    EXPECT_EQ(run.Run(L"var "
                      L"$v\n$v=fileread(f)\n$v=Length($v)\nmessagebox=0,<$v>\n$v=fileread(f)\n$v=fileread(f)"
                      L"\nmessagebox=0,<$v>"),
              (Lines{"msg 0 <1048568>", "err The value is too long.(1048576 characters)\n$v=fileread(f)",
                     "msg 0 <last>"}));
}

TEST(FileAllRead, GivesTheWholeFile) {
    ScriptRun run;
    run.World.Texts[L"f"] = std::wstring(1, wchar_t{0xFEFF}) + L"a\r\nb";
    EXPECT_EQ(ValueIn(run, L"fileallread(f)"), "msg 0 <a\r\nb>");
    EXPECT_EQ(ValueIn(run, L"fileallread(g)"), "err File is not open. / msg 0 <old>");
    EXPECT_EQ(ValueIn(run, L"fileread(g)"), "err File is not open. / msg 0 <old>");
    run.World.Texts[L"f"].assign(kMaxValueUnits + 2, L'a');
    EXPECT_EQ(ValueIn(run, L"fileallread(f)"),
              "err The value is too long.(1048576 characters)\n$v=fileallread(f) / msg 0 <old>");
}

}  // namespace
}  // namespace ferry::script
