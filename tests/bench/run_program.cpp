#include "run_program.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace ferry::bench {

namespace {

/// What the shell ends with when it cannot start a program.
constexpr int kNotStarted = 126;
constexpr int kNotFound = 127;

/// `argument` as one word of the shell.
std::string Quoted(std::string argument) {
    for (std::size_t at = argument.find('\''); at != std::string::npos; at = argument.find('\'', at + 4)) {
        argument.replace(at, 1, R"('\'')");
    }
    return '\'' + argument + '\'';
}

}  // namespace

std::string OutputOf(const std::vector<std::filesystem::path>& arguments) {
    // The program in the shell's place: nothing of the shell runs beside it.
    std::string line = "exec";
    for (const std::filesystem::path& argument : arguments) {
        line += ' ' + Quoted(argument.string());
    }
    std::FILE* const pipe = popen(line.c_str(), "r");
    std::string output;
    std::array<char, 4096> block;
    while (const std::size_t count = pipe == nullptr ? 0 : std::fread(block.data(), 1, block.size(), pipe)) {
        output.append(block.data(), count);
    }
    const int code = pipe == nullptr ? kNotStarted : WEXITSTATUS(pclose(pipe));
    if (code == kNotStarted || code == kNotFound)
        throw std::runtime_error(arguments.front().string() + " cannot be started");
    return output;
}

}  // namespace ferry::bench
