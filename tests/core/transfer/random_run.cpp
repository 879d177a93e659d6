// Random worlds for a run, and random answers of the person in front of it.
#include "core/transfer/random_run.h"

#include <array>
#include <string>
#include <vector>

#include "base/case_order.h"

namespace ferry::transfer::model {
namespace {

std::uint64_t RandomTime(Dice& dice) {
    const std::uint64_t seconds = dice.Below(4) * kSecond;
    return kBaseTime + seconds + (dice.OneIn(2) ? 0 : dice.Below(kSecond));
}

std::wstring RandomName(Dice& dice) {
    static constexpr std::array<const wchar_t*, 8> kNames = {L"a",   L"A", L"b.txt", L"B.TXT",
                                                             L"c d", L"e", L".f",    L"long name.tar.gz"};
    return dice.Pick(kNames);
}

/// Where the destination lies: mostly apart, sometimes in the middle of the sources. A destination
/// that was typed with a slash ends in a unit that is no separator and begins every name.
std::wstring RandomDestination(Dice& dice) {
    static constexpr std::array<const wchar_t*, 11> kDestinations = {
        L"D:\\out\\", L"D:\\out\\", L"D:\\out\\",    L"D:\\out\\", L"D:\\out\\",     L"D:\\out\\",
        L"C:\\out\\", L"C:\\src\\", L"C:\\src\\a\\", L"c:\\SRC\\", L"D:\\out\\x\x8B"};
    return dice.Pick(kDestinations);
}

void SetUpDestination(ModelRun& run, Dice& dice) {
    World& world = run.Shared;
    const std::wstring& destination = run.Request.Destination;
    const std::wstring folder = destination.substr(0, destination.rfind(L'\\'));
    if (world.Files.At(folder) == nullptr) {
        world.Files.AddFolder(folder);
        FillFolder(world, dice, folder, 0);
    }
    if (destination.ends_with(L'\\'))
        return;
    for (const auto& child : world.Files.At(L"C:\\src")->Children) {
        if (dice.OneIn(2))
            world.AddUniqueFile(destination + child->Name, RandomTime(dice));
    }
}

/// What a person chooses in C:\\src: most of what lies there, and now and then, as from a list of search
/// results, an item twice, in another spelling, or one that lies below another.
std::vector<std::wstring> RandomSources(World& world, Dice& dice) {
    std::vector<std::wstring> sources;
    for (const auto& child : world.Files.At(L"C:\\src")->Children) {
        if (!dice.OneIn(6))
            sources.push_back(L"C:\\src\\" + child->Name);
    }
    std::vector<std::wstring> all;
    world.Files.ForEach([&all](const std::wstring& path, const Node&) {
        if (path.starts_with(L"C:\\src\\"))
            all.push_back(path);
    });
    while (!all.empty() && dice.OneIn(3)) {
        const std::wstring again = dice.Pick(all);
        const auto place = dice.Below(static_cast<std::uint32_t>(sources.size()) + 1);
        sources.insert(sources.begin() + place, dice.OneIn(2) ? again : base::SmallLetters(again));
    }
    return sources;
}

void SetUpTrees(ModelRun& run, Dice& dice) {
    World& world = run.Shared;
    world.Files.AddFolder(L"C:\\src");
    FillFolder(world, dice, L"C:\\src", 0);
    run.Request.Destination = RandomDestination(dice);
    world.AddUniqueFile(L"C:\\kept", kBaseTime);
    world.AddUniqueFile(L"E:\\other\\a", kBaseTime);
    for (const std::wstring& source : RandomSources(world, dice))
        run.Request.Sources.Append(source);
    SetUpDestination(run, dice);
}

void SetUpAnswers(ModelRun& run, Dice& dice) {
    run.Person.Collision = [&dice] {
        using enum CollisionChoice;
        static constexpr std::array kChoices = {ThisItem,     ThisItem, ThisItem,
                                                ThisAndLater, SkipItem, StopRun};
        const CollisionChoice choice = dice.Pick(kChoices);
        return CollisionAnswer{choice, PolicyOf(dice.Below(9))};
    };
    run.Person.NewName = [&dice] {
        using enum NameChoice;
        static constexpr std::array kChoices = {Use, Use, Use, Use, SkipItem, StopRun};
        static constexpr std::array<const wchar_t*, 13> kNames = {L"n1",    L"n2",    L"a",   L"x\\y",   L"",
                                                                  L"B.txt", L"what?", L"n1.", L"b.txt ", L".",
                                                                  L"..",    L"CON",   L"N1"};
        const NameChoice choice = dice.Pick(kChoices);
        return NameAnswer{choice, dice.Pick(kNames)};
    };
    run.Shell.Answer = [&dice] {
        static constexpr std::array kAnswers = {ShellAnswer::Overwrite, ShellAnswer::Skip,
                                                ShellAnswer::Abort};
        return dice.Pick(kAnswers);
    };
}

}  // namespace

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

void SetUpRandomRun(ModelRun& run, Dice& dice) {
    SetUpTrees(run, dice);
    run.Request.What = dice.OneIn(2) ? Operation::Move : Operation::Copy;
    run.Request.Settings.Policy = dice.Below(10);
    run.Request.Settings.TimeCmpType = dice.Below(4);
    SetUpAnswers(run, dice);
}

bool Overlaps(const ModelRun& run) {
    return base::SmallLetters(run.Request.Destination).starts_with(L"c:\\src\\");
}

}  // namespace ferry::transfer::model
