// The statements that act on the world.
#include <gtest/gtest.h>

#include "base/utf16.h"
#include "script/limits.h"
#include "script/words.h"
#include "script_run.h"

namespace ferry::script {
namespace {

Lines SyntaxErrorAt(std::wstring_view line) {
    return {"err Syntax error!\n" + base::ToUtf8(line)};
}

TEST(Commands, DoWhatTheirNamesSay) {
    constexpr std::pair<const wchar_t*, const char*> kCases[] = {
        {L"messagebox=0x30, a, b ", "msg 48 a, b"},
        {L"messagebox=4,a", "msg 4 a"},
        {L"MESSAGEBOXOK = a,b", "msg 48 a,b"},
        {L"messageboxyn=a", "msg 36 a"},
        {L"exec=p.exe", "run p.exe||1|nowait"},
        {L"exec=\"p q.exe\" , a,b", "run \"p q.exe\" a,b||1|nowait"},
        {L"shell=C:\\a.txt, x", "shell C:\\a.txt x"},
        {L"exrun=C:\\a", "send 100 C:\\a"},
        {L"postmessage=100", "post 273 100 0"},
        {L"postmessage=100, 5 ,x", "post 273 100 5"},
        {L"sendmessage=1,2", "sendm 273 1 2"},
        {L"postmessage1=1,2", "post 32777 1 2"},
        {L"postmessage2=1,2", "post 32778 1 2"},
        {L"postwait=1,2", "post 32779 1 2"},
        {L"postmessagebar=1,2", "post 32780 1 2"},
        {L"postmessageall=1,-2", "post 32776 1 -2"},
        {L"sendmessageall=1,2", "sendm 32776 1 2"},
        {L"writeregnum=k, n , 12x", R"(reg Software\Marrowby\Kiv\Main001\k|n|dword 12)"},
        {L"writeregnum=k,n,-1", R"(reg Software\Marrowby\Kiv\Main001\k|n|dword 4294967295)"},
        {L"writeregstring=k\\l,n,a, b", R"(reg Software\Marrowby\Kiv\Main001\k\l|n|sz a, b)"},
        {L"system_command=77, a,b", "send 77 a,b"},
        {L"speach=a,b", "speak a,b"},
        {L"speachflag=3", "speech flags 3"},
        {L"speachvolume=50", "speech volume 50"},
        {L"speachratespeed=-4", "speech rate -4"},
        {L"speachpitch=2", "speech pitch 2"},
        {L"setclipboardtext=a", "clip a"},
        {L"setclipboardtext=", "clip "},
        {L"select=", "send 800 "},
        {L"select=a,b", "send 800 a,b"},
        {L"wait=50", "sleep 50"},
        {L"wait=-50", "sleep 0"},
        {L"filejump=0,a.txt", "send 103 C:\\cur\\a.txt"},
        {L"filejump=3,C:\\a", "send 403 C:\\a"},
        {L"folderjump=0,C:\\a", "send 100 C:\\a"},
        {L"folderjump=2,C:\\a,b", "send 300 C:\\a,b"},
        {L"favoritejump=12x, a,b", "send 901 12/a,b"},
        {L"ubjump=3,a", "send 1003 3/a"},
        {L"fullstateopen=f", "send 201 f"},
        {L"fullstateopenex=f , o, p", "send 201 f,o, p"},
        {L"fullstateopenex=f", "send 201 f"},
        {L"backgroundimage=f", "send 1200 f"},
        {L"listinnerparam=", "send 910 "},
        {L"tabletmode=1", "send 912 1"},
        {L"operationmode=x", "send 911 x"},
    };
    for (const auto& [line, effect] : kCases) {
        EXPECT_EQ(EffectsOf(line), Lines{effect}) << base::ToUtf8(line);
    }
    EXPECT_EQ(EffectsOf(L"icon=a\nupdatestate\nmessagebox=\nmessagebox=0"), Lines{});
}

TEST(Commands, KeepWhatIsAroundAValue) {
    ScriptRun run;
    run.World.Held = L" a\r\n";
    EXPECT_EQ(run.Run(L"var $v\n$v=GetClipboardText()\nmessageboxok= $v\nsetclipboardtext=$v \nselect=$v\n"
                      L"exrun=$v\nwait= 5 \nappendselectitem=$v\nmessageboxok=?selfile?\nmessagebox=0,$v\n"
                      L"system_command=1,$v\nappendcsvselectitem=$v"),
              (Lines{"msg 48  a\r\n", "clip  a\r\n", "send 800  a\r\n", "send 100  a\r\n", "sleep 5",
                     "msg 48  a\r\n", "msg 0 a", "send 1 a"}));
    EXPECT_EQ(run.Selection, (std::vector<std::wstring>{L" a\r\n", L"a"}));
}

TEST(Commands, OfOneArgumentTakeABlankOne) {
    ScriptRun run;
    run.World.Held = L" ";
    EXPECT_EQ(run.Run(L"var $v\n$v=GetClipboardText()\nmessageboxok=$v\nexec=$v"),
              (Lines{"msg 48  ", "err Syntax error!\nexec=$v"}));
}

TEST(Commands, WantTheirArguments) {
    for (const wchar_t* const line : {L"messagebox",
                                      L"messagebox=0,",
                                      L"messagebox=,a",
                                      L"messageboxok=",
                                      L"messageboxyn=",
                                      L"icon=",
                                      L"call=",
                                      L"exec=",
                                      L"exec=,a",
                                      L"shell=",
                                      L"shell=,a",
                                      L"include=",
                                      L"exrun=",
                                      L"fileopen=",
                                      L"postmessage=",
                                      L"postmessage=0,5",
                                      L"sendmessage=x",
                                      L"postmessageall=,1",
                                      L"postmessagetab=",
                                      L"postmessagetab=1,2",
                                      L"postmessagetab",
                                      L"writeregnum=k,n",
                                      L"writeregnum=k,n,",
                                      L"writeregnum=,n,1",
                                      L"writeregstring=k,,t",
                                      L"writeregstring=k,n",
                                      L"system_command=1",
                                      L"system_command=1,",
                                      L"speach=",
                                      L"speachflag=",
                                      L"wait=",
                                      L"filejump=4,a",
                                      L"filejump=-1,a",
                                      L"filejump=0",
                                      L"filejump=,a",
                                      L"folderjump=0,",
                                      L"favoritejump=1",
                                      L"ubjump=,a",
                                      L"fullstateopen=",
                                      L"fullstateopenex=,a",
                                      L"backgroundimage=",
                                      L"tabletmode=",
                                      L"operationmode=",
                                      L"appendselectitem=",
                                      L"appendcsvselectitem=",
                                      L"getselectitems=",
                                      L"getselectitems=a",
                                      L"wait 5"}) {
        EXPECT_EQ(EffectsOf(line), SyntaxErrorAt(line)) << base::ToUtf8(line);
    }
}

TEST(Commands, DoNothingWithoutTheHost) {
    ScriptRun run;
    run.World.HasHost = false;
    EXPECT_EQ(
        run.Run(L"postmessage=0,5\nsendmessage=1\nselect=a\nfilejump=0,a\nexrun=a\nubjump=1,a\ntabletmode=1"),
        Lines{});
    EXPECT_EQ(run.Run(L"postmessage=\nfilejump=4,a\npostmessagetab=1").size(), 3U);
}

TEST(Boxes, EndTheRunByNo) {
    ScriptRun run;
    run.World.Answers = {6, 7};
    EXPECT_EQ(run.Run(L"messageboxyn=a\nmessageboxyn=b\nmessageboxok=c"), (Lines{"msg 36 a", "msg 36 b"}));
    EXPECT_EQ(run.LastResult, L"7");
}

TEST(Programs, AreWaitedForWhenItIsWanted) {
    ScriptRun run;
    run.World.ExitCodeOfAll = 0xFFFFFFFF;
    EXPECT_EQ(run.Run(L"runwait=1\ntimeout=250\nexec=a"), (Lines{"run a||1|wait", "wait 250"}));
    EXPECT_EQ(run.LastResult, L"-1");
    ScriptRun call;
    EXPECT_EQ(call.Run(L"call=a"), (Lines{"run a||1|wait", "wait 4294967295"}));
}

TEST(Programs, AreKilledWhenThePersonSaysSo) {
    const std::string question = "ask Timeout!\nAre you sure you want to kill the process?";
    ScriptRun yes;
    yes.World.ProgramsEnd = false;
    EXPECT_EQ(yes.Run(L"call=a"), (Lines{"run a||1|wait", "wait 4294967295", question, "kill 999"}));
    EXPECT_EQ(yes.LastResult, L"999");
    ScriptRun no;
    no.World.ProgramsEnd = false;
    no.World.Answers = {7};
    EXPECT_EQ(no.Run(L"call=a"), (Lines{"run a||1|wait", "wait 4294967295", question}));
    EXPECT_EQ(no.LastResult, L"259");
}

TEST(Programs, ThatCannotBeStartedAreToldOf) {
    ScriptRun run;
    run.World.StartsPrograms = false;
    EXPECT_EQ(run.Run(L"exec=a"), (Lines{"run a||1|nowait", "err Cannot start the program.\nexec=a"}));
}

TEST(Output, IsWrittenWideAndNarrow) {
    EXPECT_EQ(EffectsOf(L"fileopen=f\nfilewritew=aé\nfilewritea=aé\nbomout=1\nfilewritea=b\nfilewritew="
                        L"c\nfileclose\nfilewritew=d"),
              (Lines{"open f|ab+S", "write f|6100e900", "write f|613f", "write f|fffe62", "write f|6300",
                     "close f", "err File is not open."}));
}

TEST(Output, KeepsItsRequestsForOneUse) {
    EXPECT_EQ(EffectsOf(L"bomout=1\nfilewritew=a\nfileopenmode=1\nfileopen=f\nfilewritew=a\nfileopen=g"),
              (Lines{"err File is not open.", "open f|wbS", "write f|fffe6100", "close f", "open g|ab+S",
                     "close g"}));
    EXPECT_EQ(EffectsOf(L"bomout=1\nbomout=\nfileopenmode=1\nfileopenmode=0\nfileopen=f\nfilewritew=a"),
              (Lines{"open f|ab+S", "write f|6100", "close f"}));
}

TEST(Output, ThatFailsIsToldOf) {
    ScriptRun run;
    run.World.Writes = false;
    EXPECT_EQ(run.Run(L"fileopen=f\nfilewritew=a"),
              (Lines{"open f|ab+S", "err File is not open.", "err File is not open."}));
}

TEST(Output, BelongsToOneScript) {
    ScriptRun run;
    run.World.Texts[L"in"] = L"filewritew=a\nfileopen=g";
    EXPECT_EQ(
        run.Run(L"fileopen=f\ninclude=in\nfilewritew=b"),
        (Lines{"open f|ab+S", "err File is not open.", "open g|ab+S", "close g", "write f|6200", "close f"}));
}

TEST(SelectionCommands, ChangeTheSelection) {
    ScriptRun run;
    EXPECT_EQ(run.Run(L"var $v\nappendselectitem=a,b\nappendcsvselectitem=c, d "
                      L",,e,\ngetselectitems=$v\nmessageboxok=$v\n"
                      L"removeselectitems\ngetselectitems=$v\nmessageboxok=<$v>\nappendselectitem=z"),
              (Lines{"msg 48 a,b,c,d,e", "msg 48 <>"}));
    EXPECT_EQ(run.Selection, (std::vector<std::wstring>{L"z"}));
}

TEST(SelectionCommands, TellTheTraceOfTheVariable) {
    ScriptRun run;
    run.Selection = {L"a"};
    run.World.TraceTitle = L"Script trace Kiv";
    EXPECT_EQ(run.Run(L"debug\nvar $v\ngetselectitems=$v").back(), "trace 11 $v\ta");
}

TEST(SelectionCommands, StopAtTooMuch) {
    ScriptRun run;
    run.Selection.assign(kMaxItems - 1, L"a");
    EXPECT_EQ(run.Run(L"appendselectitem=b\nappendselectitem=c\nvar $v\ngetselectitems=$v"),
              (Lines{"err Too many items.(1048576)\nappendselectitem=c",
                     "err The value is too long.(1048576 characters)\ngetselectitems=$v"}));
}

TEST(ExRun, JumpsToALabelOrHandsOver) {
    EXPECT_EQ(EffectsOf(L"var $v\n$v=left(x:y,2)\nexrun=$v\nmessageboxok=no\nx:\nmessageboxok=a"),
              Lines{"msg 48 a"});
    EXPECT_EQ(EffectsOf(L"var $v\n$v=left(y:y,2)\nexrun=$v\nx:"), Lines{"send 100 y:"});
    EXPECT_EQ(EffectsOf(L"bootmode=1\nexrun=a\nbootmode=2\nexrun=b\nbootmode=3\nexrun=c"),
              (Lines{"send 200 a", "send 300 b", "send 100 c"}));
}

}  // namespace
}  // namespace ferry::script
