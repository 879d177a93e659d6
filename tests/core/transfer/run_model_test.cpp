// Runs on a model world with random trees, answers and faults: no run may lose a file.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "core/transfer/model_run.h"
#include "core/transfer/random_run.h"
#include "support/seeds.h"

namespace ferry::transfer::model {
namespace {

void SetUpFaults(ModelRun& run, Dice& dice) {
    if (dice.OneIn(3))
        return;
    const std::uint32_t rarity = dice.OneIn(2) ? 8 : 60;
    run.Shared.Faults = [&dice, rarity](std::size_t, std::wstring_view) {
        return dice.OneIn(rarity) ? dice.Pick(kAllFaults) : Fault::None;
    };
}

std::string Together(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

/// The fault of a single call: the `Call`-th, from 0.
struct OneFault {
    std::size_t Call = 0;
    Fault What = Fault::None;
};

/// What was wrong after a run, and how many calls it made.
struct Outcome {
    std::string Violations;
    std::size_t Calls = 0;
};

/// The random run of `seed` with one fault, or with the faults that the dice bring.
Outcome RandomRun(std::uint64_t seed, std::optional<OneFault> fault = std::nullopt) {
    Dice dice(seed);
    ModelRun run;
    SetUpRandomRun(run, dice);
    HarmCheck check(run, Overlaps(run));
    if (fault) {
        run.Shared.Faults = [fault](std::size_t index, std::wstring_view) {
            return index == fault->Call ? fault->What : Fault::None;
        };
    } else {
        SetUpFaults(run, dice);
    }
    const bool finished = run.Run();
    return {Together(check.Violations(finished)), run.Shared.CallCount};
}

TEST(RunOnModel, LosesNoFileWhateverTheTreesTheAnswersAndTheFaults) {
    std::atomic<std::size_t> runs = 0;
    const auto run = [&runs](std::uint64_t seed) {
        ++runs;
        return RandomRun(seed).Violations;
    };
    EXPECT_EQ(
        test::FirstFinding(test::NumberFromEnvironment("FERRY_MODEL_RUNS", 100'000), "FERRY_MODEL_SEED", run),
        "");
    std::cout << runs << " runs\n";
}

TEST(RunOnModel, LosesNoFileWhicheverSingleCallOfARandomRunGoesWrong) {
    std::atomic<std::size_t> runs = 0;
    const std::uint64_t worlds = test::NumberFromEnvironment("FERRY_MODEL_RUNS", 100'000) / 1000;
    const auto sweep = [&runs](std::uint64_t seed) -> std::string {
        const std::size_t calls = RandomRun(seed, OneFault{}).Calls;
        for (std::size_t call = 0; call < calls; ++call) {
            for (const Fault fault : kAllFaults) {
                ++runs;
                const std::string violations = RandomRun(seed, OneFault{call, fault}).Violations;
                if (!violations.empty())
                    return violations + "with fault " + std::to_string(static_cast<int>(fault)) +
                           " at call " + std::to_string(call);
            }
        }
        return {};
    };
    EXPECT_EQ(test::FirstFinding(worlds, "FERRY_MODEL_SEED", sweep), "");
    std::cout << runs << " runs\n";
}

/// A small world that reaches every port: a collision in a subfolder, one beside it, an empty
/// folder, a large file, a folder that exists.
void SetUpSmallWorld(ModelRun& run) {
    World& world = run.Shared;
    world.AddUniqueFile(L"C:\\src\\dir\\old.txt", kBaseTime);
    world.AddUniqueFile(L"C:\\src\\dir\\sub\\new.txt", kBaseTime + 9 * kSecond);
    world.AddUniqueFile(L"C:\\src\\dir\\sub\\fresh.bin", kBaseTime).ExtraSize = kSilentSizeLimit;
    world.Files.AddFolder(L"C:\\src\\dir\\empty").Attributes = 0x11;
    world.AddUniqueFile(L"C:\\src\\single", kBaseTime);
    world.AddUniqueFile(L"D:\\out\\dir\\old.txt", kBaseTime + 9 * kSecond);
    world.AddUniqueFile(L"D:\\out\\dir\\sub\\New.txt", kBaseTime);
    world.AddUniqueFile(L"D:\\out\\single", kBaseTime);
    world.AddUniqueFile(L"E:\\other", kBaseTime);
    run.Request.Destination = L"D:\\out\\";
    run.Request.Sources.Append(L"C:\\src\\dir");
    run.Request.Sources.Append(L"C:\\src\\single");
}

/// Runs the small world with one fault and counts the calls it made.
std::size_t RunWithOneFault(Operation operation, std::uint32_t policy, std::size_t faultAt, Fault fault) {
    ModelRun run;
    SetUpSmallWorld(run);
    run.Request.What = operation;
    run.Request.Settings.Policy = policy;
    run.Request.Settings.TimeCmpType = 2;
    int answers = 0;
    run.Person.Collision = [&] {
        return CollisionAnswer{CollisionChoice::ThisItem,
                               PolicyOf(static_cast<std::uint32_t>(answers++ % 7))};
    };
    run.Person.NewName = [&] {
        const int turn = answers++;
        return NameAnswer{turn < 20 ? NameChoice::Use : NameChoice::SkipItem,
                          L"name" + std::to_wstring(turn)};
    };
    HarmCheck check(run, false);
    run.Shared.Faults = [=](std::size_t index, std::wstring_view) {
        return index == faultAt ? fault : Fault::None;
    };
    const bool finished = run.Run();
    EXPECT_EQ(Together(check.Violations(finished)), "")
        << "policy " << policy << ", fault " << static_cast<int>(fault) << " at call " << faultAt;
    return run.Shared.CallCount;
}

TEST(RunOnModel, LosesNoFileWhicheverSingleCallGoesWrong) {
    for (const Operation operation : {Operation::Copy, Operation::Move}) {
        for (std::uint32_t policy = 0; policy <= 8; ++policy) {
            const std::size_t calls = RunWithOneFault(operation, policy, 0, Fault::None);
            ASSERT_GT(calls, 40u);
            for (std::size_t index = 0; index < calls; ++index) {
                for (const Fault fault : kAllFaults)
                    RunWithOneFault(operation, policy, index, fault);
                ASSERT_FALSE(::testing::Test::HasFailure());
            }
        }
    }
}

TEST(RunOnModel, TransfersEveryFileWhenNothingStandsInTheWay) {
    for (const Operation operation : {Operation::Copy, Operation::Move}) {
        for (std::uint64_t seed = 1; seed <= 300; ++seed) {
            SCOPED_TRACE(seed);
            Dice dice(seed);
            ModelRun run;
            World& world = run.Shared;
            world.Files.AddFolder(L"C:\\src\\tree");
            world.Files.AddFolder(L"D:\\out");
            FillFolder(world, dice, L"C:\\src\\tree", 0);
            auto expected = world.Files.Snapshot(L"C:\\src\\tree");
            run.Request.Sources.Append(L"C:\\src\\tree");
            run.Request.Destination = L"D:\\out\\";
            run.Request.What = operation;
            run.Request.Settings.Policy = dice.Below(10);
            ASSERT_TRUE(run.Run());
            std::size_t same = 0;
            for (const auto& [path, node] : world.Files.Snapshot(L"D:\\out\\tree")) {
                const std::string& before = expected[L"C:\\src" + path.substr(6)];
                // The attributes of a folder that was made are left as they are.
                same += node.starts_with("folder") ? before.starts_with("folder") : before == node;
            }
            EXPECT_EQ(same, expected.size());
            EXPECT_EQ(world.Files.At(L"C:\\src\\tree") == nullptr, operation == Operation::Move);
        }
    }
}

}  // namespace
}  // namespace ferry::transfer::model
