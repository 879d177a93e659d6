// A script's text as lines.
#include "script/source.h"

#include <gtest/gtest.h>

#include "script/limits.h"

namespace ferry::script {
namespace {

LineKind KindOf(std::wstring_view text) {
    return ClassifyLine(text, 1, 0).Kind;
}

TEST(Source, NormalisesItsLines) {
    const Source source(L"\t a\tb \r\n\n // no\n//\nupdatestate x\nlast");
    ASSERT_EQ(source.Lines().size(), 2U);
    EXPECT_EQ(source.Lines()[0].Text, L"a b");
    EXPECT_EQ(source.Lines()[0].Number, 1U);
    EXPECT_EQ(source.Lines()[0].Column, 2U);
    EXPECT_EQ(source.Lines()[1].Number, 6U);
}

TEST(Source, EndsAtItsMarker) {
    EXPECT_EQ(Source(L"a\n eoF \nb").Lines().size(), 1U);
    EXPECT_EQ(Source(L"a\neof x\nb").Lines().size(), 3U);
    EXPECT_TRUE(Source(L"").Lines().empty());
}

TEST(Source, CutsWhatIsTooLongOrBehindANul) {
    const Source source(std::wstring(kMaxLineUnits, L'a') + L"b\r\n" + std::wstring(L"c\0d\ne", 5));
    EXPECT_EQ(source.Lines()[0].Text, std::wstring(kMaxLineUnits, L'a'));
    EXPECT_EQ(source.Lines()[1].Text, L"c");
    EXPECT_EQ(source.Lines()[2].Text, L"e");
}

TEST(Source, KnowsWhetherItWorksOnTheSelection) {
    EXPECT_TRUE(Source(L"a\nmessagebox=0,?SelParent?").WorksOnSelection());
    EXPECT_FALSE(Source(L"a\nmessagebox=0,?selParent?\nEOF\n?Name?").WorksOnSelection());
}

TEST(Source, ClassifiesLines) {
    constexpr std::pair<const wchar_t*, LineKind> kCases[] = {
        {L"if a==b", LineKind::If},
        {L"IF", LineKind::If},
        {L"if(a==b)", LineKind::Assignment},
        {L"else if", LineKind::Else},
        {L"do", LineKind::Do},
        {L"do x", LineKind::Unknown},
        {L"Debug", LineKind::Debug},
        {L"debug x", LineKind::Unknown},
        {L"exit = 3", LineKind::Exit},
        {L"exit=3", LineKind::Assignment},
        {L"name:", LineKind::Label},
        {L"if a==b:", LineKind::Label},
        {L"do:", LineKind::Label},
        {L"GoTo name:", LineKind::Goto},
        {L"gotoname:", LineKind::Label},
        {L"//name:", LineKind::Nothing},
        {L"skip", LineKind::Unknown},
        {L"MessageBox = 0,a", LineKind::Command},
        {L"messagebox 0,a", LineKind::Command},
        {L"messagebox 0,a=b", LineKind::Assignment},
        {L"TimeOut=5", LineKind::Option},
        {L"timeout", LineKind::Unknown},
        {L"a=b", LineKind::Assignment},
        {L"fileclose now", LineKind::CloseFile},
        {L"fileclose=", LineKind::Assignment},
        {L"removeselectitems", LineKind::EmptySelection},
        {L"", LineKind::Nothing},
    };
    for (const auto& [text, kind] : kCases) {
        EXPECT_EQ(KindOf(text), kind) << std::string(text, text + std::wcslen(text));
    }
}

TEST(Source, TakesItsLinesApart) {
    EXPECT_EQ(ClassifyLine(L"goto  a b :", 1, 0).Name, L"a b");
    EXPECT_EQ(ClassifyLine(L"a b :", 1, 0).Name, L"a b");
    EXPECT_EQ(ClassifyLine(L"a::", 1, 0).Name, L"a:");
    const Line assignment = ClassifyLine(L"a[1] = b=c", 1, 0);
    EXPECT_EQ(assignment.Name, L"a[1]");
    EXPECT_EQ(assignment.Argument.Text, L" b=c");
    const Line command = ClassifyLine(L"wait = 5", 1, 0);
    EXPECT_EQ(command.Argument.Text, L"5");
    EXPECT_TRUE(command.HasEquals);
    const Line condition = ClassifyLine(L"while a < b", 1, 0);
    EXPECT_EQ(condition.Argument.Text, L"a ");
    EXPECT_EQ(condition.Compare, Operator::Below);
    EXPECT_EQ(condition.RightSide.Text, L" b");
}

TEST(Words, AreFoundInAnyLetterCase) {
    EXPECT_EQ(FindCommand(L"WriteRegNum")->Id, CommandId::WriteRegNum);
    EXPECT_EQ(FindCommand(L"AppendCSVSelectItem")->Id, CommandId::AppendCsvSelectItem);
    EXPECT_EQ(FindCommand(L"writeregnumb"), nullptr);
    EXPECT_EQ(FindFunction(L"SubString")->Id, FunctionId::SubString);
    EXPECT_EQ(FindFunction(L""), nullptr);
    EXPECT_EQ(FindOption(L"ExitLoopCount")->Default, L"5");
    for (const wchar_t* const word :
         {L"if", L"endif", L"var", L"goto", L"exit", L"exitall", L"for", L"next", L"continue", L"break",
          L"skip", L"stop", L"else", L"while", L"do", L"DEBUG"}) {
        EXPECT_TRUE(IsReserved(word));
    }
    EXPECT_FALSE(IsReserved(L"eof"));
}

}  // namespace
}  // namespace ferry::script
