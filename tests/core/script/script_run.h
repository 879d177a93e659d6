// Runs a script that a test has as a text, in a made-up world.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "fake_world.h"

namespace ferry::script {

/// A script's world and what came of running it.
struct ScriptRun {
    FakeWorld World;
    std::vector<std::wstring> Selection;
    RunResult Result = RunResult::Ended;
    std::wstring LastResult;

    /// Runs `text` as the script at C:\s\main.txt; all that it did.
    std::vector<std::string> Run(std::wstring_view text) {
        World.Texts[L"C:\\s\\main.txt"] = text;
        Engine engine(World.All());
        Result = engine.Run(L"C:\\s\\main.txt", Selection);
        LastResult = engine.LastResult();
        return World.Effects;
    }
};

/// What the script `text` does in a world of its own.
inline std::vector<std::string> EffectsOf(std::wstring_view text) {
    return ScriptRun().Run(text);
}

using Lines = std::vector<std::string>;

}  // namespace ferry::script
