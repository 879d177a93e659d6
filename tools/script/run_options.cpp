#include "run_options.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <fstream>
#include <string>
#include <system_error>

#include "base/utf16.h"
#include "commands.h"

namespace ferry::scripttools {

namespace {

/// Reads the value of an option; whether it is one.
using TakeValue = bool (*)(const std::filesystem::path& value, RunOptions& options);

bool TakeSelected(const std::filesystem::path& value, RunOptions& options) {
    options.Selection.push_back(value);
    return !value.empty();
}

/// One path a line, in UTF-8.
bool TakeSelectedFrom(const std::filesystem::path& value, RunOptions& options) {
    std::ifstream lines(value);
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        if (!line.empty())
            options.Selection.emplace_back(std::u8string(line.begin(), line.end()));
    }
    return lines.eof();
}

bool TakeAnswer(const std::filesystem::path& value, RunOptions& options) {
    const std::string text = ShownPath(value);
    int button = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), button);
    options.Answers.push_back(button);
    return error == std::errc() && end == text.data() + text.size();
}

bool TakeVariable(const std::filesystem::path& value, RunOptions& options) {
    const std::wstring text = base::FromUtf8(ShownPath(value));
    const std::size_t sign = text.find(L'=');
    if (sign == std::wstring::npos || sign == 0)
        return false;
    options.Environment[text.substr(0, sign)] = text.substr(sign + 1);
    return true;
}

constexpr struct {
    const char* Name;
    TakeValue Take;
} kValues[] = {{"--select", TakeSelected},
               {"--select-from", TakeSelectedFrom},
               {"--answer", TakeAnswer},
               {"--env", TakeVariable}};

constexpr struct {
    const char* Name;
    bool RunOptions::* Flag;
} kFlags[] = {{"--host-window", &RunOptions::HasHostWindow},
              {"--trace", &RunOptions::HasTraceWindow},
              {"--pretend", &RunOptions::Pretends},
              {"--json", &RunOptions::WritesJson}};

}  // namespace

std::string ReadRunOptions(std::span<const std::filesystem::path> arguments, RunOptions& options) {
    while (!arguments.empty()) {
        const std::filesystem::path argument = arguments.front();
        arguments = arguments.subspan(1);
        const auto isNamed = [&argument](const auto& row) { return argument == row.Name; };
        if (const auto* flag = std::ranges::find_if(kFlags, isNamed); flag != std::end(kFlags)) {
            options.*flag->Flag = true;
        } else if (const auto* value = std::ranges::find_if(kValues, isNamed); value != std::end(kValues)) {
            if (arguments.empty() || !value->Take(arguments.front(), options))
                return ShownPath(argument) + " needs a value";
            arguments = arguments.subspan(1);
        } else if (ShownPath(argument).starts_with("--")) {
            return "there is no option " + ShownPath(argument);
        } else if (!options.Script.empty()) {
            return "one script at a time";
        } else {
            options.Script = argument;
        }
    }
    return options.Script.empty() ? "which script?" : "";
}

}  // namespace ferry::scripttools
