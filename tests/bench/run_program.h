// Runs a console program as a whole.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace ferry::bench {

/// Runs the program that `arguments` begins with, and waits for its end. What it has printed on its standard
/// output. Throws std::runtime_error when it cannot be started.
std::string OutputOf(const std::vector<std::filesystem::path>& arguments);

}  // namespace ferry::bench
