// The programs that scripts start, and what they have the shell open.
#pragma once

#include <windows.h>

#include "process/programs.h"
#include "script/ports.h"

namespace ferry::desktop {

/// Starts programs through a starter. While a program is waited for the pace goes on, so that a person sees
/// the script run and can stop it; then the wait ends and the program runs on.
class ScriptPrograms final : public script::Programs {
public:
    /// All must outlive what is started; `own` owns what the shell shows, and may be null.
    ScriptPrograms(process::ProgramStarter& starter, script::Pace& pace, HWND own = nullptr) noexcept
        : starter_(starter), pace_(pace), own_(own) {}

    std::unique_ptr<script::RunningProgram> Start(const script::ProgramStart& start) override;
    bool StartHelper(const std::wstring& commandLine) override;
    bool Open(const script::ProgramStart& what) override;

private:
    process::ProgramStarter& starter_;
    script::Pace& pace_;
    HWND own_;
};

}  // namespace ferry::desktop
