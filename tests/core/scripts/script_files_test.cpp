// Every test script is a test of its own, named by its path, and so is every script that people are shown:
// the examples, the sample favourites, and the blocks of the script reference, named by their lines there.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/utf16.h"
#include "core/scripts/script_file.h"
#include "script/checker.h"
#include "script/engine.h"
#include "script/script_program.h"

namespace ferry::scripttools {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kEnd = ".script.txt";

/// A script that says what it does.
struct TestScript {
    std::string Name;
    std::string Place;  ///< Where a person finds it.
    std::string Text;
};

std::string Utf8Of(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return {text.begin(), text.end()};
}

std::string ReadText(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The path below `folder` without what all of them have, in characters that a filter of tests can name.
std::string NameOf(const fs::path& path, const fs::path& folder) {
    std::string name = Utf8Of(path.lexically_relative(folder));
    name.resize(name.size() - kEnd.size());
    for (char& each : name) {
        if (each == '-' || each == ' ' || each == '\'')
            each = '_';
    }
    return name;
}

std::vector<TestScript> ScriptsBelow(const fs::path& folder) {
    std::vector<TestScript> scripts;
    std::error_code error;
    for (fs::recursive_directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        if (Utf8Of(at->path()).ends_with(kEnd))
            scripts.push_back({NameOf(at->path(), folder), Utf8Of(at->path()), ReadText(at->path())});
    }
    std::ranges::sort(scripts, {}, &TestScript::Name);
    return scripts;
}

/// The fenced blocks of a page that hold scripts, named by their lines.
std::vector<TestScript> ScriptsOnPage(const fs::path& path) {
    constexpr std::string_view kStart = "```script\n";
    const std::string page = ReadText(path);
    std::vector<TestScript> scripts;
    for (std::size_t at = page.find(kStart); at != std::string::npos; at = page.find(kStart, at)) {
        at += kStart.size();
        const std::string line = std::to_string(
            std::count(page.begin(), page.begin() + static_cast<std::ptrdiff_t>(at), '\n') + 1);
        scripts.push_back(
            {"line_" + line, Utf8Of(path) + ':' + line, page.substr(at, page.find("```", at) - at)});
    }
    return scripts;
}

script::RunResult RunScript(PretendedWorld& world) {
    std::vector<std::wstring> selection = world.Description().Selection;
    return script::Engine(world.Ports()).Run(world.Description().Script, selection);
}

class TestOfScript : public testing::Test {
public:
    explicit TestOfScript(TestScript script) : script_(std::move(script)) {}

    void TestBody() override {
        const std::string differences = Judge(ReadScriptFile(base::FromUtf8(script_.Text)), RunScript);
        EXPECT_TRUE(differences.empty()) << script_.Place << ":\n" << differences;
    }

private:
    TestScript script_;
};

/// What the checker says of the script and of those that it includes, a line each.
std::string FindingsIn(const ScriptFile& file) {
    PretendedWorld world(file.World);
    std::string text;
    for (const script::Finding& finding : script::Check(world.Ports().ByteFiles, file.World.Script)) {
        text += base::ToUtf8(finding.File) + ':' + std::to_string(finding.Line) + ':' +
                std::to_string(finding.Column) + ": " + script::NameOf(finding.Kind) + ' ' +
                base::ToUtf8(finding.Text) + '\n';
    }
    return text;
}

/// Whether a person hears that something is wrong with the script.
bool IsTold(const Effect& effect) {
    return effect.Kind == L"err" || effect.Text.starts_with(L"This is the line that I do not understand.");
}

/// Whether the script is meant to be right.
bool IsRight(const std::string& script) {
    // It shows what passes without a word and is seldom meant.
    return script.find("\nmessagebox=nothing\n") == std::string::npos &&
           std::ranges::none_of(ReadScriptFile(base::FromUtf8(script)).Effects, IsTold);
}

std::vector<TestScript> RightOnes(std::vector<TestScript> scripts) {
    std::erase_if(scripts, [](const TestScript& script) { return !IsRight(script.Text); });
    return scripts;
}

/// That the checker has nothing to say of a script.
class SilenceOfChecker : public testing::Test {
public:
    explicit SilenceOfChecker(TestScript script) : script_(std::move(script)) {}

    void TestBody() override {
        EXPECT_EQ(FindingsIn(ReadScriptFile(base::FromUtf8(script_.Text))), "") << script_.Place;
    }

private:
    TestScript script_;
};

template <typename Test>
std::size_t Register(const char* suite, const std::vector<TestScript>& scripts) {
    for (const TestScript& script : scripts) {
        testing::RegisterTest(suite, script.Name.c_str(), nullptr, nullptr, __FILE__, __LINE__,
                              [script]() -> testing::Test* { return new Test(script); });
    }
    return scripts.size();
}

const std::vector<TestScript> kFiles = ScriptsBelow(FERRY_TEST_SCRIPTS);
const std::vector<TestScript> kExamples = ScriptsBelow(FERRY_SCRIPT_EXAMPLES);
const std::vector<TestScript> kFavourites = ScriptsBelow(FERRY_SAMPLE_FAVOURITES);
const std::vector<TestScript> kBlocks = ScriptsOnPage(FERRY_SCRIPT_REFERENCE);

const std::size_t kFileTests = Register<TestOfScript>("ScriptFile", kFiles);
const std::size_t kExampleTests = Register<TestOfScript>("ScriptExample", kExamples);
const std::size_t kFavouriteTests = Register<TestOfScript>("SampleFavourite", kFavourites);
const std::size_t kBlockTests = Register<TestOfScript>("ScriptReference", kBlocks);
const std::size_t kCheckedExamples = Register<SilenceOfChecker>("CheckedExample", kExamples);
const std::size_t kCheckedFavourites = Register<SilenceOfChecker>("CheckedFavourite", kFavourites);
const std::size_t kCheckedBlocks = Register<SilenceOfChecker>("CheckedReference", RightOnes(kBlocks));

TEST(ScriptFiles, AreThere) {
    EXPECT_GE(kFileTests, 500U) << "in " << FERRY_TEST_SCRIPTS;
    EXPECT_GE(kExampleTests, 8U) << "in " << FERRY_SCRIPT_EXAMPLES;
    EXPECT_GE(kFavouriteTests, 10U) << "in " << FERRY_SAMPLE_FAVOURITES;
    EXPECT_GE(kBlockTests, 50U) << "on " << FERRY_SCRIPT_REFERENCE;
    EXPECT_EQ(kCheckedExamples, kExampleTests);
    EXPECT_EQ(kCheckedFavourites, kFavouriteTests);
    EXPECT_GE(kCheckedBlocks, 30U) << "on " << FERRY_SCRIPT_REFERENCE;
}

/// The line of `script` with this number, counted from 1.
std::string LineOf(const std::string& script, std::size_t number) {
    std::istringstream lines(script);
    std::string line;
    while (number-- > 0 && std::getline(lines, line)) {
    }
    return line;
}

/// The blocks of all pages that lie beside `page`, named by their pages, too.
std::vector<TestScript> ScriptsBeside(const fs::path& page) {
    std::vector<TestScript> scripts;
    std::error_code error;
    for (const fs::directory_entry& other : fs::directory_iterator(page.parent_path(), error)) {
        if (other.path().extension() != ".md" || other.path().filename() == page.filename())
            continue;
        std::string name = Utf8Of(other.path().stem());
        std::ranges::replace(name, '-', '_');
        for (const TestScript& script : ScriptsOnPage(other.path())) {
            scripts.push_back({name + '_' + script.Name, script.Place, script.Text});
        }
    }
    std::ranges::sort(scripts, {}, &TestScript::Name);
    return scripts;
}

const std::vector<TestScript> kOtherBlocks = ScriptsBeside(FERRY_SCRIPT_REFERENCE);
const std::size_t kOtherTests = Register<TestOfScript>("ScriptOnPage", kOtherBlocks);
const std::size_t kCheckedOthers = Register<SilenceOfChecker>("CheckedPage", kOtherBlocks);

TEST(ScriptFiles, OfOtherPagesAreTriedToo) {
    EXPECT_GE(kOtherTests, 1U) << "beside " << FERRY_SCRIPT_REFERENCE;
    EXPECT_EQ(kCheckedOthers, kOtherTests);
}

/// What a page of the manual shows as `text`.
std::string Unmarked(std::string text) {
    for (const auto& [sign, meaning] :
         {std::pair<std::string_view, char>{"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}}) {
        for (std::size_t at = text.find(sign); at != std::string::npos; at = text.find(sign, at + 1))
            text.replace(at, sign.size(), 1, meaning);
    }
    return text;
}

/// The scripts that the manual's pages below `folder` show, named by page and line.
std::vector<TestScript> ScriptsInManual(const fs::path& folder) {
    constexpr std::string_view kStart = "<pre class=\"script\"><code>";
    std::vector<TestScript> scripts;
    std::error_code error;
    for (fs::recursive_directory_iterator file(folder, error), end; !error && file != end;
         file.increment(error)) {
        if (file->path().extension() != ".html")
            continue;
        const std::string page = ReadText(file->path());
        for (std::size_t at = page.find(kStart); at != std::string::npos; at = page.find(kStart, at)) {
            at += kStart.size();
            const std::string line = std::to_string(
                std::count(page.begin(), page.begin() + static_cast<std::ptrdiff_t>(at), '\n') + 1);
            std::string name = Utf8Of(file->path().lexically_relative(folder).replace_extension());
            std::ranges::replace(name, '/', '_');
            std::ranges::replace(name, '-', '_');
            scripts.push_back({name + "_line_" + line, Utf8Of(file->path()) + ':' + line,
                               Unmarked(page.substr(at, page.find("</code>", at) - at)) + '\n'});
        }
    }
    std::ranges::sort(scripts, {}, &TestScript::Name);
    return scripts;
}

const std::size_t kCheckedInManual =
    Register<SilenceOfChecker>("CheckedManual", ScriptsInManual(FERRY_MANUAL));

TEST(ScriptFiles, OfTheManualAreTheSameNumberInEachLanguage) {
    EXPECT_GE(kCheckedInManual, 16U) << "in " << FERRY_MANUAL;
    EXPECT_EQ(kCheckedInManual % 2, 0U);
}

TEST(CheckerOfScripts, PointsAtWhatItIsAbout) {
    for (const TestScript& script : kFiles) {
        const ScriptFile file = ReadScriptFile(base::FromUtf8(script.Text));
        PretendedWorld world(file.World);
        for (const script::Finding& finding : script::Check(world.Ports().ByteFiles, file.World.Script)) {
            if (finding.File != file.World.Script || finding.Kind == script::FindingKind::CannotRead)
                continue;
            std::string line = LineOf(script.Text, finding.Line);
            EXPECT_EQ(finding.Column, line.find_first_not_of(" \t") + 1) << script.Place;
            // These words are something else by the time that a line is judged.
            if (line.find("?S") != std::string::npos)
                continue;
            std::ranges::replace(line, '\t', ' ');
            // Of an array that is declared at once, the element is named that is wrong.
            const std::wstring text = finding.Text.substr(0, finding.Text.find(L'['));
            EXPECT_NE(base::FromUtf8(line).find(text), std::wstring::npos)
                << script.Place << ':' << finding.Line << ": " << base::ToUtf8(finding.Text);
        }
    }
}

TEST(CheckerOfScripts, IsSilentAboutEveryExampleThatPeopleHandToIt) {
    Arguments arguments{"check"};
    for (const TestScript& script : kExamples)
        arguments.emplace_back(script.Place);
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(RunScriptProgram(arguments, {out, err}), ExitCode::Fine);
    EXPECT_EQ(out.str(), "");
    EXPECT_EQ(err.str(), "");
}

}  // namespace
}  // namespace ferry::scripttools
