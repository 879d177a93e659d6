#include "desktop/script_programs_win32.h"

#include <algorithm>
#include <utility>

#include "desktop/shell_open.h"
#include "paths/path_grammar.h"

namespace ferry::desktop {
namespace {

/// How long nobody looks for what a person does while a program is waited for.
constexpr ULONGLONG kStepMs = 50;

class WatchedProgram final : public script::RunningProgram {
public:
    WatchedProgram(std::unique_ptr<script::RunningProgram> program, script::Pace& pace) noexcept
        : program_(std::move(program)), pace_(pace) {}

    bool Wait(std::uint32_t limitMs) override {
        const ULONGLONG start = GetTickCount64();
        for (;;) {
            const ULONGLONG left = Left(limitMs, GetTickCount64() - start);
            if (program_->Wait(static_cast<std::uint32_t>(std::min(left, kStepMs))) || !pace_.GoesOn())
                return true;
            if (left == 0)
                return false;
        }
    }

    std::uint32_t ExitCode() override { return program_->ExitCode(); }
    void Kill(std::uint32_t exitCode) override { program_->Kill(exitCode); }

private:
    static ULONGLONG Left(std::uint32_t limitMs, ULONGLONG passedMs) noexcept {
        if (limitMs == script::kNoTimeLimit)
            return kStepMs;
        return limitMs > passedMs ? limitMs - passedMs : 0;
    }

    std::unique_ptr<script::RunningProgram> program_;
    script::Pace& pace_;
};

}  // namespace

std::unique_ptr<script::RunningProgram> ScriptPrograms::Start(const script::ProgramStart& start) {
    auto program = starter_.Start(start);
    return program ? std::make_unique<WatchedProgram>(std::move(program), pace_) : nullptr;
}

bool ScriptPrograms::StartHelper(const std::wstring& commandLine) {
    return starter_.Start({.CommandLine = commandLine, .WorkingFolder = {}}) != nullptr;
}

bool ScriptPrograms::Open(const script::ProgramStart& what) {
    const paths::CommandLineParts parts = paths::SplitCommandLine(what.CommandLine);
    return ShellOpen({.Owner = own_,
                      .File = parts.Program,
                      .Parameters = parts.Arguments,
                      .WorkingFolder = what.WorkingFolder,
                      .ShowMode = what.ShowMode});
}

}  // namespace ferry::desktop
