// FerryScript: tries scripts out and runs them.
#include <windows.h>

#include <iostream>

#include "real_world_win32.h"
#include "script/engine.h"
#include "script_program.h"

namespace {

using namespace ferry;

/// Speaks as the speaker of a world does, and knows whether a person was told of an error.
class CountingSpeaker final : public lang::Speaker {
public:
    explicit CountingSpeaker(lang::Speaker& speaker) : speaker_(speaker) {}

    void Tell(const std::wstring& text, lang::Tone tone) override {
        hasTold_ = true;
        speaker_.Tell(text, tone);
    }
    bool Ask(const std::wstring& question, lang::Tone tone) override { return speaker_.Ask(question, tone); }

    bool HasTold() const noexcept { return hasTold_; }

private:
    lang::Speaker& speaker_;
    bool hasTold_ = false;
};

script::World WithSpeaker(const script::World& world, lang::Speaker& speaker) {
    return {.Boxes = world.Boxes,
            .Speaker = speaker,
            .Programs = world.Programs,
            .Host = world.Host,
            .Trace = world.Trace,
            .Settings = world.Settings,
            .Files = world.Files,
            .Folders = world.Folders,
            .Changes = world.Changes,
            .ByteFiles = world.ByteFiles,
            .Clipboard = world.Clipboard,
            .Speech = world.Speech,
            .Clock = world.Clock,
            .Chance = world.Chance,
            .Surroundings = world.Surroundings,
            .Homes = world.Homes,
            .Pace = world.Pace};
}

bool RunOnThisMachine(const std::wstring& script, std::vector<std::wstring> selection) {
    scripttools::RealWorld world;
    CountingSpeaker speaker(world.Ports().Speaker);
    script::Engine(WithSpeaker(world.Ports(), speaker)).Run(script, selection);
    return speaker.HasTold();
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    using namespace ferry::scripttools;
    SetConsoleOutputCP(CP_UTF8);
    const Arguments given(arguments + (count > 0 ? 1 : 0), arguments + count);
    return static_cast<int>(RunScriptProgram(given, {std::cout, std::cerr, RunOnThisMachine}));
}
