// "world": scripts in described worlds.
#include <algorithm>
#include <fstream>
#include <ostream>
#include <system_error>

#include "commands.h"
#include "real_disk.h"
#include "script/engine.h"
#include "world_json.h"

namespace ferry::scripttools {

namespace {

namespace fs = std::filesystem;

constexpr char kWorldEnd[] = ".json";
constexpr char kResultEnd[] = ".result.json";

bool IsResult(const fs::path& path) {
    return ShownPath(path).ends_with(kResultEnd);
}

fs::path ResultPathOf(const fs::path& world) {
    fs::path result = world;
    if (result.extension() == kWorldEnd)
        result.replace_extension();
    return result += kResultEnd;
}

/// The worlds that `path` names, in order: itself, or those in the folder.
std::vector<fs::path> WorldsAt(const fs::path& path, std::error_code& error) {
    std::vector<fs::path> worlds;
    if (!fs::is_directory(path, error)) {
        if (!error && !IsResult(path))
            worlds.push_back(path);
        return worlds;
    }
    for (fs::directory_iterator at(path, error), end; !error && at != end; at.increment(error)) {
        if (at->path().extension() == kWorldEnd && !IsResult(at->path()))
            worlds.push_back(at->path());
    }
    std::ranges::sort(worlds);
    return worlds;
}

bool WriteText(const fs::path& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    file.close();
    return !file.fail();
}

/// Runs the world at `path`; what is wrong with it, or nothing.
std::string RunWorld(const fs::path& path, std::ostream& err) {
    const auto bytes = ReadFileBytes(path);
    if (!bytes)
        return "this cannot be read";
    const std::string json(reinterpret_cast<const char*>(bytes->data()),
                           bytes->size());  // NOLINT: bytes are text
    ReadWorld read = WorldFromJson(json);
    if (!read.World)
        return read.Mistake;
    PretendedWorld world(*std::move(read.World));
    std::vector<std::wstring> selection = world.Description().Selection;
    const script::RunResult result = script::Engine(world.Ports()).Run(world.Description().Script, selection);
    if (world.IsBudgetSpent())
        err << ShownPath(path) << ": the script did not come to an end and was stopped\n";
    const fs::path place = ResultPathOf(path);
    const bool isWritten = WriteText(place, ResultToJson(world.Effects(), world.Files(), result));
    return isWritten ? "" : ShownPath(place) + " cannot be written";
}

bool RunWorldsAt(const fs::path& path, std::ostream& err) {
    std::error_code error;
    const std::vector<fs::path> worlds = WorldsAt(path, error);
    bool isFine = true;
    const auto complain = [&](const fs::path& where, const std::string& what) {
        err << ShownPath(where) << ": " << what << '\n';
        isFine = false;
    };
    if (error)
        complain(path, "this cannot be read");
    else if (worlds.empty() && !IsResult(path))
        complain(path, "there is no world in this folder");
    for (const fs::path& world : worlds) {
        if (const std::string mistake = RunWorld(world, err); !mistake.empty())
            complain(world, mistake);
    }
    return isFine;
}

}  // namespace

ExitCode RunWorlds(ArgumentsOfCommand arguments, const Console& console) {
    if (arguments.empty()) {
        console.Err << "world: which worlds?\n";
        return ExitCode::WrongUsage;
    }
    bool areFine = true;
    for (const fs::path& path : arguments)
        areFine = RunWorldsAt(path, console.Err) && areFine;
    return areFine ? ExitCode::Fine : ExitCode::WrongUsage;
}

}  // namespace ferry::scripttools
