// World files: what a pretended world is made of, and what a script did to it, as JSON.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "effects.h"
#include "pretended_world.h"
#include "script/engine.h"

namespace ferry::scripttools {

/// A world file that was read: what it describes, or what is wrong with it.
struct ReadWorld {
    std::optional<WorldDescription> World;
    std::string Mistake;  ///< UTF-8; names the member that is wrong.
};

/// The world that `json` describes, which is UTF-8, with or without a mark at its start.
ReadWorld WorldFromJson(std::string_view json);

/// A result file: what was done, all files afterwards, and how the run ended; UTF-8, a line for each effect.
std::string ResultToJson(std::span<const Effect> effects, const std::map<std::wstring, Bytes>& files,
                         script::RunResult result);

}  // namespace ferry::scripttools
