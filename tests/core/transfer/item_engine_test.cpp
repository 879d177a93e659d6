// The item engine: what each policy does to one file, call by call.
#include "transfer/item_engine.h"

#include <gtest/gtest.h>

#include <optional>

#include "core/transfer/model_ports.h"

namespace ferry::transfer {
namespace {

using model::Fault;
using Lines = std::vector<std::wstring>;

constexpr std::wstring_view kSource = L"C:\\src\\a.txt";
constexpr std::wstring_view kTarget = L"D:\\out\\a.txt";

class ItemEngineTest : public ::testing::Test {
protected:
    ItemEngineTest() {
        Use(Operation::Copy, 0);
        world.Logging = true;
        world.Files.AddFile(kSource, "incoming", model::kBaseTime);
        world.Files.AddFolder(L"D:\\out");
        person.NewName = [this] {
            if (names.empty())
                return NameAnswer{};
            NameAnswer answer = names.front();
            names.erase(names.begin());
            return answer;
        };
    }

    void PutExisting(std::uint64_t time = model::kBaseTime) {
        world.Files.AddFile(kTarget, "existing", time);
    }

    ItemResult Handle(std::uint32_t policy, std::wstring_view source = kSource,
                      std::wstring_view target = kTarget) {
        const Item item{source, target, files.Find(target)};
        world.Log.clear();
        return engine->Handle(item, PolicyOf(policy));
    }

    std::string ContentAt(std::wstring_view path) const { return world.Files.ContentAt(path); }

    void Fail(std::wstring_view portName, Fault fault, int times = 1) {
        world.Faults = [=](std::size_t, std::wstring_view port) mutable {
            return port == portName && times-- > 0 ? fault : Fault::None;
        };
    }

    void Use(Operation operation, std::uint32_t precision) {
        engine.emplace(RunPorts{files, files, files, shell, clock, person, view}, operation, precision, left);
    }

    model::World world;
    model::ModelFileSystem files{world};
    model::ModelClock clock{world};
    model::ModelProgress view{world};
    model::ModelShell shell{world};
    model::ModelQuestions person{world};
    std::vector<NameAnswer> names;
    Leftovers left;
    std::optional<ItemEngine> engine;
};

TEST_F(ItemEngineTest, AMissingTargetIsTransferredWhateverThePolicy) {
    for (std::uint32_t policy = 0; policy <= 9; ++policy) {
        SCOPED_TRACE(policy);
        EXPECT_EQ(Handle(policy), ItemResult::Continue);
        EXPECT_EQ(world.Log,
                  (Lines{L"Size C:\\src\\a.txt", L"Copy C:\\src\\a.txt > D:\\out\\ flags 2A14 asked"}));
        EXPECT_EQ(ContentAt(kTarget), "incoming");
        world.Files.Detach(kTarget);
    }
}

TEST_F(ItemEngineTest, AMoveIsQueuedAsAMove) {
    Use(Operation::Move, 0);
    EXPECT_EQ(Handle(0), ItemResult::Continue);
    EXPECT_EQ(world.Log.back(), L"Move C:\\src\\a.txt > D:\\out\\ flags 2A14 asked");
    EXPECT_EQ(ContentAt(kSource), "nothing");
}

TEST_F(ItemEngineTest, PolicyZeroTakesASourceThatIsNewerByASingleTick) {
    PutExisting(model::kBaseTime - 1);
    EXPECT_EQ(Handle(0), ItemResult::Continue);
    EXPECT_EQ(world.Log, (Lines{L"Find C:\\src\\a.txt", L"Size C:\\src\\a.txt",
                                L"Copy C:\\src\\a.txt > D:\\out\\ flags 2A14 asked"}));
    EXPECT_EQ(ContentAt(kTarget), "incoming");
}

TEST_F(ItemEngineTest, PolicyZeroLeavesATargetOfTheSameTimeOrNewer) {
    for (const std::uint64_t time : {model::kBaseTime, model::kBaseTime + 1}) {
        PutExisting(time);
        EXPECT_EQ(Handle(0), ItemResult::Continue);
        EXPECT_EQ(world.Log, (Lines{L"Find C:\\src\\a.txt"}));
        EXPECT_EQ(ContentAt(kTarget), "existing");
        world.Files.Detach(kTarget);
    }
}

TEST_F(ItemEngineTest, PolicyOneIsTheOtherWayRound) {
    const std::pair<std::uint64_t, const char*> cases[] = {{model::kBaseTime - 1, "existing"},
                                                           {model::kBaseTime, "existing"},
                                                           {model::kBaseTime + 1, "incoming"}};
    for (const auto& [time, expected] : cases) {
        PutExisting(time);
        EXPECT_EQ(Handle(1), ItemResult::Continue);
        EXPECT_EQ(ContentAt(kTarget), expected);
        world.Files.Detach(kTarget);
    }
}

TEST_F(ItemEngineTest, PrecisionTakesItsSecondsForEqualUnderBothTimePolicies) {
    for (const std::uint32_t precision : {1u, 2u}) {
        Use(Operation::Copy, precision);
        for (const std::uint32_t policy : {0u, 1u}) {
            for (const std::uint64_t apart : {precision, precision + 1}) {
                SCOPED_TRACE(std::to_string(precision) + " " + std::to_string(apart));
                PutExisting(policy == 0 ? model::kBaseTime - apart * model::kSecond
                                        : model::kBaseTime + apart * model::kSecond);
                Handle(policy);
                EXPECT_EQ(ContentAt(kTarget), apart > precision ? "incoming" : "existing");
                world.Files.Detach(kTarget);
            }
        }
    }
}

TEST_F(ItemEngineTest, ASourceWhoseTimeIsUnknownIsNeitherNewerNorOlder) {
    PutExisting(model::kBaseTime - 100);
    for (const std::uint32_t policy : {0u, 1u}) {
        Fail(L"Find", Fault::None);
        const Item item{kSource, kTarget, files.Find(kTarget)};
        Fail(L"Find", Fault::Fail);
        world.Log.clear();
        EXPECT_EQ(engine->Handle(item, PolicyOf(policy)), ItemResult::Continue);
        EXPECT_EQ(world.Log, (Lines{L"Find C:\\src\\a.txt"})) << "the shell is not asked";
        EXPECT_EQ(left.Left().back().Path, kSource);
        EXPECT_EQ(left.Left().back().Why, LeftReason::NotSeen);
        EXPECT_EQ(ContentAt(kTarget), "existing");
        Fail(L"Find", Fault::Vanish);
        EXPECT_EQ(engine->Handle(item, PolicyOf(policy)), ItemResult::Continue);
        EXPECT_EQ(ContentAt(kTarget), "existing");
    }
}

TEST_F(ItemEngineTest, ATargetThatCannotBeLookedAtGoesToTheShellWithItsQuestionOn) {
    for (std::uint32_t policy = 0; policy <= 8; ++policy) {
        SCOPED_TRACE(policy);
        PutExisting(model::kBaseTime - 100);
        Fail(L"Find", Fault::Fail);
        const Item item{kSource, kTarget, files.Find(kTarget)};
        world.Log.clear();
        EXPECT_EQ(engine->Handle(item, PolicyOf(policy)), ItemResult::Stop) << "the person skips it there";
        EXPECT_EQ(world.Log,
                  (Lines{L"Size C:\\src\\a.txt", L"Copy C:\\src\\a.txt > D:\\out\\ flags 2A04 asked"}));
        EXPECT_EQ(ContentAt(kTarget), "existing");
        EXPECT_TRUE(left.Left().empty()) << "the shell has told the person";
        world.Files.Detach(kTarget);
    }
}

TEST_F(ItemEngineTest, AfterATargetThatCannotBeLookedAtTheNextOneIsTransferredWithoutAQuestion) {
    Fail(L"Find", Fault::Fail);
    engine->Handle({kSource, kTarget, files.Find(kTarget)}, CollisionPolicy::Overwrite);
    world.Files.Detach(kTarget);
    Handle(3);
    EXPECT_EQ(world.Log.back(), L"Copy C:\\src\\a.txt > D:\\out\\ flags 2A14 asked");
}

TEST_F(ItemEngineTest, ANewNameThatCannotBeLookedAtIsLeftToTheShell) {
    PutExisting();
    names = {{NameChoice::Use, L"b.txt"}};
    const Item item{kSource, kTarget, files.Find(kTarget)};
    Fail(L"Find", Fault::Fail);
    world.Log.clear();
    EXPECT_EQ(engine->Handle(item, CollisionPolicy::RenameIncoming), ItemResult::Continue);
    EXPECT_EQ(world.Log, (Lines{L"AskNameForIncoming D:\\out\\a.txt", L"Find D:\\out\\b.txt",
                                L"Copy C:\\src\\a.txt > D:\\out\\ as b.txt flags 2A04"}));
}

TEST_F(ItemEngineTest, WhatNeverReachedTheShellIsLeftBehindWithItsReason) {
    world.Files.Detach(kSource);
    EXPECT_EQ(Handle(3), ItemResult::Continue);
    ASSERT_EQ(left.Left().size(), 1u);
    EXPECT_EQ(left.Left()[0].Path, kSource);
    EXPECT_EQ(left.Left()[0].Why, LeftReason::NoSourceItem);
    EXPECT_EQ(left.Left()[0].Code, 0x80070002u);

    world.Files.AddFile(kSource, "incoming", model::kBaseTime);
    world.Files.Detach(L"D:\\out");
    EXPECT_EQ(Handle(3), ItemResult::Continue);
    ASSERT_EQ(left.Left().size(), 2u);
    EXPECT_EQ(left.Left()[1].Why, LeftReason::NoFolderItem);

    Fail(L"Copy", Fault::NoObject);
    EXPECT_EQ(Handle(3), ItemResult::Stop);
    ASSERT_EQ(left.Left().size(), 3u);
    EXPECT_EQ(left.Left()[2].Why, LeftReason::NoShell);
}

TEST_F(ItemEngineTest, WhatGetsANewNameAndNeverReachedTheShellIsLeftBehindToo) {
    PutExisting();
    names = {{NameChoice::Use, L"b.txt"}, {NameChoice::Use, L"c.txt"}};
    const Item item{kSource, kTarget, files.Find(kTarget)};
    world.Files.Detach(kSource);
    for (const CollisionPolicy policy : {CollisionPolicy::RenameIncoming, CollisionPolicy::RenameExisting})
        EXPECT_EQ(engine->Handle(item, policy), ItemResult::Continue);
    ASSERT_EQ(left.Left().size(), 2u);
    EXPECT_EQ(left.Left()[0].Why, LeftReason::NoSourceItem);
    EXPECT_EQ(left.Left()[1].Why, LeftReason::NoSourceItem);
}

TEST_F(ItemEngineTest, WhatTheShellFailedAtOrThePersonSkippedIsNotLeftBehindTwice) {
    Fail(L"Copy", Fault::Fail);
    Handle(3);
    Fail(L"Copy", Fault::Cancel);
    Handle(3);
    PutExisting();
    Handle(2);
    EXPECT_TRUE(left.Left().empty());
}

TEST_F(ItemEngineTest, PolicyTwoNeverTouchesAnExistingTargetAndGoesOn) {
    PutExisting();
    EXPECT_EQ(Handle(2), ItemResult::Continue);
    EXPECT_TRUE(world.Log.empty());
    EXPECT_EQ(ContentAt(kTarget), "existing");
}

TEST_F(ItemEngineTest, PolicyThreeSevenAndAllHigherNumbersOverwrite) {
    for (const std::uint32_t policy : {3u, 7u, 100u, 0xFFFFFFFFu}) {
        SCOPED_TRACE(policy);
        PutExisting(model::kBaseTime + 1000);
        EXPECT_EQ(Handle(policy), ItemResult::Continue);
        EXPECT_EQ(ContentAt(kTarget), "incoming");
        world.Files.Detach(kTarget);
    }
}

TEST_F(ItemEngineTest, TheSamePathStopsTheRunWithAMessageUnderEveryPolicyButFour) {
    for (std::uint32_t policy = 0; policy <= 8; ++policy) {
        if (policy == 4)
            continue;
        SCOPED_TRACE(policy);
        EXPECT_EQ(Handle(policy, kSource, kSource), ItemResult::Stop);
        EXPECT_EQ(world.Log, (Lines{L"ShowError 6269"}));
    }
}

TEST_F(ItemEngineTest, TheSamePathIsRefusedAlsoWhenNothingStandsThereAnyMore) {
    world.Files.Detach(kSource);
    EXPECT_EQ(Handle(3, kSource, kSource), ItemResult::Stop);
    EXPECT_EQ(world.Log, (Lines{L"ShowError 6269"}));
}

TEST_F(ItemEngineTest, TheSamePathUnderPolicyFourStillOpensTheRenameDialog) {
    names = {{NameChoice::Use, L"b.txt"}};
    EXPECT_EQ(Handle(4, kSource, kSource), ItemResult::Continue);
    EXPECT_EQ(world.Log, (Lines{L"AskNameForIncoming C:\\src\\a.txt", L"Find C:\\src\\b.txt",
                                L"Copy C:\\src\\a.txt > C:\\src\\ as b.txt flags 2A04"}));
    EXPECT_EQ(ContentAt(L"C:\\src\\b.txt"), "incoming");
}

TEST_F(ItemEngineTest, ThePathsAreComparedWithRegardToCase) {
    EXPECT_EQ(Handle(2, kSource, L"C:\\src\\A.txt"), ItemResult::Continue);
    EXPECT_TRUE(person.Errors.empty());
}

TEST_F(ItemEngineTest, AFileAboveTenMebibytesShowsTheShellsProgressAndTheNextSmallOneDoesNot) {
    model::Node* const source = world.Files.At(kSource);
    const std::pair<std::uint64_t, const wchar_t*> cases[] = {
        {0xA00001, L"Copy C:\\src\\a.txt > D:\\out\\ flags 2A10 asked"},
        {0xA00000, L"Copy C:\\src\\a.txt > D:\\out\\ flags 2A14 asked"},
    };
    for (const auto& [size, expected] : cases) {
        source->ExtraSize = size - source->Content.size();
        Handle(3);
        EXPECT_EQ(world.Log.back(), expected);
    }
}

TEST_F(ItemEngineTest, AFileOfUnknownSizeCountsAsSmall) {
    world.Files.At(kSource)->ExtraSize = kSilentSizeLimit;
    Handle(3);
    EXPECT_EQ(world.Log.back(), L"Copy C:\\src\\a.txt > D:\\out\\ flags 2A10 asked");
    Fail(L"Size", Fault::Fail);
    Handle(3);
    EXPECT_EQ(world.Log.back(), L"Copy C:\\src\\a.txt > D:\\out\\ flags 2A14 asked");
}

TEST_F(ItemEngineTest, TheShellsProgressOfALargeFileGoesOnForFilesThatGetAnotherName) {
    const std::pair<std::uint32_t, const wchar_t*> cases[] = {
        {4, L"Copy C:\\src\\a.txt > D:\\out\\ as n flags 2A00"},
        {5, L"Copy C:\\src\\a.txt > D:\\out\\ as a.txt flags 2A00"},
        {6, L"Copy C:\\src\\a.txt > D:\\out\\ flags 2A08"},
    };
    world.Files.At(kSource)->ExtraSize = kSilentSizeLimit;
    Handle(3);
    for (const auto& [policy, expected] : cases) {
        names = {{NameChoice::Use, policy == 4 ? L"n" : L"old"}};
        Handle(policy);
        EXPECT_EQ(world.Log.back(), expected);
    }
}

TEST_F(ItemEngineTest, ARunStopsOnlyWhenThereIsNoOperationOrOneWasAborted) {
    const std::pair<Fault, ItemResult> cases[] = {{Fault::NoObject, ItemResult::Stop},
                                                  {Fault::Cancel, ItemResult::Stop},
                                                  {Fault::Fail, ItemResult::Continue}};
    for (const auto& [fault, expected] : cases) {
        Fail(L"Copy", fault);
        EXPECT_EQ(Handle(3), expected);
    }
}

TEST_F(ItemEngineTest, PolicySixLeavesTheNameToTheShellForTheRestOfTheRun) {
    PutExisting();
    EXPECT_EQ(Handle(6), ItemResult::Continue);
    EXPECT_EQ(world.Log, (Lines{L"Copy C:\\src\\a.txt > D:\\out\\ flags 2A0C"}));
    EXPECT_EQ(ContentAt(kTarget), "existing");
    EXPECT_EQ(ContentAt(L"D:\\out\\a.txt (2)"), "incoming");
    EXPECT_EQ(engine->Record().Flags, 0x2A1Cu);
    Handle(3);
    EXPECT_EQ(world.Log.back(), L"Copy C:\\src\\a.txt > D:\\out\\ flags 2A1C asked");
    EXPECT_EQ(ContentAt(kTarget), "existing");
}

TEST_F(ItemEngineTest, OnceTheShellPickedANameItMayDoSoForTypedNamesToo) {
    PutExisting();
    Handle(6);
    names = {{NameChoice::Use, L"n"}, {NameChoice::Use, L"old"}};
    Handle(4);
    EXPECT_EQ(world.Log.back(), L"Copy C:\\src\\a.txt > D:\\out\\ as n flags 2A0C");
    Handle(5);
    EXPECT_EQ(world.Log.back(), L"Copy C:\\src\\a.txt > D:\\out\\ as a.txt flags 2A0C");
}

TEST_F(ItemEngineTest, PolicySixGoesOnWhateverTheShellSays) {
    PutExisting();
    for (const Fault fault : {Fault::NoObject, Fault::Cancel, Fault::Fail}) {
        Fail(L"Copy", fault);
        EXPECT_EQ(Handle(6), ItemResult::Continue);
        EXPECT_EQ(engine->Record().Flags, 0x2A1Cu);
    }
}

TEST_F(ItemEngineTest, ANameWithAForbiddenCharacterBringsTheRenameDialogBackWithoutAMessage) {
    PutExisting();
    for (const std::uint32_t policy : {4u, 5u}) {
        for (const wchar_t unit : std::wstring_view(L"/:*?\"><|\\")) {
            names = {{NameChoice::Use, std::wstring(L"x") + unit + L"y"}, {NameChoice::SkipItem, L""}};
            EXPECT_EQ(Handle(policy), ItemResult::Continue);
            EXPECT_EQ(world.Log.size(), 2u) << "two questions and nothing else";
            EXPECT_TRUE(person.Errors.empty());
        }
    }
    EXPECT_EQ(ContentAt(kTarget), "existing");
}

TEST_F(ItemEngineTest, WithoutANewNameTheRunStopsOrTheFileIsSkippedAsThePersonWants) {
    PutExisting();
    for (const std::uint32_t policy : {4u, 5u}) {
        names = {{NameChoice::StopRun, L"n"}, {NameChoice::SkipItem, L"n"}};
        EXPECT_EQ(Handle(policy), ItemResult::Stop);
        EXPECT_EQ(Handle(policy), ItemResult::Continue);
        EXPECT_EQ(world.Log.size(), 1u);
    }
}

TEST_F(ItemEngineTest, PolicyFourAsksAgainWhileTheNewNameIsTakenOrMissing) {
    PutExisting();
    world.Files.AddFile(L"D:\\out\\taken", "other");
    names = {{NameChoice::Use, L"TAKEN"}, {NameChoice::Use, L""}, {NameChoice::Use, L"free"}};
    EXPECT_EQ(Handle(4), ItemResult::Continue);
    EXPECT_EQ(world.Log,
              (Lines{L"AskNameForIncoming D:\\out\\a.txt", L"Find D:\\out\\TAKEN",
                     L"AskNameForIncoming D:\\out\\a.txt", L"AskNameForIncoming D:\\out\\a.txt",
                     L"Find D:\\out\\free", L"Copy C:\\src\\a.txt > D:\\out\\ as free flags 2A04"}));
    EXPECT_EQ(ContentAt(kTarget), "existing");
    EXPECT_EQ(ContentAt(L"D:\\out\\free"), "incoming");
}

TEST_F(ItemEngineTest, PolicyFourAsksAgainOnlyWhenThereWasNoOperation) {
    PutExisting();
    names = {{NameChoice::Use, L"n"}, {NameChoice::Use, L"n"}};
    Fail(L"Copy", Fault::NoObject);
    EXPECT_EQ(Handle(4), ItemResult::Continue);
    EXPECT_EQ(ContentAt(L"D:\\out\\n"), "incoming");
    names = {{NameChoice::Use, L"m"}, {NameChoice::Use, L"m"}};
    Fail(L"Copy", Fault::Fail);
    EXPECT_EQ(Handle(4), ItemResult::Continue);
    EXPECT_EQ(names.size(), 1u);
}

TEST_F(ItemEngineTest, PolicyFiveRenamesTheExistingFileAndPutsTheIncomingOneInItsPlace) {
    PutExisting();
    names = {{NameChoice::Use, L"old.txt"}};
    EXPECT_EQ(Handle(5), ItemResult::Continue);
    EXPECT_EQ(world.Log,
              (Lines{L"AskNameForExisting D:\\out\\a.txt", L"Rename D:\\out\\a.txt D:\\out\\old.txt",
                     L"Copy C:\\src\\a.txt > D:\\out\\ as a.txt flags 2A04"}));
    EXPECT_EQ(ContentAt(kTarget), "incoming");
    EXPECT_EQ(ContentAt(L"D:\\out\\old.txt"), "existing");
}

TEST_F(ItemEngineTest, PolicyFiveShowsAMessageAndAsksAgainWhenRenamingFails) {
    PutExisting();
    world.Files.AddFile(L"D:\\out\\taken", "other");
    names = {{NameChoice::Use, L"taken"}, {NameChoice::Use, L""}, {NameChoice::Use, L"free"}};
    EXPECT_EQ(Handle(5), ItemResult::Continue);
    EXPECT_EQ(person.Errors, (std::vector<std::uint16_t>{62535, 62535}));
    EXPECT_EQ(ContentAt(L"D:\\out\\taken"), "other");
    EXPECT_EQ(ContentAt(L"D:\\out\\free"), "existing");
    EXPECT_EQ(ContentAt(kTarget), "incoming");
}

TEST_F(ItemEngineTest, PolicyFiveAsksAgainOnlyWhenThereWasNoOperation) {
    PutExisting();
    names = {{NameChoice::Use, L"n"}, {NameChoice::SkipItem, L""}};
    Fail(L"Copy", Fault::NoObject);
    EXPECT_EQ(Handle(5), ItemResult::Continue);
    EXPECT_TRUE(names.empty());
    EXPECT_EQ(ContentAt(L"D:\\out\\n"), "existing");
}

TEST_F(ItemEngineTest, AfterARenameLoopTheNextPlainTransferIsWithoutConfirmationAgain) {
    PutExisting();
    names = {{NameChoice::Use, L"n"}};
    Handle(4);
    EXPECT_EQ(engine->Record().Flags, 0x2A04u);
    Handle(3);
    EXPECT_EQ(world.Log.back(), L"Copy C:\\src\\a.txt > D:\\out\\ flags 2A14 asked");
}

TEST_F(ItemEngineTest, AFileNeverLandsOnAnotherPathThanTheOneThatWasJudged) {
    world.Files.AddFile(L"D:\\a.txt", "bystander", model::kBaseTime);
    Handle(3, kSource,
           L"D:\\out/x\x008B"
           L"a.txt");
    EXPECT_EQ(ContentAt(L"D:\\a.txt"), "bystander");
    EXPECT_EQ(world.Log.back(),
              L"Copy C:\\src\\a.txt > D:\\ as out/x\x008B"
              L"a.txt flags 2A14 asked");
}

}  // namespace
}  // namespace ferry::transfer
