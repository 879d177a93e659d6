// Starts programs, and waits for their end.
#pragma once

#include <functional>
#include <string_view>

#include "process/programs.h"

namespace ferry::process {

/// The system behind its port. A program gets the caller's environment and none of its handles.
class SystemPrograms final : public ProgramStarter {
public:
    std::unique_ptr<RunningProgram> Start(const ProgramStart& start) override;
};

/// A program to run.
struct ProgramRun {
    std::wstring_view Program;
    std::wstring_view Arguments;
    std::wstring_view WorkingFolder;  ///< Empty: the caller's own.
    std::uint16_t ShowMode = 1;       ///< An SW_ number; 1 is SW_SHOWNORMAL.
    std::uint32_t TimeLimitMs = 0;    ///< Or kNoTimeLimit.
};

/// Starts `run` and waits for its end; blocks the calling thread.
/// True when it started and ended within the limit. After the limit `mayKill` decides whether it is killed,
/// and the answer is false either way.
bool RunAndWait(const ProgramRun& run, const std::function<bool()>& mayKill);

}  // namespace ferry::process
