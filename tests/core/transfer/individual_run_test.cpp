// The item-by-item run: its calls in their order, and what it leaves behind.
#include "transfer/individual_run.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "base/utf16.h"
#include "core/transfer/model_run.h"

namespace ferry::transfer {
namespace {

using model::Fault;
using Lines = std::vector<std::wstring>;

class IndividualRunTest : public ::testing::Test {
protected:
    IndividualRunTest() {
        run.Shared.Logging = true;
        run.Request.Destination = L"D:\\out\\";
        run.Shared.Files.AddFolder(L"D:\\out");
    }

    void AddSource(std::wstring_view path) { run.Request.Sources.Append(path); }

    /// Every file has a content of its own, so that none can stand for another.
    static std::string BytesOf(std::wstring_view path) { return "bytes of " + base::ToUtf8(path); }

    void AddFile(std::wstring_view path) { run.Shared.Files.AddFile(path, BytesOf(path), model::kBaseTime); }
    void UsePolicy(std::uint32_t policy) { run.Request.Settings.Policy = policy; }
    void UseMove() { run.Request.What = Operation::Move; }
    bool Exists(std::wstring_view path) const { return run.Shared.Files.At(path) != nullptr; }
    std::uint32_t AttributesOf(std::wstring_view path) const { return run.Shared.Files.At(path)->Attributes; }
    std::string ContentAt(std::wstring_view path) const { return run.Shared.Files.ContentAt(path); }
    const Lines& Log() const { return run.Shared.Log; }

    /// The person cancels when the run handles its messages for the `n`th time.
    void CancelAtDrain(int n) {
        run.Shared.Faults = [drains = 0, n](std::size_t, std::wstring_view port) mutable {
            return port == L"Drain" && ++drains == n ? Fault::Cancel : Fault::None;
        };
    }

    /// Answers the questions of the collision dialog one after the other.
    void AnswerCollisions(std::vector<CollisionAnswer> answers) {
        run.Person.Collision = [answers, next = std::size_t{0}]() mutable { return answers.at(next++); };
    }

    std::size_t Questions() const {
        return static_cast<std::size_t>(std::count_if(
            Log().begin(), Log().end(), [](const auto& line) { return line.starts_with(L"AskCollision"); }));
    }

    model::ModelRun run;
};

TEST_F(IndividualRunTest, AMoveOfAFolderMakesItsCallsInOrder) {
    AddFile(L"C:\\src\\dir\\a");
    AddFile(L"C:\\src\\dir\\sub\\b");
    AddSource(L"C:\\src\\dir");
    UseMove();
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(Log(), (Lines{L"Attributes C:\\src\\dir",
                            L"Search C:\\src\\dir",
                            L"Search C:\\src\\dir\\sub",
                            L"SetRange 4",
                            L"Drain",
                            L"Step",
                            L"MakeFolder D:\\out\\dir",
                            L"Show dir",
                            L"Drain",
                            L"Step",
                            L"MakeFolder D:\\out\\dir\\sub",
                            L"Show sub",
                            L"Drain",
                            L"Step",
                            L"Find D:\\out\\dir\\a",
                            L"Size C:\\src\\dir\\a",
                            L"Move C:\\src\\dir\\a > D:\\out\\dir\\ flags 2A14 asked",
                            L"Show a",
                            L"Drain",
                            L"Step",
                            L"Find D:\\out\\dir\\sub\\b",
                            L"Size C:\\src\\dir\\sub\\b",
                            L"Move C:\\src\\dir\\sub\\b > D:\\out\\dir\\sub\\ flags 2A14 asked",
                            L"Show b",
                            L"Attributes D:\\out\\dir\\sub",
                            L"Identity C:\\src\\dir\\sub",
                            L"Identity D:\\out\\dir\\sub",
                            L"SetAttributes C:\\src\\dir\\sub 16",
                            L"RemoveFolder C:\\src\\dir\\sub",
                            L"Attributes D:\\out\\dir",
                            L"Identity C:\\src\\dir",
                            L"Identity D:\\out\\dir",
                            L"SetAttributes C:\\src\\dir 16",
                            L"RemoveFolder C:\\src\\dir"}));
    EXPECT_FALSE(Exists(L"C:\\src\\dir"));
}

TEST_F(IndividualRunTest, ACopyOfOneFileMakesItsCallsInOrder) {
    AddFile(L"C:\\src\\a");
    AddSource(L"C:\\src\\a");
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(Log(), (Lines{L"Attributes C:\\src\\a", L"SetRange 1", L"Drain", L"Step", L"Find D:\\out\\a",
                            L"Size C:\\src\\a", L"Copy C:\\src\\a > D:\\out\\ flags 2A14 asked", L"Show a"}));
}

TEST_F(IndividualRunTest, AFolderThatExistsGetsTheSourcesAttributesAndANewOneDoesNot) {
    run.Shared.Files.AddFolder(L"C:\\src\\dir").Attributes = 0x13;
    run.Shared.Files.AddFolder(L"C:\\src\\dir\\sub").Attributes = 0x12;
    run.Shared.Files.AddFolder(L"D:\\out\\dir");
    AddSource(L"C:\\src\\dir");
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(AttributesOf(L"D:\\out\\dir"), 0x13u);
    EXPECT_EQ(AttributesOf(L"D:\\out\\dir\\sub"), 0x10u);
    const Lines calls(Log().begin() + 4, Log().begin() + 10);
    EXPECT_EQ(calls, (Lines{L"Drain", L"Step", L"MakeFolder D:\\out\\dir", L"NotifyFolderMade D:\\out\\dir",
                            L"Attributes C:\\src\\dir", L"SetAttributes D:\\out\\dir 19"}));
}

TEST_F(IndividualRunTest, AnyFailureToMakeAFolderTellsTheShellAndCopiesTheAttributes) {
    AddFile(L"D:\\out\\dir");
    run.Shared.Files.AddFolder(L"C:\\src\\dir");
    AddSource(L"C:\\src\\dir");
    UseMove();
    EXPECT_TRUE(run.Run());
    const Lines calls(Log().begin() + 5, Log().begin() + 9);
    EXPECT_EQ(calls, (Lines{L"MakeFolder D:\\out\\dir", L"NotifyFolderMade D:\\out\\dir",
                            L"Attributes C:\\src\\dir", L"SetAttributes D:\\out\\dir 16"}));
    EXPECT_EQ(ContentAt(L"D:\\out\\dir"), BytesOf(L"D:\\out\\dir"));
    EXPECT_TRUE(Exists(L"C:\\src\\dir")) << "a folder without a counterpart stays";
}

TEST_F(IndividualRunTest, AFolderThatMeetsAFileIsLeftBehindAndTold) {
    run.Shared.Files.AddFolder(L"C:\\src\\dir");
    AddFile(L"D:\\out\\dir");
    AddSource(L"C:\\src\\dir");
    EXPECT_TRUE(run.Run());
    ASSERT_EQ(run.Left.Left().size(), 1u);
    EXPECT_EQ(run.Left.Left()[0].Why, LeftReason::FolderNotMade);
    EXPECT_EQ(run.Left.Left()[0].Code, static_cast<std::uint32_t>(files::kFolderExists));
}

TEST_F(IndividualRunTest, AFolderThatIsThereAfterAllIsNotToldWhateverTheNumber) {
    run.Shared.Files.AddFolder(L"C:\\src\\dir");
    AddSource(L"C:\\src\\dir");
    run.Shared.Faults = [](std::size_t, std::wstring_view port) {
        return port == L"MakeFolder" ? Fault::Late : Fault::None;
    };
    EXPECT_TRUE(run.Run());
    EXPECT_TRUE(run.Left.Left().empty());
}

TEST_F(IndividualRunTest, WhatARunLeavesBehindIsToldWithItsReasonAndTheRestGoes) {
    AddFile(L"C:\\src\\dir\\a");
    AddFile(L"C:\\src\\dir\\closed\\b");
    AddFile(L"C:\\src\\dir\\sub\\c");
    AddSource(L"C:\\src\\dir");
    AddSource(L"C:\\src\\gone");
    AddSource(L"");
    run.Shared.Faults = [searches = 0, made = 0](std::size_t, std::wstring_view port) mutable {
        const bool fails = (port == L"Search" && ++searches == 2) || (port == L"MakeFolder" && ++made == 3);
        return fails ? Fault::Fail : Fault::None;
    };
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(ContentAt(L"D:\\out\\dir\\a"), BytesOf(L"C:\\src\\dir\\a"));
    const std::vector<Leftover>& left = run.Left.Left();
    ASSERT_EQ(left.size(), 5u);
    EXPECT_EQ(left[0].Path, L"C:\\src\\dir\\closed");
    EXPECT_EQ(left[0].Why, LeftReason::NotListed);
    EXPECT_EQ(left[1].Path, L"C:\\src\\dir\\sub");
    EXPECT_EQ(left[1].Why, LeftReason::FolderNotMade);
    EXPECT_EQ(left[1].Code, 5u);
    EXPECT_EQ(left[2].Path, L"C:\\src\\dir\\sub\\c");
    EXPECT_EQ(left[2].Why, LeftReason::NoFolderItem);
    EXPECT_EQ(left[3].Path, L"C:\\src\\gone");
    EXPECT_EQ(left[3].Why, LeftReason::NoSourceItem);
    EXPECT_EQ(left[4].Path, L"");
    EXPECT_EQ(run.Left.Items(), 7u) << "three folders, two files, two sources that are not there";
}

TEST_F(IndividualRunTest, ThatDidEverythingLeavesNothingBehind) {
    AddFile(L"C:\\src\\dir\\a");
    AddSource(L"C:\\src\\dir");
    run.Shared.Files.AddFolder(L"D:\\out\\dir");
    EXPECT_TRUE(run.Run());
    EXPECT_TRUE(run.Left.Left().empty());
    EXPECT_EQ(run.Left.Items(), 2u);
}

TEST_F(IndividualRunTest, CanBeStoppedWhileASourceIsListed) {
    AddFile(L"C:\\src\\dir\\a");
    AddFile(L"C:\\src\\dir\\b");
    AddSource(L"C:\\src\\dir");
    AddSource(L"C:\\src\\dir\\a");
    run.View.StopAtAsking = 2;
    EXPECT_FALSE(run.Run());
    EXPECT_EQ(Log().back(), L"Search C:\\src\\dir") << "nothing is done after the stop";
}

TEST_F(IndividualRunTest, UnreadableSourceAttributesAreNotGivenToTheTarget) {
    run.Shared.Files.AddFolder(L"C:\\src\\dir");
    run.Shared.Files.AddFolder(L"D:\\out\\dir").Attributes = 0x12;
    AddSource(L"C:\\src\\dir");
    run.Shared.Faults = [seen = 0](std::size_t, std::wstring_view port) mutable {
        return port == L"Attributes" && seen++ == 1 ? Fault::Fail : Fault::None;
    };
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(AttributesOf(L"D:\\out\\dir"), 0x12u);
}

TEST_F(IndividualRunTest, AMovedFolderWithSkippedFilesStaysWithItsParents) {
    AddFile(L"C:\\src\\dir\\sub\\skipped");
    AddFile(L"C:\\src\\dir\\sub\\moved");
    AddFile(L"C:\\src\\dir\\other\\moved");
    AddFile(L"D:\\out\\dir\\sub\\skipped");
    AddSource(L"C:\\src\\dir");
    UseMove();
    UsePolicy(2);
    EXPECT_TRUE(run.Run());
    EXPECT_TRUE(Exists(L"C:\\src\\dir\\sub\\skipped"));
    EXPECT_FALSE(Exists(L"C:\\src\\dir\\sub\\moved"));
    EXPECT_FALSE(Exists(L"C:\\src\\dir\\other"));
    EXPECT_EQ(ContentAt(L"D:\\out\\dir\\sub\\skipped"), BytesOf(L"D:\\out\\dir\\sub\\skipped"));
    EXPECT_EQ(ContentAt(L"D:\\out\\dir\\sub\\moved"), BytesOf(L"C:\\src\\dir\\sub\\moved"));
    EXPECT_EQ(ContentAt(L"D:\\out\\dir\\other\\moved"), BytesOf(L"C:\\src\\dir\\other\\moved"));
}

TEST_F(IndividualRunTest, AReadOnlyFolderIsMadePlainAndRemoved) {
    run.Shared.Files.AddFolder(L"C:\\src\\dir").Attributes = 0x17;
    AddSource(L"C:\\src\\dir");
    UseMove();
    EXPECT_TRUE(run.Run());
    EXPECT_FALSE(Exists(L"C:\\src\\dir"));
}

TEST_F(IndividualRunTest, AnEmptiedFolderThatSomebodyHoldsForAMomentIsTriedOnceMore) {
    AddFile(L"C:\\src\\dir\\sub\\a");
    AddSource(L"C:\\src\\dir");
    UseMove();
    run.Shared.Faults = [removals = 0](std::size_t, std::wstring_view port) mutable {
        return port == L"RemoveFolder" && ++removals == 1 ? Fault::Fail : Fault::None;
    };
    EXPECT_TRUE(run.Run());
    EXPECT_FALSE(Exists(L"C:\\src\\dir"));
    EXPECT_EQ(std::ranges::count(Log(), L"LetOthersClose"), 1);
}

TEST_F(IndividualRunTest, AFolderThatStaysIsNotTriedWithoutEnd) {
    AddFile(L"C:\\src\\dir\\a");
    AddSource(L"C:\\src\\dir");
    UseMove();
    run.Shared.Faults = [](std::size_t, std::wstring_view port) {
        return port == L"RemoveFolder" ? Fault::Fail : Fault::None;
    };
    EXPECT_TRUE(run.Run());
    EXPECT_TRUE(Exists(L"C:\\src\\dir"));
    EXPECT_EQ(std::ranges::count(Log(), L"LetOthersClose"), 1);
}

TEST_F(IndividualRunTest, AFolderWithSkippedFilesIsNotWaitedFor) {
    AddFile(L"C:\\src\\dir\\a");
    AddFile(L"D:\\out\\dir\\a");
    AddSource(L"C:\\src\\dir");
    UseMove();
    UsePolicy(2);
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(std::ranges::count(Log(), L"LetOthersClose"), 0);
}

TEST_F(IndividualRunTest, IsDrawnBeforeWhatMayTakeLong) {
    run.Shared.Files.AddFolder(L"C:\\src\\dir\\sub");
    for (const wchar_t* const name : {L"a", L"b", L"large", L"z"})
        AddFile(std::wstring(L"C:\\src\\dir\\") + name);
    AddFile(L"C:\\src\\dir\\sub\\c");
    AddFile(L"C:\\src\\dir\\sub\\d");
    run.Shared.Files.At(L"C:\\src\\dir\\large")->ExtraSize = kQuickSizeLimit;
    AddSource(L"C:\\src\\dir");
    AddSource(L"C:\\src\\dir\\a");
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(run.View.Shown,
              (Lines{L"0 ",     // before the listing
                     L"1 ",     // the first folder
                     L"2 dir",  // the first one in it
                     L"3 sub",  // c, the first file of sub: its folder was met before the others
                     L"5 d",    // a
                     L"7 b",    // the large one
                     L"1 z"}))  // the second source
        << "and not before every item";
}

TEST_F(IndividualRunTest, AFolderWhoseAttributesCannotBeSetIsNotRemoved) {
    run.Shared.Files.AddFolder(L"C:\\src\\dir");
    AddSource(L"C:\\src\\dir");
    UseMove();
    run.Shared.Faults = [](std::size_t, std::wstring_view port) {
        return port == L"SetAttributes" ? Fault::Fail : Fault::None;
    };
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(Log().back(), L"SetAttributes C:\\src\\dir 16");
    EXPECT_TRUE(Exists(L"C:\\src\\dir"));
}

TEST_F(IndividualRunTest, AnEmptyFolderMovedOntoItselfStaysHoweverItIsSpelled) {
    run.Shared.Files.AddFolder(L"D:\\out\\ａé\\sub").Attributes = 0x12;
    run.Shared.Files.AddFolder(L"E:\\way").LeadsTo = run.Shared.Files.At(L"D:\\out");
    for (const wchar_t* const source :
         {L"D:\\out\\ａé", L"d:\\OUT\\ａé", L"D:\\out\\Ａ\u00C9", L"D:\\out\\.\\ａé",
          L"D:\\out\\ａé\\..\\ａé", L"D:/out/ａé", L"E:\\way\\ａé"}) {
        run.Request.Sources.Clear();
        AddSource(source);
        UseMove();
        EXPECT_TRUE(run.Run());
        EXPECT_TRUE(Exists(L"D:\\out\\ａé\\sub"));
        EXPECT_EQ(AttributesOf(L"D:\\out\\ａé\\sub"), 0x12u);
    }
}

TEST_F(IndividualRunTest, AnEmptyFolderWhoseCounterpartCouldNotBeMadeStays) {
    run.Shared.Files.AddFolder(L"C:\\src\\dir");
    AddSource(L"C:\\src\\dir");
    UseMove();
    run.Shared.Faults = [](std::size_t, std::wstring_view port) {
        return port == L"MakeFolder" ? Fault::Fail : Fault::None;
    };
    EXPECT_TRUE(run.Run());
    EXPECT_TRUE(Exists(L"C:\\src\\dir"));
}

TEST_F(IndividualRunTest, ACopyChangesNothingAtTheSourceNotEvenATime) {
    AddFile(L"C:\\src\\dir\\a");
    AddFile(L"C:\\src\\b");
    run.Shared.Files.AddFolder(L"C:\\src\\dir\\empty").Attributes = 0x13;
    AddFile(L"D:\\out\\dir\\a");
    AddFile(L"D:\\out\\b");
    AddSource(L"C:\\src\\dir");
    AddSource(L"C:\\src\\b");
    run.Person.NewName = [count = 0]() mutable {
        return NameAnswer{NameChoice::Use, L"name " + std::to_wstring(count++)};
    };
    const auto before = run.Shared.Files.Snapshot(L"C:");
    for (std::uint32_t policy = 0; policy <= 8; ++policy) {
        UsePolicy(policy);
        AnswerCollisions({{CollisionChoice::ThisAndLater, PolicyOf(3)}});
        EXPECT_TRUE(run.Run());
        EXPECT_EQ(run.Shared.Files.Snapshot(L"C:"), before) << policy;
    }
    EXPECT_EQ(ContentAt(L"D:\\out\\dir\\a"), BytesOf(L"C:\\src\\dir\\a"));
}

TEST_F(IndividualRunTest, ACancelStopsBeforeTheNextItemAndRemovesNoFolder) {
    AddFile(L"C:\\src\\dir\\a");
    AddFile(L"C:\\src\\dir\\b");
    AddFile(L"C:\\src\\later");
    AddSource(L"C:\\src\\dir");
    AddSource(L"C:\\src\\later");
    UseMove();
    CancelAtDrain(3);
    EXPECT_FALSE(run.Run());
    EXPECT_EQ(Log().back(), L"Drain");
    EXPECT_EQ(run.View.Steps, (std::vector<std::size_t>{2}));
    EXPECT_EQ(ContentAt(L"D:\\out\\dir\\a"), BytesOf(L"C:\\src\\dir\\a"))
        << "the range is dir, a, b: the cancel came before b";
    EXPECT_TRUE(Exists(L"C:\\src\\dir\\b"));
    EXPECT_TRUE(Exists(L"C:\\src\\later"));
}

TEST_F(IndividualRunTest, ACancelBetweenTwoFoldersMakesNoOtherAndTransfersNoFile) {
    AddFile(L"C:\\src\\dir\\a");
    AddFile(L"C:\\src\\dir\\sub\\b");
    AddSource(L"C:\\src\\dir");
    UseMove();
    CancelAtDrain(2);
    EXPECT_FALSE(run.Run());
    EXPECT_TRUE(Exists(L"D:\\out\\dir"));
    EXPECT_FALSE(Exists(L"D:\\out\\dir\\sub"));
    EXPECT_FALSE(Exists(L"D:\\out\\dir\\a"));
    EXPECT_TRUE(Exists(L"C:\\src\\dir\\sub\\b"));
}

TEST_F(IndividualRunTest, AnAbortedOperationStopsTheWholeTransfer) {
    AddFile(L"C:\\src\\a");
    AddFile(L"C:\\src\\b");
    AddSource(L"C:\\src\\a");
    AddSource(L"C:\\src\\b");
    run.Shared.Faults = [](std::size_t, std::wstring_view port) {
        return port == L"Copy" ? Fault::Cancel : Fault::None;
    };
    EXPECT_FALSE(run.Run());
    EXPECT_EQ(Log().back(), L"Copy C:\\src\\a > D:\\out\\ flags 2A14 asked");
}

TEST_F(IndividualRunTest, ChoicesOfTheBatchModeChangeNothing) {
    const auto logOf = [](const TransferSettings& settings) {
        model::ModelRun one;
        one.Shared.Logging = true;
        for (const wchar_t* const path : {L"C:\\src\\dir\\a", L"C:\\src\\dir\\b", L"D:\\out\\dir\\b"})
            one.Shared.Files.AddFile(path, BytesOf(path), model::kBaseTime);
        one.Request.Sources.Append(L"C:\\src\\dir");
        one.Request.Destination = L"D:\\out\\";
        one.Request.Settings = settings;
        EXPECT_TRUE(one.Run());
        return one.Shared.Log;
    };
    for (std::uint32_t policy = 0; policy <= 8; ++policy) {
        const Lines plain = logOf({1, policy, 0, 0, 0});
        EXPECT_EQ(logOf({1, policy, 1, 0, 0}), plain) << "told not to ask";
        EXPECT_EQ(logOf({1, policy, 0, 1, 0}), plain) << "told to show the destination";
        EXPECT_EQ(logOf({0, policy, 1, 1, 0}), plain);
    }
}

TEST_F(IndividualRunTest, ARootTakesWhatAnyFolderTakes) {
    AddFile(L"C:\\src\\dir\\a");
    AddFile(L"C:\\src\\b");
    AddSource(L"C:\\src\\dir");
    AddSource(L"C:\\src\\b");
    run.Request.Destination = L"D:\\";
    UseMove();
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(ContentAt(L"D:\\dir\\a"), BytesOf(L"C:\\src\\dir\\a"));
    EXPECT_EQ(ContentAt(L"D:\\b"), BytesOf(L"C:\\src\\b"));
    EXPECT_FALSE(Exists(L"C:\\src\\dir"));
}

TEST_F(IndividualRunTest, MoreThan65535ItemsMakeTheRangeWrap) {
    run.Shared.Logging = false;
    run.Shared.Files.AddFolder(L"C:\\src\\dir");
    model::Node& folder = *run.Shared.Files.At(L"C:\\src\\dir");
    for (int index = 0; index < 65538; ++index) {
        folder.Children.push_back(std::make_unique<model::Node>());
        folder.Children.back()->Name = std::to_wstring(index);
    }
    AddSource(L"C:\\src\\dir");
    CancelAtDrain(1);
    EXPECT_FALSE(run.Run());
    EXPECT_EQ(run.View.Ranges, (std::vector<std::uint32_t>{3})) << "65538 files and their folder";
}

class CollisionQuestions : public IndividualRunTest {
protected:
    CollisionQuestions() {
        for (const wchar_t* const name : {L"a", L"b", L"c"}) {
            AddFile(std::wstring(L"C:\\src\\") + name);
            AddFile(std::wstring(L"D:\\out\\") + name);
            AddSource(std::wstring(L"C:\\src\\") + name);
        }
        UsePolicy(7);
    }

    /// What stands under each of the three names at the destination.
    std::string Contents() const {
        std::string all;
        for (const wchar_t* const name : {L"a", L"b", L"c"}) {
            const std::string content = ContentAt(std::wstring(L"D:\\out\\") + name);
            const bool isIncoming = content == BytesOf(std::wstring(L"C:\\src\\") + name);
            const bool isExisting = content == BytesOf(std::wstring(L"D:\\out\\") + name);
            all += all.empty() ? "" : " ";
            all += isIncoming ? "incoming" : isExisting ? "existing" : content;
        }
        return all;
    }
};

TEST_F(CollisionQuestions, PolicySevenAsksForEveryCollisionAndOkHoldsForOneFile) {
    AnswerCollisions({{CollisionChoice::ThisItem, PolicyOf(3)},
                      {CollisionChoice::ThisItem, PolicyOf(2)},
                      {CollisionChoice::ThisItem, PolicyOf(3)}});
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(Questions(), 3u);
    EXPECT_EQ(Contents(), "incoming existing incoming");
}

TEST_F(CollisionQuestions, TheQuestionNamesTheTargetAfterItWasLookedUp) {
    AnswerCollisions({{CollisionChoice::StopRun, PolicyOf(0)}});
    EXPECT_FALSE(run.Run());
    const Lines calls(Log().end() - 2, Log().end());
    EXPECT_EQ(calls, (Lines{L"Find D:\\out\\a", L"AskCollision a"}));
}

TEST_F(CollisionQuestions, ForAllMakesTheChoiceTheRunsPolicy) {
    AnswerCollisions(
        {{CollisionChoice::ThisItem, PolicyOf(2)}, {CollisionChoice::ThisAndLater, PolicyOf(3)}});
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(Questions(), 2u);
    EXPECT_EQ(Contents(), "existing incoming incoming");
}

TEST_F(CollisionQuestions, CancelSkipsTheFileAndGoesOn) {
    AnswerCollisions({{CollisionChoice::SkipItem, PolicyOf(3)},
                      {CollisionChoice::ThisItem, PolicyOf(3)},
                      {CollisionChoice::SkipItem, PolicyOf(3)}});
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(Contents(), "existing incoming existing");
}

TEST_F(CollisionQuestions, StopAllEndsTheWholeTransfer) {
    AnswerCollisions({{CollisionChoice::ThisItem, PolicyOf(3)}, {CollisionChoice::StopRun, PolicyOf(3)}});
    EXPECT_FALSE(run.Run());
    EXPECT_EQ(Contents(), "incoming existing existing");
}

TEST_F(CollisionQuestions, AreNotAskedForAFileThatIsNotThere) {
    run.Shared.Files.Detach(L"D:\\out\\a");
    AnswerCollisions({{CollisionChoice::ThisItem, PolicyOf(2)}, {CollisionChoice::ThisItem, PolicyOf(2)}});
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(Contents(), "incoming existing existing");
}

TEST_F(CollisionQuestions, AnAutomaticNameOnceChosenHoldsForLaterFiles) {
    AnswerCollisions({{CollisionChoice::ThisItem, PolicyOf(6)},
                      {CollisionChoice::ThisItem, PolicyOf(3)},
                      {CollisionChoice::ThisItem, PolicyOf(3)}});
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(Contents(), "existing existing existing");
    EXPECT_EQ(ContentAt(L"D:\\out\\c (2)"), BytesOf(L"C:\\src\\c"));
}

TEST_F(CollisionQuestions, EqualsPolicyThreeWhenTheAnswerIsOutOfRange) {
    AnswerCollisions({{CollisionChoice::ThisItem, PolicyOf(0xFFFFFFFF)},
                      {CollisionChoice::ThisItem, PolicyOf(7)},
                      {CollisionChoice::ThisItem, PolicyOf(100)}});
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(Contents(), "incoming incoming incoming");
}

TEST_F(IndividualRunTest, EverySourceLandsBelowTheDestinationUnderItsOwnName) {
    struct Case {
        const wchar_t* Source;
        const wchar_t* File;
        const wchar_t* Expected;
    };
    const Case cases[] = {
        {L"C:\\src\\dir\\", L"C:\\src\\dir\\f", L"D:\\out\\dir\\f"},
        {L"C:\\dir", L"C:\\dir\\f", L"D:\\out\\dir\\f"},
        {L"C:\\f", L"C:\\f", L"D:\\out\\f"},
        {L"C:\\", L"C:\\sub\\f", L"D:\\out\\sub\\f"},
        {L"C:", L"C:\\sub\\f", L"D:\\out\\sub\\f"},
        {L"f", L"f\\g", L"D:\\out\\f\\g"},
    };
    for (const Case& item : cases) {
        SCOPED_TRACE(item.Source);
        model::ModelRun one;
        one.Shared.Files.AddFile(item.File, BytesOf(item.File));
        one.Shared.Files.AddFolder(L"D:\\out").Attributes = 0x10;
        one.Request.Destination = L"D:\\out\\";
        one.Request.What = Operation::Move;
        one.Request.Sources.Append(item.Source);
        EXPECT_TRUE(one.Run());
        EXPECT_EQ(one.Shared.Files.ContentAt(item.Expected), BytesOf(item.File));
        EXPECT_EQ(one.Shared.Files.At(item.File), nullptr);
        EXPECT_EQ(one.Shared.Files.At(L"D:\\out")->Attributes, 0x10u);
    }
}

TEST_F(IndividualRunTest, ADriveRootIsNeitherMadeNorRemoved) {
    run.Shared.Files.AddFolder(L"C:\\sub");
    run.Shared.Files.At(L"C:")->Attributes = 0x16;
    AddSource(L"C:\\");
    UseMove();
    EXPECT_TRUE(run.Run());
    EXPECT_TRUE(Exists(L"C:\\"));
    EXPECT_EQ(AttributesOf(L"C:\\"), 0x16u);
    EXPECT_EQ(AttributesOf(L"D:\\out"), 0x10u);
    EXPECT_TRUE(Exists(L"D:\\out\\sub"));
}

TEST_F(IndividualRunTest, AnEmptySourceOrADriveThatIsNotThereIsPassedOver) {
    for (const wchar_t* const source : {L"", L"Q:\\", L"Q:", L"\\"})
        AddSource(source);
    EXPECT_TRUE(run.Run());
    EXPECT_TRUE(run.Shared.Transfers.empty());
    EXPECT_TRUE(run.View.Ranges.empty());
}

TEST_F(IndividualRunTest, AVanishedSourceIsNotTakenForAFolder) {
    AddSource(L"C:\\src\\gone");
    EXPECT_TRUE(run.Run());
    EXPECT_FALSE(Exists(L"D:\\out\\gone"));
    EXPECT_EQ(run.View.Ranges, (std::vector<std::uint32_t>{1}));
}

TEST_F(IndividualRunTest, AFolderWhoseAttributesCannotBeReadIsWalkedAndNotHandedOverWhole) {
    AddFile(L"C:\\src\\dir\\a");
    AddFile(L"D:\\out\\dir\\a");
    AddSource(L"C:\\src\\dir");
    UsePolicy(2);
    run.Shared.Faults = [](std::size_t index, std::wstring_view) {
        return index == 0 ? Fault::Fail : Fault::None;
    };
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(ContentAt(L"D:\\out\\dir\\a"), BytesOf(L"D:\\out\\dir\\a"));
    EXPECT_EQ(run.View.Ranges, (std::vector<std::uint32_t>{2}));
}

TEST_F(IndividualRunTest, ADestinationInsideTheSourceIsNotCopiedIntoItselfWithoutEnd) {
    AddFile(L"C:\\src\\dir\\f");
    AddFile(L"C:\\src\\dir\\in\\g");
    run.Request.Destination = L"C:\\src\\dir\\in\\";
    AddSource(L"C:\\src\\dir");
    UseMove();
    EXPECT_TRUE(run.Run());
    EXPECT_EQ(ContentAt(L"C:\\src\\dir\\in\\dir\\f"), BytesOf(L"C:\\src\\dir\\f"));
    EXPECT_EQ(ContentAt(L"C:\\src\\dir\\in\\dir\\in\\g"), BytesOf(L"C:\\src\\dir\\in\\g"));
}

}  // namespace
}  // namespace ferry::transfer
