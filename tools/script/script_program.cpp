#include "script_program.h"

#include <algorithm>
#include <exception>
#include <ostream>
#include <string_view>

#include "commands.h"

namespace ferry::scripttools {

namespace {

constexpr std::string_view kHelp = R"(Usage: ferry-script COMMAND ...

  run SCRIPT [OPTIONS]      runs one script and prints what it does, a line each
      --select PATH         an item that is selected; may be given again
      --select-from FILE    the items that FILE names, one a line, in UTF-8
      --host-window         the window of the host is there
      --answer NUMBER       the button that is pressed in the next box with a choice; may be given again
      --env NAME=VALUE      an environment variable; may be given again
      --trace               a trace window is there
      --pretend             on Windows: in a world of pretence, as everywhere else
      --json                prints a result as "world" writes it
  check SCRIPT... [--json]  reads scripts without running them and prints what is wrong with them
  world PATH...             runs scripts in the worlds that JSON files describe, or all those of a folder;
                            FILE.json has its result in FILE.result.json
  help                      this text

In a world of pretence nothing is shown, started, sent or written. A script reads the files of this machine
there, which are below Z:\ where this is no Windows; what it writes it can read again, and nobody else can.
On Windows "run" does all that the script says.

The exit code is 0 when all is fine, 1 when "check" found something or the script that "run" ran told of an
error, and 2 when the command line is wrong or a file cannot be read or written. "world" ends with 0 when every
script could be run, however it ended.
)";

constexpr struct {
    std::string_view Name;
    ExitCode (*Run)(ArgumentsOfCommand arguments, const Console& console);
} kCommands[] = {{"run", RunScript}, {"check", CheckScripts}, {"world", RunWorlds}};

bool AsksForHelp(const Arguments& arguments) {
    return !arguments.empty() && (arguments[0] == "help" || arguments[0] == "--help" || arguments[0] == "-h");
}

ExitCode RunCommand(const Arguments& arguments, const Console& console) {
    if (AsksForHelp(arguments)) {
        console.Out << kHelp;
        return ExitCode::Fine;
    }
    for (const auto& [name, run] : kCommands) {
        if (!arguments.empty() && arguments[0] == name)
            return run(ArgumentsOfCommand(arguments).subspan(1), console);
    }
    console.Err << (arguments.empty() ? "which command?" : "there is no command " + ShownPath(arguments[0]))
                << '\n'
                << kHelp;
    return ExitCode::WrongUsage;
}

}  // namespace

std::string ShownPath(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

ExitCode RunScriptProgram(const Arguments& arguments, const Console& console) {
    try {
        return RunCommand(arguments, console);
    } catch (const std::exception& exception) {
        // Memory is the one thing that can still be missing.
        console.Err << "ferry-script: " << exception.what() << '\n';
        return ExitCode::WrongUsage;
    }
}

}  // namespace ferry::scripttools
