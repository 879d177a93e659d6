// Runs a program and waits for its end; for scripts, which run programs.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace ferry::process {

/// A program to run.
struct ProgramRun {
    std::wstring_view Program;
    std::wstring_view Arguments;
    std::wstring_view WorkingFolder;  ///< Empty: the caller's own.
    std::uint16_t ShowMode = 1;       ///< An SW_ number; 1 is SW_SHOWNORMAL.
    std::uint32_t TimeLimitMs = 0;    ///< 0xFFFFFFFF: no limit.
};

/// The exit code of a program that the user had killed.
inline constexpr std::uint32_t kKilledExitCode = 999;

/// What the person is asked about a program that has not ended within its limit.
inline constexpr wchar_t kKillQuestion[] = L"Timeout!\nAre you sure you want to kill the process?";

/// Starts `run` and waits for its end; blocks the calling thread.
/// True when it started and ended within the limit. After the limit `mayKill` decides whether it is killed,
/// and the answer is false either way.
bool RunAndWait(const ProgramRun& run, const std::function<bool()>& mayKill);

}  // namespace ferry::process
