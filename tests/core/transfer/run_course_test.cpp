// The course of a run: answers that last, sources that meet each other, cancels that come late.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/utf16.h"
#include "core/transfer/model_run.h"
#include "transfer/batch_run.h"
#include "transfer/destination.h"

namespace ferry::transfer {
namespace {

using model::Fault;

class RunCourse : public ::testing::Test {
protected:
    RunCourse() {
        run.Shared.Logging = true;
        run.Request.Destination = L"D:\\out\\";
        run.Shared.Files.AddFolder(L"D:\\out");
    }

    void AddFile(std::wstring_view path, std::string content) {
        run.Shared.Files.AddFile(path, std::move(content), model::kBaseTime);
    }
    void AddSource(std::wstring_view path) { run.Request.Sources.Append(path); }

    /// Files of these names at both places; the incoming ones are the sources.
    void AddCollisions(std::initializer_list<const wchar_t*> names) {
        for (const std::wstring name : names) {
            AddFile(L"C:\\src\\" + name, "incoming " + base::ToUtf8(name));
            AddFile(L"D:\\out\\" + name, "existing " + base::ToUtf8(name));
            AddSource(L"C:\\src\\" + name);
        }
        run.Request.Settings.Policy = 7;
    }

    /// Answers the questions of the collision dialog one after the other, and counts them.
    void AnswerCollisions(std::vector<CollisionAnswer> answers) {
        run.Person.Collision = [this, answers] { return answers.at(questions++); };
    }

    std::string ContentAt(std::wstring_view path) const { return run.Shared.Files.ContentAt(path); }

    /// How many files hold a content that begins like this, wherever they are.
    std::size_t FilesWith(const std::string& start) const {
        std::size_t count = 0;
        run.Shared.Files.ForEach([&](const std::wstring&, const model::Node& node) {
            count += !node.IsFolder && node.Content.starts_with(start);
        });
        return count;
    }

    model::ModelRun run;
    std::size_t questions = 0;
};

TEST_F(RunCourse, AnAnswerForAllHoldsInLaterSourcesAndTheirSubfolders) {
    AddCollisions({L"a", L"dir\\b", L"dir\\sub\\c"});
    run.Request.Sources.Clear();
    for (const wchar_t* const source : {L"C:\\src\\a", L"C:\\src\\dir"})
        AddSource(source);
    AnswerCollisions({{CollisionChoice::ThisAndLater, PolicyOf(3)}});
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(questions, 1u);
    EXPECT_EQ(ContentAt(L"D:\\out\\dir\\b"), "incoming dir\\b");
    EXPECT_EQ(ContentAt(L"D:\\out\\dir\\sub\\c"), "incoming dir\\sub\\c");
}

TEST_F(RunCourse, AnAnswerForAllEndsWithItsRun) {
    AddCollisions({L"a"});
    AnswerCollisions(
        {{CollisionChoice::ThisAndLater, PolicyOf(2)}, {CollisionChoice::ThisAndLater, PolicyOf(2)}});
    EXPECT_TRUE(run.Run());
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(questions, 2u);
}

TEST_F(RunCourse, SevenForAllGoesOnAskingAndHigherNumbersOverwrite) {
    AddCollisions({L"a", L"b", L"c"});
    AnswerCollisions(
        {{CollisionChoice::ThisAndLater, PolicyOf(7)}, {CollisionChoice::ThisAndLater, PolicyOf(100)}});
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(questions, 2u);
    EXPECT_EQ(FilesWith("existing"), 0u);
}

TEST_F(RunCourse, AFileThatThePersonSkipsStaysAtBothPlaces) {
    AddCollisions({L"a"});
    AnswerCollisions({{CollisionChoice::SkipItem, CollisionPolicy::Overwrite}});
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(ContentAt(L"D:\\out\\a"), "existing a");
    EXPECT_EQ(ContentAt(L"C:\\src\\a"), "incoming a");
}

TEST_F(RunCourse, TwoSourcesOfOneNameCollideWithEachOther) {
    AddFile(L"C:\\one\\f", "first");
    AddFile(L"C:\\two\\f", "second");
    AddSource(L"C:\\one\\f");
    AddSource(L"C:\\two\\f");
    run.Request.What = Operation::Move;
    run.Request.Settings.Policy = 7;
    AnswerCollisions({{CollisionChoice::ThisItem, PolicyOf(2)}});
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(questions, 1u);
    EXPECT_EQ(ContentAt(L"D:\\out\\f"), "first");
    EXPECT_EQ(ContentAt(L"C:\\two\\f"), "second");
}

TEST_F(RunCourse, AFolderThatIsListedTwiceIsMovedOnceAndNothingOfItIsLost) {
    for (std::uint32_t policy = 0; policy <= 8; ++policy) {
        SCOPED_TRACE(policy);
        model::ModelRun twice;
        twice.Shared.Files.AddFile(L"C:\\src\\dir\\sub\\f", "bytes", model::kBaseTime);
        twice.Shared.Files.AddFolder(L"D:\\out");
        twice.Request.Destination = L"D:\\out\\";
        for (const wchar_t* const source : {L"C:\\src\\dir", L"c:\\SRC\\DIR", L"C:\\src\\dir\\sub"})
            twice.Request.Sources.Append(source);
        twice.Request.What = Operation::Move;
        twice.Request.Settings.Policy = policy;
        EXPECT_TRUE(twice.Run());
        EXPECT_EQ(twice.Shared.Files.At(L"C:\\src\\dir"), nullptr);
        EXPECT_EQ(twice.Shared.Files.ContentAt(L"D:\\out\\dir\\sub\\f"), "bytes");
    }
}

TEST_F(RunCourse, ACancelDuringTheLastFileOfASourceStopsBeforeTheNextSource) {
    AddFile(L"C:\\src\\dir\\a", "bytes");
    AddFile(L"C:\\src\\later", "later");
    AddSource(L"C:\\src\\dir");
    AddSource(L"C:\\src\\later");
    run.Request.What = Operation::Move;
    run.Shared.Faults = [this](std::size_t, std::wstring_view port) {
        run.View.CancelRequested = run.View.CancelRequested || port == L"Move";
        return Fault::None;
    };
    EXPECT_FALSE(run.Run());
    EXPECT_EQ(ContentAt(L"D:\\out\\dir\\a"), "bytes");
    EXPECT_EQ(run.Shared.Files.At(L"C:\\src\\dir"), nullptr) << "the folder that the file emptied is gone";
    EXPECT_EQ(ContentAt(L"C:\\src\\later"), "later");
    EXPECT_EQ(run.Shared.Log.back(), L"Drain");
}

TEST_F(RunCourse, ADestinationThatWasTypedWithASlashGetsEmptyFoldersAndNoFile) {
    AddFile(L"C:\\src\\a", "first");
    AddFile(L"C:\\src\\dir\\b", "second");
    AddSource(L"C:\\src\\a");
    AddSource(L"C:\\src\\dir");
    run.Request.Destination = MakeWorkingDestination(L"D:/work").Path;
    EXPECT_EQ(EnsureDestinationFolder(run.Files, run.Files, run.Shell, run.Request.Destination).Outcome,
              FolderOutcome::Ready);
    run.Request.What = Operation::Move;
    const auto before = run.Shared.Files.Snapshot(L"C:\\src");
    for (std::uint32_t policy = 0; policy <= 8; ++policy) {
        run.Request.Settings.Policy = policy;
        EXPECT_TRUE(run.Run());
        EXPECT_EQ(run.Shared.Files.Snapshot(L"C:\\src"), before);
    }
    RunBatch(run.Request, run.Shell);
    EXPECT_EQ(run.Shared.Files.Snapshot(L"C:\\src"), before);
    EXPECT_EQ(run.Shared.Files.At(L"D:\\work"), nullptr);
    // The unit that nobody sees separates nothing, so a folder lands beside the destination.
    const std::wstring destination = L"D:\\work\x008B";
    EXPECT_TRUE(run.Shared.Files.At(destination)->Children.empty());
    EXPECT_TRUE(run.Shared.Files.At(destination + L"dir")->Children.empty());
    EXPECT_TRUE(run.Shared.Transfers.empty());
}

/// What the person sees at the moment of each call: the bar and the second line.
class RunAsSeen : public RunCourse {
protected:
    /// The run's log as a person would follow it: at each call that takes time, where the bar stands and
    /// what the second line names.
    std::vector<std::wstring> Seen() const {
        std::vector<std::wstring> seen;
        std::wstring range = L"0";
        std::wstring line;
        int position = 0;
        for (const std::wstring& call : run.Shared.Log) {
            const std::wstring port = call.substr(0, call.find(L' '));
            const std::wstring rest = port.size() < call.size() ? call.substr(port.size() + 1) : L"";
            if (port == L"SetRange") {
                range = rest;
                position = 0;
            } else if (port == L"Step") {
                ++position;
            } else if (port == L"Show") {
                line = rest;
            } else if (port == L"Copy" || port == L"Move" || port == L"MakeFolder") {
                const std::wstring path = rest.substr(0, rest.find(L' '));
                seen.push_back(path.substr(path.rfind(L'\\') + 1) + L": " + std::to_wstring(position) + L"/" +
                               range + L" " + line);
            }
        }
        return seen;
    }
};

TEST_F(RunAsSeen, TheBarCountsAnItemBeforeItIsHandledAndTheLineNamesTheOneBeforeIt) {
    AddFile(L"C:\\src\\dir\\a", "first");
    AddFile(L"C:\\src\\dir\\sub\\b", "second");
    AddFile(L"C:\\src\\later", "third");
    AddSource(L"C:\\src\\dir");
    AddSource(L"C:\\src\\later");
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(Seen(), (std::vector<std::wstring>{L"dir: 1/4 ", L"sub: 2/4 dir", L"a: 3/4 sub", L"b: 4/4 a",
                                                 L"later: 1/1 b"}));
    EXPECT_EQ(run.Shared.Log.back(), L"Show later");
}

TEST_F(RunAsSeen, AFileThatIsLeftAloneByItsPolicyIsNamedAndOneThatThePersonSkippedIsNot) {
    AddCollisions({L"a", L"b"});
    AnswerCollisions({{CollisionChoice::ThisItem, PolicyOf(2)}, {CollisionChoice::SkipItem, PolicyOf(3)}});
    EXPECT_TRUE(run.Run());
    std::erase_if(run.Shared.Log, [](const std::wstring& call) { return !call.starts_with(L"Show "); });
    EXPECT_EQ(run.Shared.Log, (std::vector<std::wstring>{L"Show a"}));
}

TEST_F(RunCourse, TheRangeIsTheCountModulo65536) {
    run.Shared.Logging = false;
    model::Node& folder = run.Shared.Files.AddFolder(L"C:\\src\\dir");
    AddSource(L"C:\\src\\dir");
    run.Shared.Faults = [](std::size_t, std::wstring_view port) {
        return port == L"Drain" ? Fault::Cancel : Fault::None;
    };
    const auto addChildrenUpTo = [&folder](std::size_t count) {
        while (folder.Children.size() < count) {
            folder.Children.push_back(std::make_unique<model::Node>());
            folder.Children.back()->Name = std::to_wstring(folder.Children.size());
        }
    };
    for (const std::size_t files : {65'534u, 65'535u, 65'536u}) {
        addChildrenUpTo(files);
        EXPECT_FALSE(run.Run());
    }
    EXPECT_EQ(run.View.Ranges, (std::vector<std::uint32_t>{65'535, 0, 1})) << "the folder counts, too";
}

}  // namespace
}  // namespace ferry::transfer
