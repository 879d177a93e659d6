#include "pretended_world.h"

#include <utility>

#include "pretended_ports.h"

namespace ferry::scripttools {

namespace {

/// Where a process is that was given no folder.
constexpr wchar_t kDefaultFolder[] = L"C:\\";

/// Puts onto `disk` what is there from the beginning.
void Fill(PretendedDisk& disk, const WorldDescription& world) {
    for (const std::wstring& folder : world.Folders)
        disk.AddFolder(folder);
    // A process is somewhere, and comes from somewhere; so does its user.
    for (const std::wstring* const home : {&world.CurrentFolder, &world.LocalAppData, &world.ProgramFolder})
        disk.AddFolder(*home);
    for (const auto& [path, content] : world.Files)
        disk.AddFile(path, content);
}

}  // namespace

struct PretendedWorld::Parts {
    Parts(const WorldDescription& world, Budget budget, EffectLog& log, const DiskBelow* below)
        : Answers(world.Answers),
          Boxes(Answers, log),
          Speaker(Answers, log),
          Disk(world.CurrentFolder.empty() ? kDefaultFolder : world.CurrentFolder, log, below),
          Programs(world, Disk, log),
          Host(world, log),
          Trace(world.Trace, log),
          Settings(world.HostSettings, log),
          Clipboard(world.Clipboard, log),
          Speech(log),
          Clock(world.Clock),
          Surroundings(world, Disk),
          Homes(world),
          Pace(budget, log) {
        Fill(Disk, world);
    }

    PretendedAnswers Answers;
    PretendedBoxes Boxes;
    PretendedSpeaker Speaker;
    PretendedDisk Disk;
    PretendedPrograms Programs;
    PretendedHost Host;
    PretendedTrace Trace;
    PretendedSettings Settings;
    PretendedClipboard Clipboard;
    PretendedSpeech Speech;
    PretendedClock Clock;
    PretendedChance Chance;
    PretendedSurroundings Surroundings;
    PretendedHomes Homes;
    PretendedPace Pace;
};

PretendedWorld::PretendedWorld(WorldDescription description, Budget budget, const DiskBelow* below)
    : description_(std::move(description)),
      parts_(std::make_unique<Parts>(description_, budget, log_, below)) {}

PretendedWorld::~PretendedWorld() = default;

script::World PretendedWorld::Ports() {
    Parts& parts = *parts_;
    return {.Boxes = parts.Boxes,
            .Speaker = parts.Speaker,
            .Programs = parts.Programs,
            .Host = parts.Host,
            .Trace = parts.Trace,
            .Settings = parts.Settings,
            .Files = parts.Disk,
            .Folders = parts.Disk,
            .Changes = parts.Disk,
            .ByteFiles = parts.Disk,
            .Clipboard = parts.Clipboard,
            .Speech = parts.Speech,
            .Clock = parts.Clock,
            .Chance = parts.Chance,
            .Surroundings = parts.Surroundings,
            .Homes = parts.Homes,
            .Pace = parts.Pace};
}

std::map<std::wstring, Bytes> PretendedWorld::Files() const {
    return parts_->Disk.Files();
}

bool PretendedWorld::IsBudgetSpent() const noexcept {
    return parts_->Pace.IsSpent();
}

}  // namespace ferry::scripttools
