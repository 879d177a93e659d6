// Scripts that run on the machine itself.
#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>

#include "app/real_world_win32.h"
#include "base/utf16.h"
#include "desktop/message_boxes_win32.h"
#include "desktop/user_clipboard_win32.h"
#include "e2e/driver/child_process.h"
#include "e2e/driver/file_op_log.h"
#include "process/module_path_win32.h"
#include "process/programs.h"
#include "script/engine.h"
#include "windows/answered_boxes_win32.h"
#include "windows/child_process_win32.h"
#include "windows/current_folder_win32.h"
#include "windows/own_root_win32.h"
#include "windows/support_win32.h"
#include "windows/waiting_children_win32.h"

namespace ferry::script {
namespace {

using e2e::FileOpLine;
using Lines = std::initializer_list<std::wstring>;

constexpr wchar_t kHostKey[] = L"Software\\Marrowby\\Kiv\\Main001\\";

class ScriptWorld : public testing::Test {
protected:
    /// Runs a script of these lines, with this selection.
    RunResult Run(Lines lines, std::vector<std::wstring> selection = {}) {
        std::wstring text = L"\xFEFF";
        for (const std::wstring& line : lines)
            text += line + L"\r\n";
        test::WriteUnits(script_, text);
        app::RealWorld world;
        desktop::MessageBoxes speaker;
        return Engine(world.Ports(speaker)).Run(script_, selection);
    }

    /// What a file in the test's folder holds.
    std::wstring Units(const std::wstring& name) const { return test::ReadUnits(folder_ / name); }

    /// The program field and the parameters of a command that starts this program as a child.
    static std::wstring Child(const std::wstring& arguments) {
        return L"\"" + process::ModulePath() + L"\"," + arguments;
    }

    test::TempFolder folder_;
    test::CurrentFolder current_{folder_.Path()};
    test::OwnRoot root_;
    std::wstring script_ = folder_ / L"main.txt";
};

TEST_F(ScriptWorld, TheButtonOfABoxDecidesHowAScriptGoesOn) {
    auto answer = test::AnswerNextBox(IDYES);
    Run({L"fileopen=out.txt", L"messageboxyn=Go on?", L"filewritew=went on", L"fileclose"});
    EXPECT_EQ(answer.get(), L"Go on?");
    EXPECT_EQ(Units(L"out.txt"), L"went on");
    answer = test::AnswerNextBox(IDNO);
    Run({L"fileopen=no.txt", L"messageboxyn=Go on?", L"filewritew=went on"});
    EXPECT_EQ(answer.get(), L"Go on?");
    EXPECT_EQ(Units(L"no.txt"), L"");
}

TEST_F(ScriptWorld, BoxesOfAScriptBearTheHostsNameAndErrorsTheProgramsOwn) {
    const test::AnsweredBoxes boxes;
    Run({L"messagebox=0x40,資料", L"messageboxok=text", L"filewritew=text"});
    ASSERT_EQ(boxes.Asked.size(), 3U);
    EXPECT_EQ(boxes.Asked[0].Title, L"Kiv");
    EXPECT_EQ(boxes.Asked[0].Text, L"資料");
    EXPECT_EQ(boxes.Asked[0].Style, 0x40U);
    EXPECT_EQ(boxes.Asked[1].Style, 48U);
    EXPECT_EQ(boxes.Asked[2].Title, L"Ferry");
    EXPECT_EQ(boxes.Asked[2].Text, L"File is not open.");
    EXPECT_EQ(boxes.Asked[2].Buttons(), UINT{MB_OK});
}

TEST_F(ScriptWorld, RegistryValuesLieBelowTheHostsKey) {
    const test::AnsweredBoxes boxes;
    Run({L"writeregnum=Sub\\Key,Number,0x10", L"writeregstring=Sub\\Key,Text,a, b",
         L"writeregnum=Sub\\Key,None"});
    DWORD number = 0;
    DWORD size = sizeof number;
    const std::wstring key = std::wstring(kHostKey) + L"Sub\\Key";
    EXPECT_EQ(
        RegGetValueW(HKEY_CURRENT_USER, key.c_str(), L"Number", RRF_RT_REG_DWORD, nullptr, &number, &size),
        ERROR_SUCCESS);
    wchar_t text[20] = {};
    size = sizeof text;
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, key.c_str(), L"Text", RRF_RT_REG_SZ, nullptr, text, &size),
              ERROR_SUCCESS);
    EXPECT_EQ(std::wstring(text), L"a, b");
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, key.c_str(), L"None", RRF_RT_ANY, nullptr, nullptr, nullptr),
              ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(boxes.Only().Text, L"Syntax error!\nwriteregnum=Sub\\Key,None");
}

TEST_F(ScriptWorld, FilesAreWrittenWideAndNarrowAndReadLineByLine) {
    Run({L"bomout=1", L"fileopen=wide.txt", L"filewritew=資料", L"filewritew=2", L"fileclose",
         L"fileopen=narrow.txt", L"filewritea=abc", L"fileclose", L"fileopen=wide.txt", L"filewritew=3",
         L"fileclose", L"fileopenmode=1", L"fileopen=narrow.txt", L"filewritea=z", L"fileclose"});
    EXPECT_EQ(Units(L"wide.txt"), L"\xFEFF資料23");
    EXPECT_EQ(test::ReadBytes(folder_ / L"narrow.txt"), (std::vector<std::byte>{std::byte{'z'}}));
    test::WriteUnits(folder_ / L"in.txt", L"\xFEFFone\r\ntwo\r\n");
    Run({L"var @a", L"var @b", L"var @c", L"@a=fileread(in.txt)", L"@b=fileread(in.txt)",
         L"@c=fileread(in.txt)", L"fileopen=lines.txt", L"filewritew=@a-@b-@c"});
    EXPECT_EQ(Units(L"lines.txt"), L"one-two-ERROR");
}

TEST_F(ScriptWorld, AFileThatCannotBeOpenedIsTold) {
    const test::AnsweredBoxes boxes;
    Run({L"fileopen=missing\\out.txt"});
    EXPECT_EQ(boxes.Only().Text, L"File is not open.");
}

TEST_F(ScriptWorld, AProgramRunsWhereAndAsTheOptionsSayAndIsWaitedFor) {
    const std::wstring report = folder_ / L"report";
    const test::TempFolder other;
    Run({L"bootdir=" + other.Path(), L"showwindow=2", L"runwait=1",
         L"exec=" + Child(test::ReportArguments(report))});
    EXPECT_EQ(test::ReadUnits(report), other.Path() + L"\n2");
}

TEST_F(ScriptWorld, CallAlwaysWaits) {
    const std::wstring report = folder_ / L"report";
    Run({L"call=" + Child(test::ReportArguments(report))});
    EXPECT_EQ(test::ReadUnits(report), folder_.Path() + L"\n1");
}

TEST_F(ScriptWorld, WithoutAWaitTheScriptGoesOnAtOnce) {
    const test::WaitingChildren children;
    Run({L"exec=" + Child(children.Arguments()), L"fileopen=out.txt", L"filewritew=went on"});
    EXPECT_EQ(Units(L"out.txt"), L"went on");
    EXPECT_TRUE(children.HasStarted());
}

TEST_F(ScriptWorld, AfterTheLimitThePersonIsAskedAndMayLetTheProgramRun) {
    const test::WaitingChildren children;
    auto answer = test::AnswerNextBox(IDNO);
    Run({L"runwait=1", L"timeout=60", L"exec=" + Child(children.Arguments())});
    EXPECT_EQ(answer.get(), process::kKillQuestion);
    // It can only say so when it was not killed.
    EXPECT_TRUE(children.HasStarted());
}

TEST_F(ScriptWorld, TheQuestionAfterTheLimitIsAPlainOne) {
    const test::WaitingChildren children;
    const test::AnsweredBoxes boxes(IDNO);
    Run({L"runwait=1", L"timeout=0", L"exec=" + Child(children.Arguments())});
    EXPECT_EQ(boxes.Only().Text, process::kKillQuestion);
    EXPECT_EQ(boxes.Only().Style, UINT{MB_YESNO});
    EXPECT_TRUE(children.HasStarted());
}

TEST_F(ScriptWorld, AfterTheLimitThePersonMayHaveTheProgramKilled) {
    const test::WaitingChildren children;
    base::ProcessHandle child;
    auto answer = test::AnswerNextBox(IDYES, [&] {
        children.HasStarted();
        child = test::OpenChild();
    });
    Run({L"runwait=1", L"timeout=0", L"exec=" + Child(children.Arguments())});
    EXPECT_EQ(answer.get(), process::kKillQuestion);
    ASSERT_TRUE(child);
    ASSERT_EQ(WaitForSingleObject(child.Get(), test::kPatienceMs), WAIT_OBJECT_0);
    DWORD exitCode = 0;
    ASSERT_TRUE(GetExitCodeProcess(child.Get(), &exitCode));
    EXPECT_EQ(exitCode, 999U);
}

TEST_F(ScriptWorld, AProgramThatEndsInTimeIsNotAskedAbout) {
    const test::AnsweredBoxes boxes;
    Run({L"runwait=1", L"timeout=15000", L"exec=" + Child(test::ExitArguments(259))});
    EXPECT_TRUE(boxes.Asked.empty());
}

TEST_F(ScriptWorld, AProgramThatIsMissingIsTold) {
    const test::AnsweredBoxes boxes;
    Run({L"exec=missing.exe,x"});
    EXPECT_EQ(boxes.Only().Text, L"Cannot start the program.\nexec=missing.exe,x");
}

TEST_F(ScriptWorld, ALineThatIsNotUnderstoodStartsTheProgramThatIsToBeTold) {
    const std::wstring report = folder_ / L"report";
    auto answer = test::AnswerNextBox(IDNO);
    Run({L"checkgrammar=\"" + process::ModulePath() + L"\" " + test::ReportArguments(report),
         L"nonsense here", L"fileopen=out.txt"});
    EXPECT_EQ(answer.get(),
              L"This is the line that I do not understand.\nDo you want to continue?\n2:nonsense here");
    EXPECT_TRUE(test::WaitUntil([&] { return test::Exists(report); }));
    EXPECT_FALSE(test::Exists(folder_ / L"out.txt"));
}

TEST_F(ScriptWorld, TheClipboardGetsItsText) {
    Run({L"setclipboardtext=資料 and more"});
    EXPECT_EQ(desktop::UserClipboard().Text(), L"資料 and more");
}

TEST_F(ScriptWorld, AWaitTakesItsTime) {
    const ULONGLONG start = GetTickCount64();
    Run({L"wait=120"});
    EXPECT_GE(GetTickCount64() - start, 120U);
}

TEST_F(ScriptWorld, FunctionsLookAtTheMachine) {
    test::WriteUnits(folder_ / L"in.txt", L"\xFEFFwhole text");
    ASSERT_TRUE(SetEnvironmentVariableW(L"FERRY_A", L"from the environment"));
    Run({L"var @a", L"var @b", L"var @c", L"var @d", L"@a=fileallread(in.txt)",
         L"@b=IsFile(" + script_ + L")", L"@c=GetSystemMetrics(0)", L"@d=%FERRY_A%", L"fileopen=out.txt",
         L"filewritew=@a|@b|@c|@d"});
    SetEnvironmentVariableW(L"FERRY_A", nullptr);
    EXPECT_EQ(Units(L"out.txt"),
              L"whole text|1|" + std::to_wstring(GetSystemMetrics(SM_CXSCREEN)) + L"|from the environment");
}

TEST_F(ScriptWorld, ARandomFileIsOneOfTheFolder) {
    const test::TempFolder other;
    test::WriteUnits(other / L"one.txt", L"");
    test::WriteUnits(other / L"two.txt", L"");
    CreateDirectoryW((other / L"folder").c_str(), nullptr);
    Run({L"var @a", L"@a=random(" + other.Path() + L")", L"fileopen=out.txt", L"filewritew=@a"});
    const std::wstring drawn = Units(L"out.txt");
    EXPECT_TRUE(drawn == other / L"one.txt" || drawn == other / L"two.txt") << base::ToUtf8(drawn);
}

TEST_F(ScriptWorld, SelectedItemsAreWalkedOver) {
    Run({L"fileopen=out.txt", L"for", L"filewritew=?Name?;", L"next"},
        {L"C:\\a\\one.txt", L"C:\\a\\two.txt"});
    EXPECT_EQ(Units(L"out.txt"), L"one;two;");
}

TEST_F(ScriptWorld, WithoutAHostNothingIsSentAndNobodyIsTold) {
    const test::AnsweredBoxes boxes;
    Run({L"postmessage=100", L"sendmessage=1,2", L"system_command=5,text", L"filejump=0,a.txt", L"select=a"});
    EXPECT_TRUE(boxes.Asked.empty());
}

/// With the sample host in the host's place.
class ScriptWorldWithAHost : public ScriptWorld {
protected:
    ScriptWorldWithAHost() {
        EXPECT_TRUE(test::WaitUntil([this] { return !Log(L"WINDOW").empty(); }));
    }

    std::vector<FileOpLine> Log(const std::wstring& kind) const {
        return e2e::LinesOf(e2e::ReadFileOpLog(log_), kind);
    }

    /// The records of a kind that came: code, bytes and text of each.
    std::vector<FileOpLine> Records(const std::wstring& kind) const {
        std::vector<FileOpLine> records;
        for (const FileOpLine& line : Log(kind))
            records.push_back({line.at(1), line.at(2), line.size() > 4 ? line[4] : L""});
        return records;
    }

    /// What a record of `text` looks like there.
    static FileOpLine Record(const std::wstring& code, const std::wstring& text) {
        return {code, std::to_wstring(8 * text.size() + 8), text};
    }

    /// The messages from WM_COMMAND and those that scripts send.
    std::vector<FileOpLine> Messages() const {
        std::vector<FileOpLine> messages;
        for (const FileOpLine& line : Log(L"MESSAGE")) {
            if (line.at(1) != L"0x6")  // the activation, which comes and goes
                messages.push_back({line.at(1), line.at(2), line.at(3)});
        }
        return messages;
    }

private:
    static std::wstring HostPath() {
        const std::wstring own = process::ModulePath();
        return own.substr(0, own.find_last_of(L'\\') + 1) + L"samplehost.exe";
    }

    test::TempFolder logFolder_;
    std::wstring log_ = logFolder_ / L"host.log";
    e2e::ChildProcess host_{HostPath(),
                            {L"--log", log_, L"--stay", L"--no-variable", L"--no-block", L"--window",
                             L"30,40,300,200", L"--trace", L"Script trace Kiv"}};
};

TEST_F(ScriptWorldWithAHost, RecordsArriveWithTheirCodesAndByteCounts) {
    Run({L"system_command=5,資料, more", L"filejump=0,a.txt", L"folderjump=3,C:\\b\\..\\c",
         L"favoritejump=7,text", L"ubjump=8,other", L"fullstateopen=state.txt", L"backgroundimage=C:\\i.png",
         L"listinnerparam=param", L"operationmode=1", L"tabletmode=0", L"select=*.txt"});
    const std::vector<FileOpLine> expected{Record(L"5", L"資料, more"),   Record(L"103", folder_ / L"a.txt"),
                                           Record(L"400", L"C:\\c"),      Record(L"901", L"7/text"),
                                           Record(L"1003", L"8/other"),   Record(L"201", L"state.txt"),
                                           Record(L"1200", L"C:\\i.png"), Record(L"910", L"param"),
                                           Record(L"911", L"1"),          Record(L"912", L"0"),
                                           Record(L"800", L"*.txt")};
    EXPECT_EQ(Records(L"COPYDATA"), expected);
}

TEST_F(ScriptWorldWithAHost, MessagesArriveWithTheirNumbers) {
    Run({L"sendmessage=100,5", L"sendmessageall=-1,-2"});
    const std::vector<FileOpLine> sent{{L"0x111", L"0x64", L"0x5"},
                                       {L"0x8008", L"0xFFFFFFFFFFFFFFFF", L"0xFFFFFFFFFFFFFFFE"}};
    EXPECT_EQ(Messages(), sent);
    Run({L"postmessage=100", L"postmessage1=1,2", L"postmessage2=3,4", L"postwait=5,6", L"postmessagebar=7,8",
         L"postmessageall=9,10"});
    std::vector<FileOpLine> all = sent;
    for (const FileOpLine& line :
         {FileOpLine{L"0x111", L"0x64", L"0x0"}, FileOpLine{L"0x8009", L"0x1", L"0x2"},
          FileOpLine{L"0x800A", L"0x3", L"0x4"}, FileOpLine{L"0x800B", L"0x5", L"0x6"},
          FileOpLine{L"0x800C", L"0x7", L"0x8"}, FileOpLine{L"0x8008", L"0x9", L"0xA"}})
        all.push_back(line);
    EXPECT_TRUE(test::WaitUntil([&] { return Messages().size() >= all.size(); }));
    EXPECT_EQ(Messages(), all);
}

TEST_F(ScriptWorldWithAHost, ItsPlaceIsKnown) {
    const HWND host = FindWindowW(L"{6B1D2E90-4C3A-4F85-9E21-0A7C5D38B4F6}", nullptr);
    RECT place{};
    ASSERT_TRUE(GetWindowRect(host, &place));
    Run({L"var @a", L"@a=MainWindowPosition()", L"fileopen=out.txt", L"filewritew=@a"});
    EXPECT_EQ(Units(L"out.txt"), std::to_wstring(place.left) + L"," + std::to_wstring(place.top) + L"," +
                                     std::to_wstring(place.right) + L"," + std::to_wstring(place.bottom));
}

TEST_F(ScriptWorldWithAHost, ATracedScriptTellsWhatItDoes) {
    Run({L"debug", L"var @a", L"@a=x y", L"wait=1"});
    const std::vector<FileOpLine> records = Records(L"TRACE");
    ASSERT_FALSE(records.empty());
    EXPECT_EQ(records.front(), Record(L"1", script_));
    // In the log a TAB is written as two characters.
    const FileOpLine assigned{L"11", std::to_wstring(8 * 6 + 8), L"@a\\tx y"};
    EXPECT_NE(std::find(records.begin(), records.end(), assigned), records.end());
    EXPECT_EQ(records.back(), Record(L"2", L"4"));
}

TEST_F(ScriptWorldWithAHost, AScriptThatIsNotTracedTellsNothing) {
    Run({L"var @a", L"@a=x"});
    EXPECT_TRUE(Records(L"TRACE").empty());
}

}  // namespace
}  // namespace ferry::script
