// Statements in order, blocks and jumps.
#include <gtest/gtest.h>

#include "base/utf16.h"
#include "script/limits.h"
#include "script_run.h"

namespace ferry::script {
namespace {

/// `text` with each line "!X" written as the box that shows X.
Lines Effects(ScriptRun& run, std::wstring_view text) {
    std::wstring script = L"\n";
    script += text;
    for (std::size_t at = script.find(L"\n!"); at != std::wstring::npos; at = script.find(L"\n!")) {
        script.replace(at + 1, 1, L"messageboxok=");
    }
    // The line feed in front went in for the search alone.
    Lines effects = run.Run(std::wstring_view(script).substr(1));
    for (std::string& effect : effects) {
        if (effect.starts_with("msg 48 ")) {
            effect.erase(0, 7);
        }
    }
    return effects;
}

Lines Effects(std::wstring_view text) {
    ScriptRun run;
    return Effects(run, text);
}

Lines EffectsOver(std::wstring_view text, std::vector<std::wstring> selection) {
    ScriptRun run;
    run.Selection = std::move(selection);
    return Effects(run, text);
}

TEST(Executor, CountsInALoop) {
    EXPECT_EQ(EffectsOf(L"var i\ni=0\ndo\ni=+1\nwhile i<3\nmessagebox=0,i rounds"), Lines{"msg 0 3 rounds"});
}

TEST(Executor, TellsOfAScriptThatItCannotRead) {
    ScriptRun run;
    Engine engine(run.World.All());
    EXPECT_EQ(engine.Run(L"C:\\no.txt", run.Selection), RunResult::Ended);
    EXPECT_EQ(run.World.Effects, Lines{"err Cannot read C:\\no.txt"});
}

TEST(Executor, SkipsAMarkAtTheStart) {
    EXPECT_EQ(EffectsOf(std::wstring(1, wchar_t{0xFEFF}) + L"messageboxok=a"), Lines{"msg 48 a"});
}

TEST(Branches, AreTakenByTheirConditions) {
    EXPECT_EQ(Effects(L"if 1==1\n!a\nelse\n!b\nendif\n!c"), (Lines{"a", "c"}));
    EXPECT_EQ(Effects(L"if 1==2\n!a\nelse\n!b\nendif\n!c"), (Lines{"b", "c"}));
    EXPECT_EQ(Effects(L"if 1==2\nif 1==1\n!a\nelse\n!b\nendif\nelse\n!c\nendif"), (Lines{"c"}));
    EXPECT_EQ(Effects(L"if 1==1\nelse\nif 1==1\n!a\nelse\n!b\nendif\n!c\nendif\n!d"), (Lines{"d"}));
    EXPECT_EQ(Effects(L"if 1==1\nelse\nelse\n!a\nendif"), Lines{});
    EXPECT_EQ(Effects(L"if 1==1\nif 1==2\n!a\nelse\n!b\nendif\n!c\nendif"), (Lines{"b", "c"}));
}

TEST(Branches, DoNotKnowASecondElse) {
    EXPECT_EQ(Effects(L"if 1==2\nelse\n!a\nelse\n!b\nendif"), (Lines{"a", "b"}));
    EXPECT_EQ(Effects(L"checkgrammar=1\nif 1==2\nelse\nelse\nendif").size(), 1U);
}

TEST(Branches, TellOfWordsWithoutTheirOpener) {
    EXPECT_EQ(Effects(L"else\nendif\nnext\nwhile 1==1\ncontinue\nbreak"),
              (Lines{"err 'else' was used without 'if'\n", "err 'endif' was used without 'if'\n",
                     "err 'next' was used without 'for'\n", "err 'while' was used without 'do'\n",
                     "err 'continue' was used without 'do' or 'for'\n",
                     "err 'break' was used without 'do' or 'for'\n"}));
}

TEST(Branches, OfNoConditionAreNotOpened) {
    EXPECT_EQ(Effects(L"if\nif a\nwhile\n!a\ndo\nwhile a\n!b"),
              (Lines{"err Syntax error!\nif", "err Syntax error!\nif a", "err Syntax error!\nwhile", "a",
                     "err Syntax error!\nwhile a", "b"}));
}

TEST(Loops, GoOverTheSelection) {
    EXPECT_EQ(EffectsOver(L"for\n!?Name?\nnext\n!end", {L"C:\\a.x", L"C:\\b.x"}), (Lines{"a", "b", "end"}));
    EXPECT_EQ(EffectsOver(L"for\n!?Name?\nnext\n!?Name?", {}), (Lines{"?Name?"}));
    EXPECT_EQ(EffectsOver(L"!?Name?", {L"C:\\a.x", L"C:\\b.x"}), (Lines{"a"}));
}

TEST(Loops, AreLeftAndContinued) {
    const std::vector<std::wstring> two = {L"a", L"b"};
    EXPECT_EQ(EffectsOver(L"for\nif ?Name?==a\ncontinue\nendif\n!?Name?\nendif\nnext\n!end", two),
              (Lines{"b", "end"}));
    EXPECT_EQ(EffectsOver(L"for\n!?Name?\nbreak\n!no\nnext\n!end", two), (Lines{"a", "end"}));
    EXPECT_EQ(EffectsOver(L"for\n!?Name?\ncontinue\n!no\nnext\n!end\nnext", two),
              (Lines{"a", "b", "end", "err 'next' was used without 'for'\n"}));
    EXPECT_EQ(Effects(L"var $i\n$i=0\ndo\n$i=+1\nif $i==2\nbreak\nendif\n!$i\nwhile $i<9\n!end\nwhile 1==1"),
              (Lines{"1", "end", "err 'while' was used without 'do'\n"}));
    EXPECT_EQ(Effects(L"var $i\n$i=0\ndo\n$i=+1\nif $i>2\nbreak\nendif\ncontinue\n!no\nwhile 1==1\n!$i"),
              (Lines{"3"}));
}

TEST(Loops, JudgeConditionsWhileTheyAreLeft) {
    // The "if" in the rest of the loop is opened by its condition and closed by its "endif".
    EXPECT_EQ(EffectsOver(L"for\nbreak\nif 1==2\nnext\nendif\n!no\nnext\n!end", {L"a"}), (Lines{"end"}));
    EXPECT_EQ(EffectsOver(L"for\nbreak\nif x\nnext\n!end", {L"a"}),
              (Lines{"err Syntax error!\nif x", "end"}));
}

TEST(Loops, OfItemsInsideEachOtherShareOneItem) {
    EXPECT_EQ(EffectsOver(L"for\n!out ?Name?\nfor\n!in ?Name?\nnext\nnext\n!end", {L"a", L"b"}),
              (Lines{"out a", "in a", "in b", "err 'next' was used without 'for'\n", "end"}));
}

TEST(Loops, RefuseToLoseTheirItems) {
    EXPECT_EQ(EffectsOver(L"for\nremoveselectitems\n!no\nnext", {L"a"}),
              (Lines{"err RemoveSelectItems can not be executed within the loop."}));
    EXPECT_EQ(EffectsOver(L"if 1==2\nRemoveSelectItems all\nendif\n!?SelectedCount?", {L"a"}), (Lines{"0"}));
}

TEST(Goto, FindsLabelsAnywhere) {
    EXPECT_EQ(Effects(L"goto End\n!no\nend:\n!no\nEnd :\n!a"), (Lines{"a"}));
    EXPECT_EQ(Effects(L"goto End:\n!no\nEnd:\n!a"), (Lines{"a"}));
    EXPECT_EQ(Effects(L"goto nowhere:\ngoto\ngoto :\n!a"),
              (Lines{"err Undefined label.\nnowhere", "err Syntax error!\ngoto",
                     "err Syntax error!\ngoto :", "a"}));
    EXPECT_EQ(Effects(L"goto x\nx:\n!a\nexit\nx:\n!b\nEOF\nx:"),
              (Lines{"err This label is already in use.\nx:", "a"}));
}

TEST(Goto, GoesBackSoOftenOnly) {
    EXPECT_EQ(Effects(L"x:\n!a\ngoto x"), (Lines{"a", "a", "a", "a", "a", "a",
                                                 "err The number of repetitions of up too many.(5 times)"}));
    EXPECT_EQ(Effects(L"exitloopcount=1\nx:\n!a\ngoto y\nno\ny:\ngoto x"),
              (Lines{"a", "a", "err The number of repetitions of up too many.(1 times)"}));
}

TEST(Goto, LeavesBranchesOpen) {
    EXPECT_EQ(Effects(L"if 1==1\ngoto x\nendif\nx:\n!a\nelse\n!b\nendif\n!c"), (Lines{"a", "c"}));
}

TEST(Declarations, TellWhatIsWrong) {
    EXPECT_EQ(Effects(L"var\nvar a[\nvar [1]\nvar Goto\nvar index\nvar index\nvar nde\nvar myindex"),
              (Lines{"err Syntax error!\nvar", "err Syntax error!\nvar a[", "err Syntax error!\nvar [1]",
                     "err This word is reserved and can not be used as a variable.\nGoto",
                     "err It has already been declared.\nindex",
                     "err It is contained in the variable declared.\nnde/index",
                     "err It is contained in the variable declared.\nindex/myindex"}));
    EXPECT_EQ(Effects(L"var $a[-1]\nvar $a[3]\nvar $a[0]\nvar $a[x]\n$a[x]=1\n$a[2]=2\n!$a[x]$a[2]"),
              (Lines{"err It has already been declared.\n$a[0]", "12"}));
    EXPECT_EQ(Effects(L"var a[70000]\na[0]=1\n!a[0]"),
              (Lines{"err Too many variables.(65536)\nvar a[70000]", "a[0]"}));
}

TEST(Options, AreSetByTheirNames) {
    EXPECT_EQ(
        EffectsOf(L"var $x\n$x=work\nBootDir = C:\\$x\nshowwindow=3\ncommandlineoption=/q\nexec=p.exe,a b"),
        Lines{"run p.exe a b /q|C:\\work|3|nowait"});
}

TEST(UnknownLines, AreAskedAboutWhenItIsWanted) {
    EXPECT_EQ(Effects(L"hey you\n!a"), (Lines{"a"}));
    ScriptRun yes;
    EXPECT_EQ(
        Effects(yes, L"checkgrammar=1\n hey you \n!a"),
        (Lines{"ask This is the line that I do not understand.\nDo you want to continue?\n2:hey you", "a"}));
    ScriptRun no;
    no.World.Answers = {7};
    EXPECT_EQ(Effects(no, L"checkgrammar=1\nhey you\n!a").size(), 1U);
    ScriptRun helped;
    helped.World.Answers = {7};
    EXPECT_EQ(Effects(helped, L"checkgrammar=edit ?ErrorLine?\nhey you\n!a").back(), "start edit 2");
    EXPECT_EQ(Effects(L"checkgrammar=1\ncheckgrammar=\nhey\nskip\nstop\n!a"), (Lines{"a"}));
}

TEST(Includes, ShareVariablesAndEndAlone) {
    ScriptRun run;
    run.World.Texts[L"C:\\s\\in.txt"] = L"$v=&in\nmessageboxok=?ScriptName? ?ScriptPath?\nexit\n$v=no";
    EXPECT_EQ(
        Effects(run, L"var $v\n$v=out\ninclude=C:\\s\\in.txt\n!$v ?ScriptName?\ninclude=C:\\no.txt\n!end"),
        (Lines{"in.txt C:\\s\\", "outin main.txt", "err Cannot read C:\\no.txt", "end"}));
    EXPECT_EQ(run.Result, RunResult::Ended);
}

TEST(Includes, EndAllByExitall) {
    ScriptRun run;
    run.World.Texts[L"C:\\s\\in.txt"] = L"exitall";
    EXPECT_EQ(Effects(run, L"include=C:\\s\\in.txt\n!no"), Lines{});
    EXPECT_EQ(run.Result, RunResult::EndedAll);
}

TEST(Includes, WorkOnTheItemOfTheLoop) {
    ScriptRun run;
    run.Selection = {L"a", L"b"};
    run.World.Texts[L"in"] = L"messageboxok=?Name?";
    EXPECT_EQ(Effects(run, L"for\ninclude=in\nnext"), (Lines{"a", "b"}));
}

TEST(Includes, OfThemselvesEnd) {
    ScriptRun run;
    EXPECT_EQ(Effects(run, L"include=?ScriptPath??ScriptName?"),
              (Lines{"err Too many nested scripts.(32)\nC:\\s\\main.txt"}));
}

TEST(Includes, NestThirtyTwoDeepBelowTheScriptThatIsRun) {
    ScriptRun run;
    for (int depth = 1; depth <= 33; ++depth) {
        run.World.Texts[std::to_wstring(depth)] = L"include=" + std::to_wstring(depth + 1);
    }
    EXPECT_EQ(Effects(run, L"include=1\n!end"), (Lines{"err Too many nested scripts.(32)\n33", "end"}));
}

TEST(Lines, AreRewrittenBeforeTheyAreClassified) {
    EXPECT_EQ(
        EffectsOver(L"?SelectedCount?=x\nvar 1\n?SelectedCount?=x\n!1\nif 1==2\n?ScriptName?\nendif", {L"a"}),
        (Lines{"x"}));
    ScriptRun run;
    run.Selection = {L"a"};
    EXPECT_EQ(Effects(run, L"var $i\n$i=0\ndo\n!?SelectedCount?\nappendselectitem=b\n$i=+1\nwhile $i<2"),
              (Lines{"1", "2"}));
}

TEST(Trace, ShowsStepsAndValues) {
    ScriptRun run;
    run.World.TraceTitle = L"Kiv Script Debugger";
    EXPECT_EQ(Effects(run,
                      L"debug\nvar $a\n$a=1\n// no\nx:\nif 1==1\nelse\n!b\nendif\nupdatestate\nend\nif "
                      L"1==2\nelse\nendif"),
              (Lines{"trace 1 C:\\s\\main.txt", "trace 2 2", "trace 10 $a\t", "trace 2 3", "trace 11 $a\t1",
                     "trace 2 6", "trace 2 7", "trace 2 11", "trace 2 12", "trace 2 14"}));
    EXPECT_EQ(Effects(L"debug\nvar a"), Lines{});
}

TEST(Trace, IsInherited) {
    ScriptRun run;
    run.World.TraceTitle = L"Script trace Kiv";
    run.World.Texts[L"in"] = L"var $a";
    EXPECT_EQ(Effects(run, L"DEBUG\ninclude=in"),
              (Lines{"trace 1 C:\\s\\main.txt", "trace 2 2", "trace 1 in", "trace 2 1", "trace 10 $a\t"}));
}

TEST(Stop, EndsEveryRun) {
    ScriptRun run;
    run.World.StepsLeft = 4;
    run.World.Texts[L"in"] = L"do\n  while\t1==1";
    EXPECT_EQ(Effects(run, L"include=in\n!no"), (Lines{"err The script was stopped.\n2:while 1==1"}));
    EXPECT_EQ(run.Result, RunResult::Ended);
}

TEST(Stop, ComesAtLinesThatDoSomething) {
    ScriptRun nothing;
    nothing.World.StepsLeft = 0;
    EXPECT_EQ(Effects(nothing, L"debug\n// c\nx:\n?SelectedCount?:\nupdatestate\n!a"),
              (Lines{"err The script was stopped.\n6:messageboxok=a"}));
    nothing.World.Effects.clear();
    EXPECT_EQ(Effects(nothing, L"debug\n\nx:\nEOF\n!a"), Lines{});
}

TEST(Stop, ComesAtLinesThatAreSkipped) {
    ScriptRun run;
    run.World.StepsLeft = 3;
    EXPECT_EQ(Effects(run, L"if 1==2\n!a\n!b\n!c\nendif"),
              (Lines{"err The script was stopped.\n4:messageboxok=c"}));
    ScriptRun loop;
    loop.World.StepsLeft = 2;
    EXPECT_EQ(Effects(loop, L"for\n!a\n!b\nnext"), (Lines{"err The script was stopped.\n3:messageboxok=b"}));
}

/// Where the run of C:\s\main.txt with these lines is whenever it says something; other scripts stand ready.
std::vector<ScriptPlace> PlacesOf(FakeWorld& world, std::wstring_view text, std::wstring_view path) {
    world.Texts[L"C:\\s\\main.txt"] = text;
    Engine engine(world.All());
    std::vector<ScriptPlace> places;
    world.Listen = [&] { places.push_back(engine.Place().value_or(ScriptPlace{})); };
    std::vector<std::wstring> selection;
    EXPECT_EQ(engine.Place(), std::nullopt);
    engine.Run(std::wstring(path), selection);
    EXPECT_EQ(engine.Place(), std::nullopt);
    return places;
}

using Places = std::vector<ScriptPlace>;

TEST(Place, IsTheLineThatARunTellsOf) {
    FakeWorld world;
    world.Answers = {6, 7};
    const std::wstring main = L"C:\\s\\main.txt";
    EXPECT_EQ(PlacesOf(world, L"x:\n// \nx:\ncheckgrammar=1\nfilewritew=a\n\nnonsense\nmore\nnever", main),
              (Places{{main, 3}, {main, 5}, {main, 7}, {main, 8}}));
}

TEST(Place, IsInTheIncludedScriptAndThenBehindTheInclude) {
    FakeWorld world;
    world.Texts[L"C:\\s\\inner.txt"] = L"var a\nvar a";
    const std::wstring main = L"C:\\s\\main.txt";
    EXPECT_EQ(PlacesOf(world, L"\ninclude=C:\\s\\inner.txt\nfilewritew=a\ninclude=C:\\s\\gone.txt", main),
              (Places{{L"C:\\s\\inner.txt", 2}, {main, 3}, {L"C:\\s\\gone.txt", 0}}));
}

TEST(Place, OfAScriptThatCannotBeReadIsNoLine) {
    FakeWorld world;
    EXPECT_EQ(PlacesOf(world, L"", L"C:\\s\\gone.txt"), (Places{{L"C:\\s\\gone.txt", 0}}));
}

TEST(Limits, EndARunThatOpensBlocksForEver) {
    ScriptRun run;
    run.World.StepsLeft = 2 * 4'194'304 + 100;
    EXPECT_EQ(Effects(run, L"do\nif 1==1\ncontinue\nendif\nwhile 1==1"),
              (Lines{"err Too many open blocks.(4194304)\nif 1==1"}));
}

TEST(Limits, EndARunWhosePatternTakesTooLong) {
    // $v gets twice as long as $w in each round.
    EXPECT_EQ(EffectsOf(L"var $v\nvar $w\nvar $n\n$n=0\n$v=x\n"
                        L"do\n$w=$v\n$v=&$v\n$n=+1\nwhile $n<19\n"
                        L"if $v^*$wy\nmessagebox=0,fits\nelse\nmessagebox=0,does not\nendif"),
              (Lines{"err The pattern takes too long.(67108864 steps)\nif $v^*$wy"}));
}

TEST(Limits, KeepRewrittenLinesShort) {
    std::wstring line = L"!";
    for (int index = 0; index < 2000; ++index) {
        line += L"?ScriptName?";
    }
    ScriptRun run;
    const std::wstring path = L"C:\\" + std::wstring(2000, L'x');
    run.World.Texts[path] = line + L"\nmessageboxok=a";
    Engine engine(run.World.All());
    engine.Run(path, run.Selection);
    ASSERT_EQ(run.World.Effects.size(), 2U);
    EXPECT_TRUE(
        run.World.Effects[0].starts_with("err The value is too long.(1048576 characters)\n!?ScriptName?"));
}

}  // namespace
}  // namespace ferry::script
