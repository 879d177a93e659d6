// The statements that act on the world.
#pragma once

#include <string>
#include <string_view>

#include "script/functions.h"
#include "script/options.h"
#include "script/ports.h"
#include "script/script_files.h"
#include "script/selection.h"
#include "script/words.h"

namespace ferry::script {

/// What a command asks of the run that it is a statement of.
class CommandRun {
public:
    CommandRun() = default;
    CommandRun(const CommandRun&) = delete;
    CommandRun& operator=(const CommandRun&) = delete;
    virtual ~CommandRun() = default;

    /// Runs the script at `path` inside this one.
    virtual void Include(std::wstring_view path) = 0;

    /// Goes on at the label `name`; false when there is none.
    virtual bool JumpTo(std::wstring_view name) = 0;

    /// Sets the variable called `name`.
    virtual Outcome Assign(std::wstring_view name, std::wstring_view value) = 0;
};

/// All that commands act on.
struct CommandScope {
    const script::World& World;
    script::Options& Options;
    script::Selection& Selection;
    OutputFile& Output;
    CommandRun& Run;
    std::wstring& Result;  ///< The button, exit code or the like of the last statement that had one.
};

/// Carries out the command `id` with `argument`, in which everything is replaced.
Outcome RunCommand(CommandScope& scope, CommandId id, std::wstring_view argument);

}  // namespace ferry::script
