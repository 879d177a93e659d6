// The launcher's command line.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ferry::launcher {

/// What the launcher is asked to do.
enum class Deed { Open, Help, AddSendTo, RemoveSendTo };

/// The name that stands for the standard input in LaunchOptions::Lists.
inline constexpr std::wstring_view kStandardInput = L"-";

/// Everything that the command line can say; paths as they were given.
struct LaunchOptions {
    Deed What = Deed::Open;
    bool IsMove = false;
    bool IsQuiet = false;             ///< Nothing is said or asked; the exit code tells.
    std::wstring Destination;         ///< Empty: the first of the other folders is preset.
    std::vector<std::wstring> Tabs;   ///< The folders given as other tabs.
    std::vector<std::wstring> Lists;  ///< Files with one path on each line, or kStandardInput.
    std::vector<std::wstring> Paths;
};

/// What is wrong with a command line.
enum class MistakeKind { None, UnknownSwitch, MissingValue, WrongValue };

/// A mistake, and the argument that it is in.
struct Mistake {
    MistakeKind Kind = MistakeKind::None;
    std::wstring Argument;

    bool operator==(const Mistake&) const = default;
};

/// Reads `arguments` (without the program's name) into `options`. A switch begins with "/" or "-"; its value
/// stands behind ":" or "=", or is the next argument. Behind "--" stand paths only. Of several switches that
/// exclude each other the last one counts. A line without any path or list asks for help. Stops at the first
/// mistake, which is the result.
Mistake ParseLaunchOptions(std::span<const std::wstring_view> arguments, LaunchOptions& options);

}  // namespace ferry::launcher
