// The course of a run: answers that last, sources that meet each other, cancels that come late.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "core/transfer/model_run.h"

namespace ferry::transfer {
namespace {

using model::Fault;

constexpr std::uint64_t kTime = 133'000'000'000'000'000;

class RunCourse : public ::testing::Test {
protected:
    RunCourse() {
        run.Shared.Logging = true;
        run.Request.Destination = L"D:\\out\\";
        run.Shared.Files.AddFolder(L"D:\\out");
    }

    void AddFile(std::wstring_view path, std::string content) {
        run.Shared.Files.AddFile(path, std::move(content), kTime);
    }
    void AddSource(std::wstring_view path) { run.Request.Sources.Append(path); }

    /// Files of these names at both places; the incoming ones are the sources.
    void AddCollisions(std::initializer_list<const wchar_t*> names) {
        for (const std::wstring name : names) {
            AddFile(L"C:\\src\\" + name, "incoming");
            AddFile(L"D:\\out\\" + name, "existing");
            AddSource(L"C:\\src\\" + name);
        }
        run.Request.Settings.Policy = 7;
    }

    /// Answers the questions of the collision dialog one after the other, and counts them.
    void AnswerCollisions(std::vector<CollisionAnswer> answers) {
        run.Person.Collision = [this, answers] { return answers.at(questions++); };
    }

    std::string ContentAt(std::wstring_view path) const { return run.Shared.Files.ContentAt(path); }

    /// How many files hold `content`, wherever they are.
    std::size_t FilesWith(const std::string& content) const {
        std::size_t count = 0;
        run.Shared.Files.ForEach([&](const std::wstring&, const model::Node& node) {
            count += !node.IsFolder && node.Content == content;
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
    AnswerCollisions({{kEndForAll, 3}});
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(questions, 1u);
    EXPECT_EQ(ContentAt(L"D:\\out\\dir\\b"), "incoming");
    EXPECT_EQ(ContentAt(L"D:\\out\\dir\\sub\\c"), "incoming");
}

TEST_F(RunCourse, AnAnswerForAllEndsWithItsRun) {
    AddCollisions({L"a"});
    AnswerCollisions({{kEndForAll, 2}, {kEndForAll, 2}});
    EXPECT_TRUE(run.Run());
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(questions, 2u);
}

TEST_F(RunCourse, SevenForAllGoesOnAskingAndHigherNumbersOverwrite) {
    AddCollisions({L"a", L"b", L"c"});
    AnswerCollisions({{kEndForAll, 7}, {kEndForAll, 8}});
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(questions, 2u);
    EXPECT_EQ(FilesWith("existing"), 0u);
}

TEST_F(RunCourse, AQuestionThatEndsWithoutAnAnswerSkipsItsFile) {
    AddCollisions({L"a"});
    for (const int endCode : {0, -1, 3, 4, 6}) {
        AnswerCollisions({{endCode, 3}});
        questions = 0;
        EXPECT_TRUE(run.Run());
        EXPECT_EQ(ContentAt(L"D:\\out\\a"), "existing") << endCode;
        EXPECT_EQ(ContentAt(L"C:\\src\\a"), "incoming") << endCode;
    }
}

TEST_F(RunCourse, TwoSourcesOfOneNameCollideWithEachOther) {
    AddFile(L"C:\\one\\f", "first");
    AddFile(L"C:\\two\\f", "second");
    AddSource(L"C:\\one\\f");
    AddSource(L"C:\\two\\f");
    run.Request.What = Operation::Move;
    run.Request.Settings.Policy = 7;
    AnswerCollisions({{kEndOk, 2}});
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(questions, 1u);
    EXPECT_EQ(ContentAt(L"D:\\out\\f"), "first");
    EXPECT_EQ(ContentAt(L"C:\\two\\f"), "second");
}

TEST_F(RunCourse, AFolderThatIsListedTwiceIsMovedOnceAndNothingOfItIsLost) {
    for (std::uint32_t policy = 0; policy <= 8; ++policy) {
        SCOPED_TRACE(policy);
        model::ModelRun twice;
        twice.Shared.Files.AddFile(L"C:\\src\\dir\\sub\\f", "bytes", kTime);
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
