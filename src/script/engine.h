// Runs the host's command scripts: text files of one statement per line.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "script/host_folders.h"
#include "script/ports.h"

namespace ferry::script {

/// How a run ended.
enum class RunResult : int {
    Ended = 0,     ///< At the script's end, by "exit", by an error, or because a person stopped it.
    EndedAll = -1  ///< By "exitall", which ends the scripts that included this one, too.
};

class Executor;

/// Where a run is.
struct ScriptPlace {
    std::wstring Script;   ///< Its full path; of scripts that include each other the innermost.
    std::size_t Line = 0;  ///< Counted from 1; 0 before the first.

    bool operator==(const ScriptPlace&) const = default;
};

/// Runs scripts in one world. Two engines share nothing.
class Engine {
public:
    /// What `world` refers to must outlive the engine.
    explicit Engine(const World& world) : world_(world), folders_(world_) {}
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    ~Engine() = default;

    /// Runs the script at `path` with fresh variables and options; statements may read and change
    /// `selection`, the full paths of the selected items.
    RunResult Run(const std::wstring& path, std::vector<std::wstring>& selection);

    /// What the last statement that had a result came to: the button of a box, the exit code of a program.
    const std::wstring& LastResult() const noexcept { return result_; }

    /// Where the run is, for whoever is asked something by it; nothing while none is.
    std::optional<ScriptPlace> Place() const;

    /// The folders that scripts name.
    HostFolders& Folders() noexcept { return folders_; }

private:
    World world_;
    HostFolders folders_;
    std::wstring result_;
    const Executor* running_ = nullptr;
};

}  // namespace ferry::script
