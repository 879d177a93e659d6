// How programs are started and waited for.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace ferry::process {

/// No limit for a wait.
inline constexpr std::uint32_t kNoTimeLimit = 0xFFFFFFFF;

/// The exit code of a program that the user had killed.
inline constexpr std::uint32_t kKilledExitCode = 999;

/// What stands for the exit code of a program that still runs, as the system answers it.
inline constexpr std::uint32_t kStillRuns = 259;

/// What the person is asked about a program that has not ended within its limit.
inline constexpr wchar_t kKillQuestion[] = L"Timeout!\nAre you sure you want to kill the process?";

/// A program to start.
struct ProgramStart {
    std::wstring CommandLine;
    std::wstring WorkingFolder;  ///< Empty: the caller's own.
    std::uint16_t ShowMode = 1;  ///< An SW_ number; 1 is SW_SHOWNORMAL.
    bool IsWaitedFor = false;    ///< Whether the script waits for its end.
};

/// A program that was started. It runs on when this object goes.
class RunningProgram {
public:
    virtual ~RunningProgram() = default;

    /// Waits for its end, at most `limitMs` milliseconds or kNoTimeLimit; whether there is nothing more to
    /// wait for: it has ended, or the person has stopped the waiting.
    virtual bool Wait(std::uint32_t limitMs) = 0;

    /// The exit code of a program that has ended, else kStillRuns.
    virtual std::uint32_t ExitCode() = 0;

    /// Ends it with `exitCode`; best effort, since it may have ended by itself meanwhile.
    virtual void Kill(std::uint32_t exitCode) = 0;
};

/// Starts programs.
class ProgramStarter {
public:
    virtual ~ProgramStarter() = default;

    /// Starts the program that a command names; nothing when the system cannot.
    virtual std::unique_ptr<RunningProgram> Start(const ProgramStart& start) = 0;
};

}  // namespace ferry::process
