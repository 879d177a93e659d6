// Runs on a model world with random trees, answers and faults: no run may lose a file.
#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <random>
#include <string>

#include "core/transfer/model_run.h"

namespace ferry::transfer::model {
namespace {

constexpr std::uint64_t kSecond = 10'000'000;
constexpr std::uint64_t kBaseTime = 133'000'000'000'000'000;

constexpr std::array kFaults = {Fault::Fail,      Fault::Cancel, Fault::NoObject,
                                Fault::DoNothing, Fault::Vanish, Fault::Change};

std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* const text = std::getenv(name);
    return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

/// Random choices that are the same on every host.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : engine_(seed) {}

    std::uint32_t Below(std::uint32_t limit) { return static_cast<std::uint32_t>(engine_() % limit); }
    bool OneIn(std::uint32_t count) { return Below(count) == 0; }

    template <typename Choices>
    auto Pick(const Choices& choices) {
        return choices[Below(static_cast<std::uint32_t>(std::size(choices)))];
    }

private:
    std::mt19937_64 engine_;
};

std::uint64_t RandomTime(Dice& dice) {
    const std::uint64_t seconds = dice.Below(4) * kSecond;
    return kBaseTime + seconds + (dice.OneIn(2) ? 0 : dice.Below(kSecond));
}

std::wstring RandomName(Dice& dice) {
    static constexpr std::array<const wchar_t*, 8> kNames = {L"a",   L"A", L"b.txt", L"B.TXT",
                                                             L"c d", L"e", L".f",    L"long name.tar.gz"};
    return dice.Pick(kNames);
}

void FillFolder(World& world, Dice& dice, const std::wstring& folder, int depth) {
    const std::uint32_t count = dice.Below(depth == 0 ? 5 : 4);
    for (std::uint32_t index = 0; index < count; ++index) {
        const std::wstring path = folder + L'\\' + RandomName(dice);
        if (world.Files.At(path) != nullptr)
            continue;
        if (depth < 3 && dice.OneIn(3)) {
            world.Files.AddFolder(path).Attributes = 0x10 | dice.Below(4);
            FillFolder(world, dice, path, depth + 1);
        } else {
            Node& file = world.AddUniqueFile(path, RandomTime(dice));
            file.Attributes = 0x20 | dice.Below(4);
            file.ExtraSize = dice.OneIn(8) ? kSilentSizeLimit : 0;
        }
    }
}

/// Where the destination lies: mostly apart, sometimes in the middle of the sources.
std::wstring RandomDestination(Dice& dice) {
    static constexpr std::array<const wchar_t*, 10> kDestinations = {
        L"D:\\out\\", L"D:\\out\\", L"D:\\out\\", L"D:\\out\\",    L"D:\\out\\",
        L"D:\\out\\", L"C:\\out\\", L"C:\\src\\", L"C:\\src\\a\\", L"c:\\SRC\\"};
    return dice.Pick(kDestinations);
}

void SetUpTrees(ModelRun& run, Dice& dice) {
    World& world = run.Shared;
    world.Files.AddFolder(L"C:\\src");
    FillFolder(world, dice, L"C:\\src", 0);
    run.Request.Destination = RandomDestination(dice);
    world.AddUniqueFile(L"C:\\kept", kBaseTime);
    world.AddUniqueFile(L"E:\\other\\a", kBaseTime);
    for (const auto& child : world.Files.At(L"C:\\src")->Children) {
        if (!dice.OneIn(6))
            run.Request.Sources.Append(L"C:\\src\\" + child->Name);
    }
    const std::wstring destination = run.Request.Destination.substr(0, run.Request.Destination.size() - 1);
    const Node* const standing = world.Files.At(destination);
    if (standing == nullptr) {
        world.Files.AddFolder(destination);
        FillFolder(world, dice, destination, 0);
    }
}

void SetUpAnswers(ModelRun& run, Dice& dice) {
    run.Person.Collision = [&dice] {
        static constexpr std::array kCodes = {kEndOk, kEndOk, kEndOk, kEndForAll, kEndCancel, kEndStopAll};
        return CollisionAnswer{dice.Pick(kCodes), dice.Below(9)};
    };
    run.Person.NewName = [&dice] {
        static constexpr std::array kCodes = {kEndOk, kEndOk, kEndOk, kEndOk, kEndCancel, kEndForAll};
        static constexpr std::array<const wchar_t*, 7> kNames = {L"n1", L"n2",    L"a",    L"x\\y",
                                                                 L"",   L"B.txt", L"what?"};
        return NameAnswer{dice.Pick(kCodes), dice.Pick(kNames)};
    };
    run.Shell.Answer = [&dice] {
        static constexpr std::array kAnswers = {ShellAnswer::Overwrite, ShellAnswer::Skip,
                                                ShellAnswer::Abort};
        return dice.Pick(kAnswers);
    };
}

void SetUpFaults(ModelRun& run, Dice& dice) {
    if (dice.OneIn(3))
        return;
    const std::uint32_t rarity = dice.OneIn(2) ? 8 : 60;
    run.Shared.Faults = [&dice, rarity](std::size_t, std::wstring_view) {
        return dice.OneIn(rarity) ? dice.Pick(kFaults) : Fault::None;
    };
}

std::string Together(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

std::string RandomRun(std::uint64_t seed) {
    Dice dice(seed);
    ModelRun run;
    SetUpTrees(run, dice);
    run.Request.What = dice.OneIn(2) ? Operation::Move : Operation::Copy;
    run.Request.Settings.Policy = dice.Below(10);
    run.Request.Settings.TimeCmpType = dice.Below(4);
    SetUpAnswers(run, dice);
    HarmCheck check(run, Fold(run.Request.Destination).starts_with(L"c:\\src\\"));
    SetUpFaults(run, dice);
    const bool finished = run.Run();
    return Together(check.Violations(finished));
}

TEST(RunOnModel, LosesNoFileWhateverTheTreesTheAnswersAndTheFaults) {
    if (std::getenv("FERRY_MODEL_SEED") != nullptr) {
        EXPECT_EQ(RandomRun(FromEnvironment("FERRY_MODEL_SEED", 0)), "");
        return;
    }
    const std::uint64_t runs = FromEnvironment("FERRY_MODEL_RUNS", 4000);
    for (std::uint64_t seed = 1; seed <= runs; ++seed)
        ASSERT_EQ(RandomRun(seed), "") << "run it again with FERRY_MODEL_SEED=" << seed;
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
    run.Person.Collision = [&] { return CollisionAnswer{kEndOk, static_cast<std::uint32_t>(answers++ % 7)}; };
    run.Person.NewName = [&] {
        const int turn = answers++;
        return NameAnswer{turn < 20 ? kEndOk : kEndCancel, L"name" + std::to_wstring(turn)};
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
                for (const Fault fault : kFaults)
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
