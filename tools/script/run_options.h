// What the command line of "run" says.
#pragma once

#include <filesystem>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace ferry::scripttools {

struct RunOptions {
    std::filesystem::path Script;
    std::vector<std::filesystem::path> Selection;
    std::vector<int> Answers;
    std::map<std::wstring, std::wstring> Environment;
    bool HasHostWindow = false;
    bool HasTraceWindow = false;
    bool Pretends = false;
    bool WritesJson = false;
};

/// Reads `arguments` into `options`; what is wrong with them, in UTF-8, or nothing.
std::string ReadRunOptions(std::span<const std::filesystem::path> arguments, RunOptions& options);

}  // namespace ferry::scripttools
