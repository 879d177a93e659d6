// A second interpreter of scripts, against which the program's own is compared: it reads every line each
// time it comes to it, searches from the front, and stops to think about nothing.
#pragma once

#include <string>
#include <vector>

#include "core/script/literal/literal_placeholders.h"
#include "script/engine.h"
#include "script/ports.h"

namespace ferry::script::literal {

/// Runs scripts as Engine does.
class LiteralEngine {
public:
    /// `world` must outlive the engine.
    explicit LiteralEngine(const World& world) : world_(world), folders_(world) {}

    /// Runs the script at `path`; statements may read and change `selection`.
    RunResult Run(const std::wstring& path, std::vector<std::wstring>& selection);

private:
    World world_;
    HostFolders folders_;
};

}  // namespace ferry::script::literal
