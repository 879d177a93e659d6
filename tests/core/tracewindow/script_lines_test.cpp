#include "tracewindow/script_lines.h"

#include <gtest/gtest.h>

#include "script/limits.h"
#include "script/source.h"

namespace ferry::tracewindow {
namespace {

TEST(ScriptLines, AreCountedFromOne) {
    const ScriptLines lines(L"debug\r\n\r\nvar a\na=1\r\n");
    EXPECT_EQ(lines.Count(), 4U);
    EXPECT_EQ(lines.Line(1), L"debug");
    EXPECT_EQ(lines.Line(2), L"");
    EXPECT_EQ(lines.Line(3), L"var a");
    EXPECT_EQ(lines.Line(4), L"a=1");
}

TEST(ScriptLines, OutsideOfTheScriptAreEmpty) {
    const ScriptLines lines(L"debug");
    EXPECT_EQ(lines.Line(0), L"");
    EXPECT_EQ(lines.Line(2), L"");
    EXPECT_EQ(ScriptLines().Line(1), L"");
    EXPECT_EQ(ScriptLines(L"").Count(), 0U);
}

TEST(ScriptLines, AreNumberedAsTheEngineDoes) {
    using namespace std::string_literals;
    const std::wstring texts[] = {
        L"a\nb\nc",
        L"a\r\r\nb\n\n\nc\n",
        L"a\0hidden\nb"s,
        std::wstring(script::kMaxLineUnits + 5, L'x') + L"\ny",
        L"\t indented\n\r\nlast",
    };
    for (const std::wstring& text : texts) {
        const ScriptLines lines(text);
        const script::Source source(text);
        ASSERT_FALSE(source.Lines().empty());
        for (const script::Line& line : source.Lines())
            EXPECT_EQ(lines.Line(line.Number).substr(line.Column, line.Text.size()), line.Text);
        EXPECT_EQ(lines.Count(), source.Lines().back().Number);
    }
}

TEST(ScriptLines, OfAFileOfNothingButLineEndsAreBounded) {
    EXPECT_EQ(ScriptLines(std::wstring(kMaxShownLines + 10, L'\n')).Count(), kMaxShownLines);
}

TEST(PathOfFile, IsAFullOneAndNoDevice) {
    for (const wchar_t* path : {L"C:\\s\\main.txt", L"z:/s/main.txt", L"\\\\server\\share\\main.txt"})
        EXPECT_TRUE(IsPathOfFile(path));
    for (const wchar_t* path : {L"", L"main.txt", L"C:", L"C:main.txt", L"\\main.txt", L"s\\main.txt",
                                L"\\\\.\\pipe\\x", L"\\\\.\\COM1", L"\\\\?\\pipe\\x", L"CON"})
        EXPECT_FALSE(IsPathOfFile(path));
}

}  // namespace
}  // namespace ferry::tracewindow
