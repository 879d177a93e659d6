// The program for script authors, from its arguments to what it prints and leaves behind.
#include "script/script_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "base/utf16.h"
#include "script/real_disk.h"

namespace ferry::scripttools {
namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace fs = std::filesystem;

class ScriptProgram : public testing::Test {
protected:
    ScriptProgram() : folder_(fs::temp_directory_path() / ("ferry-script-" + FolderName())) {
        fs::remove_all(folder_);
        fs::create_directories(folder_);
    }
    ~ScriptProgram() override {
        std::error_code error;
        fs::remove_all(folder_, error);
    }

    fs::path Write(const std::string& name, std::string_view content) const {
        std::ofstream(folder_ / name, std::ios::binary) << content;
        return folder_ / name;
    }

    /// A script of these lines in its encoding.
    fs::path WriteScript(const std::string& name, const std::wstring& lines) const {
        std::string content;
        for (const std::byte value : base::BytesFromUnits(L"\xFEFF" + lines))
            content += static_cast<char>(value);
        return Write(name, content);
    }

    std::string Read(const std::string& name) const {
        std::ifstream file(folder_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    ExitCode Run(const Arguments& arguments) {
        out_.str({});
        err_.str({});
        return RunScriptProgram(arguments, {out_, err_});
    }
    std::string Out() const { return out_.str(); }
    std::string Err() const { return err_.str(); }

    const fs::path& Folder() const { return folder_; }

private:
    static std::string FolderName() {
        const testing::TestInfo* const test = testing::UnitTest::GetInstance()->current_test_info();
        return std::string(test->name()) + std::to_string(test->line());
    }

    fs::path folder_;
    std::ostringstream out_;
    std::ostringstream err_;
};

TEST_F(ScriptProgram, HelpsWhenItIsAsked) {
    for (const char* word : {"help", "--help", "-h"}) {
        EXPECT_EQ(Run({word}), ExitCode::Fine);
        EXPECT_THAT(Out(), StartsWith("Usage: "));
        EXPECT_EQ(Err(), "");
    }
}

TEST_F(ScriptProgram, RefusesAWrongCommandLine) {
    const fs::path script = WriteScript("s.txt", L"exit");
    for (const Arguments& wrong : std::vector<Arguments>{{},
                                                         {"walk"},
                                                         {"run"},
                                                         {"run", script, script},
                                                         {"run", script, "--quickly"},
                                                         {"run", script, "--select"},
                                                         {"run", script, "--select", ""},
                                                         {"run", script, "--answer", "yes"},
                                                         {"run", script, "--env", "=x"},
                                                         {"run", Folder() / "none"},
                                                         {"run", Folder()},
                                                         {"check"},
                                                         {"check", "--json"},
                                                         {"check", Folder() / "none"},
                                                         {"world"},
                                                         {"world", Folder()},
                                                         {"world", Folder() / "none.json"}}) {
        EXPECT_EQ(Run(wrong), ExitCode::WrongUsage) << testing::PrintToString(wrong);
        EXPECT_NE(Err(), "");
        EXPECT_EQ(Out(), "");
    }
}

TEST_F(ScriptProgram, PrintsWhatAScriptDoes) {
    const fs::path script = WriteScript(
        "s.txt", L"for\r\nmessageboxok=?FileName?\r\nnext\r\nmessageboxyn=on?\r\nmessageboxok=no\r\n");
    EXPECT_EQ(
        Run({"run", "--pretend", script, "--select", "a.txt", "--select", "C:\\b.txt", "--answer", "7"}),
        ExitCode::Fine);
    EXPECT_EQ(Out(), "msg 48 a.txt\nmsg 48 b.txt\nmsg 36 on?\n");
    EXPECT_EQ(Err(), "");
}

TEST_F(ScriptProgram, TellsOfAScriptWithAnErrorByItsExitCode) {
    const fs::path script = WriteScript("s.txt", L"var if\r\n");
    EXPECT_EQ(Run({"run", "--pretend", script}), ExitCode::Findings);
    EXPECT_THAT(Out(), StartsWith("err This word is reserved and can not be used as a variable.␤"));
}

TEST_F(ScriptProgram, PrintsAResultAsJson) {
    const fs::path script =
        WriteScript("s.txt", L"postmessage=100\r\nsetclipboardtext=%NAME%\r\nexitall\r\n");
    EXPECT_EQ(Run({"run", "--pretend", script, "--host-window", "--json", "--env", "name=value"}),
              ExitCode::Fine);
    EXPECT_EQ(Out(),
              "{\"effects\": [\n{\"k\":\"post\",\"t\":\"273 100 0\"},\n{\"k\":\"clip\",\"t\":\"value\"}],\n"
              "\"files\": {},\n\"result\": -1}\n");
}

TEST_F(ScriptProgram, LetsAScriptReadTheFilesOfThisMachineAndWriteNone) {
    WriteScript("other.txt", L"messageboxok=other\r\n");
    const fs::path script = WriteScript(
        "s.txt",
        L"include=?ScriptPath?other.txt\r\nfileopen=?ScriptPath?new.txt\r\nfilewritea=x\r\nfileclose\r\n");
    EXPECT_EQ(Run({"run", "--pretend", script}), ExitCode::Fine);
    EXPECT_THAT(Out(), StartsWith("msg 48 other\nopen "));
    EXPECT_THAT(Out(), HasSubstr("new.txt|78\n"));
    EXPECT_FALSE(fs::exists(Folder() / "new.txt"));
}

TEST_F(ScriptProgram, SaysThatAScriptIsInAnotherEncoding) {
    const fs::path marked = Write("marked.txt", "\xEF\xBB\xBFmessageboxok=x\n");
    const fs::path unmarked = Write("unmarked.txt", "messageboxok=x\n");
    const fs::path swapped = Write("swapped.txt", std::string_view("\xFE\xFF\0x\0\n", 6));
    for (const fs::path& script : {marked, unmarked, swapped}) {
        EXPECT_EQ(Run({"check", script}), ExitCode::Findings);
        EXPECT_THAT(Out(), HasSubstr(":1:1: "));
        EXPECT_THAT(Out(), HasSubstr("UTF-16LE"));
    }
    EXPECT_THAT(Out(), HasSubstr("UTF-16BE"));
    EXPECT_EQ(Run({"check", marked, unmarked, "--json"}), ExitCode::Findings);
    EXPECT_THAT(Out(), HasSubstr("\"line\": 1"));
    Run({"run", "--pretend", marked});
    EXPECT_THAT(Err(), HasSubstr("UTF-16LE"));
}

TEST_F(ScriptProgram, SaysWhereAScriptIsWrongAndWhatAbout) {
    const fs::path script = WriteScript("s.txt", L"exit\r\n  goto nowhere\r\n");
    EXPECT_EQ(Run({"check", script}), ExitCode::Findings);
    EXPECT_THAT(Out(), HasSubstr("s.txt:2:3: "));
    EXPECT_THAT(Out(), HasSubstr("nowhere"));
    EXPECT_EQ(Run({"check", script, "--json"}), ExitCode::Findings);
    EXPECT_THAT(Out(), HasSubstr("\"line\": 2"));
    EXPECT_THAT(Out(), HasSubstr("\"warning\": false"));
}

/// A script that is wrong in one way, and what is said of it behind the file's name.
struct WrongScript {
    const wchar_t* Lines;
    const char* Said;
    const char* Kind;
};

constexpr WrongScript kWrongScripts[] = {
    {L"exit\r\n include=C:\\none.txt", ":2:2: this script cannot be read: C:\\none.txt", "cannot-read"},
    {L"exit\r\n\tgoto nowhere:", ":2:2: there is no such label: nowhere", "undefined-label"},
    {L"a:\r\n  a:", ":2:3: there is a label of this name already: a", "doubled-label"},
    {L"\r\nif 1==1", ":2:1: this block is never closed: if 1==1", "unclosed-block"},
    {L"\r\n next", ":2:2: no block is open here that this word belongs to: next", "unopened-block"},
    {L"\r\nmesagebox=0,a", ":2:1: this is no command, no option and no declared variable: mesagebox=0,a",
     "unknown-line"},
    {L"var $v\r\n$v=lenght(a)", ":2:1: there is no such function: lenght", "unknown-function"},
    {L"\r\nvar Next", ":2:1: a word of the language cannot be a variable: Next", "reserved-name"},
    {L"var a\r\nvar a", ":2:1: there is a variable of this name already: a", "doubled-name"},
    {L"var ab\r\nvar a", ":2:1: one variable's name contains the other's: a", "overlapping-name"},
    {L"\r\nwriteregnum=k,n", ":2:1: too few or too many arguments: writeregnum=k,n", "argument-count"},
    {L"\r\nmessageboxok a", ":2:1: this statement is not written as it has to be: messageboxok a",
     "wrong-form"},
    {L"a:\r\nif 1==1\r\n goto a\r\nendif",
     ":3:2: warning: this jump leaves an \"if\", which stays open: goto a", "leaves-branch"},
};

TEST_F(ScriptProgram, SaysEverythingThatCanBeWrong) {
    for (const WrongScript& wrong : kWrongScripts) {
        const fs::path script = WriteScript("s.txt", wrong.Lines);
        const std::string shown = base::ToUtf8(base::FromUtf8(script.string()));
        EXPECT_EQ(Run({"check", script}), ExitCode::Findings);
        EXPECT_EQ(Out(), shown + wrong.Said + '\n');
        EXPECT_EQ(Run({"check", script, "--json"}), ExitCode::Findings);
        EXPECT_THAT(Out(), HasSubstr(std::string(R"("kind": ")") + wrong.Kind + '"'));
    }
}

TEST_F(ScriptProgram, ChecksTestScriptsAsWhatTheyAreMadeOf) {
    const fs::path right = Write("right.script.txt", "// 日本\n//> msg 48 日本\nmessageboxok=日本\n");
    EXPECT_EQ(Run({"check", right}), ExitCode::Fine);
    EXPECT_EQ(Out(), "");
    const fs::path wrong = Write("wrong.script.txt", "include=?ScriptPath?wrong.script.txt\ngoto nowhere\n");
    EXPECT_EQ(Run({"check", wrong}), ExitCode::Findings);
    EXPECT_THAT(Out(), HasSubstr("wrong.script.txt:2:1: there is no such label: nowhere\n"));
}

TEST_F(ScriptProgram, ChecksWhatAScriptIncludesUnderItsOwnName) {
    const fs::path other = WriteScript("other.txt", L"goto nowhere\r\n");
    const fs::path script = WriteScript("s.txt", L"include=" + ScriptPathOf(other) + L"\r\n");
    EXPECT_EQ(Run({"check", script}), ExitCode::Findings);
    EXPECT_THAT(Out(), HasSubstr("other.txt:1:"));
}

TEST_F(ScriptProgram, FindsNothingInAScriptThatIsRight) {
    const fs::path marked = WriteScript("marked.txt", L"messageboxok=日本\r\n");
    const fs::path unmarked = Write("unmarked.txt", std::string_view("e\0x\0i\0t\0", 8));
    const fs::path empty = Write("empty.txt", "");
    EXPECT_EQ(Run({"check", marked, unmarked, empty}), ExitCode::Fine);
    EXPECT_EQ(Out(), "");
    EXPECT_EQ(Run({"check", marked, "--json"}), ExitCode::Fine);
    EXPECT_EQ(Out(), "[]\n");
}

bool gWasOnThisMachine = false;

TEST_F(ScriptProgram, RunsOnTheMachineItselfWhereItCanUnlessItIsToPretend) {
    const fs::path script = WriteScript("s.txt", L"messageboxok=x\r\n");
    std::ostringstream out;
    const auto run = [](const std::wstring& path, std::vector<std::wstring> selection) {
        gWasOnThisMachine = path.ends_with(L"s.txt") && selection == std::vector<std::wstring>{L"C:\\a"};
        return true;
    };
    const Console console{out, out, run};
    EXPECT_EQ(RunScriptProgram({"run", script, "--pretend"}, console), ExitCode::Fine);
    EXPECT_FALSE(gWasOnThisMachine);
    EXPECT_EQ(out.str(), "msg 48 x\n");
    EXPECT_EQ(RunScriptProgram({"run", script, "--select", "C:\\a"}, console), ExitCode::Findings);
    EXPECT_TRUE(gWasOnThisMachine);
    EXPECT_EQ(out.str(), "msg 48 x\n");
}

/// A world whose script at C:\s holds `script`.
std::string WorldWith(const std::wstring& script) {
    std::string digits;
    for (const std::byte value : base::BytesFromUnits(script)) {
        constexpr const char* kDigits = "0123456789ABCDEF";
        digits += kDigits[std::to_integer<int>(value) >> 4];
        digits += kDigits[std::to_integer<int>(value) & 15];
    }
    return R"({"name": "x", "world": {"script": "C:\\s", "files": {"C:\\s": ")" + digits + "\"}}}";
}

TEST_F(ScriptProgram, WritesTheResultBesideEachWorld) {
    Write("a.json", WorldWith(L"messageboxok=a"));
    Write("b.json", WorldWith(L"exitall"));
    Write("other.txt", "no world");
    EXPECT_EQ(Run({"world", Folder()}), ExitCode::Fine) << Err();
    EXPECT_THAT(Read("a.result.json"), StartsWith("{\"effects\": [\n{\"k\":\"msg\",\"t\":\"48 a\"}],\n"));
    EXPECT_THAT(Read("b.result.json"), HasSubstr("\"result\": -1}"));
    EXPECT_EQ(Run({"world", Folder(), Folder() / "a.json", Folder() / "a.result.json"}), ExitCode::Fine)
        << Err();
    EXPECT_FALSE(fs::exists(Folder() / "a.result.result.json"));
    EXPECT_EQ(Out(), "");
}

TEST_F(ScriptProgram, GoesOnAfterAWorldThatIsWrong) {
    Write("a.json", "{");
    Write("b.json", WorldWith(L"exit"));
    EXPECT_EQ(Run({"world", Folder()}), ExitCode::WrongUsage);
    EXPECT_THAT(Err(), HasSubstr("a.json: "));
    EXPECT_THAT(Err(), Not(HasSubstr("b.json: ")));
    EXPECT_TRUE(fs::exists(Folder() / "b.result.json"));
    EXPECT_FALSE(fs::exists(Folder() / "a.result.json"));
}

TEST_F(ScriptProgram, StopsAScriptThatNeverEnds) {
    Write("a.json", WorldWith(L"do\r\nwhile 1==1\r\n"));
    EXPECT_EQ(Run({"world", Folder() / "a.json"}), ExitCode::Fine);
    EXPECT_THAT(Err(), HasSubstr("did not come to an end"));
    EXPECT_THAT(Read("a.result.json"), HasSubstr("The script was stopped."));
}

}  // namespace
}  // namespace ferry::scripttools
