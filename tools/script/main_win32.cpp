// FerryScript: tries scripts out and runs them.
#include <windows.h>

#include <iostream>

#include "app/real_world_win32.h"
#include "desktop/message_boxes_win32.h"
#include "script/engine.h"
#include "script_program.h"

namespace {

using namespace ferry;

/// Speaks as another speaker does, and knows whether a person was told of an error.
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

bool RunOnThisMachine(const std::wstring& script, std::vector<std::wstring> selection) {
    app::RealWorld world;
    desktop::MessageBoxes boxes;
    CountingSpeaker speaker(boxes);
    script::Engine(world.Ports(speaker)).Run(script, selection);
    return speaker.HasTold();
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    using namespace ferry::scripttools;
    SetConsoleOutputCP(CP_UTF8);
    const Arguments given(arguments + (count > 0 ? 1 : 0), arguments + count);
    return static_cast<int>(RunScriptProgram(given, {std::cout, std::cerr, RunOnThisMachine}));
}
