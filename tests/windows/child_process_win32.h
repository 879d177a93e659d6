// The parts that the test program plays when a test starts it as a child process.
#pragma once

#include <optional>
#include <string>

#include "base/handles_win32.h"
#include "process/program_runner_win32.h"

namespace ferry::test {

/// Argument text for a child that ends at once with `exitCode`.
std::wstring ExitArguments(int exitCode);

/// Argument text for a child that writes its working folder, a line feed and its show mode into
/// `file` and ends.
std::wstring ReportArguments(const std::wstring& file);

/// Argument text for a child that raises the event `started`, waits for the event `stop` and ends
/// with 0. Both exist already.
std::wstring WaitArguments(const std::wstring& started, const std::wstring& stop);

/// Argument text for a child that writes into `file` what the program makes of a shell of version
/// `major`.`minor`, which cannot be read at first when `isReadableAtFirst` is false.
std::wstring ShellVersionArguments(const std::wstring& file, int major, int minor, bool isReadableAtFirst);

/// Runs a program, and asks in a message box whether it is killed, as whoever runs one does.
bool RunAskingInABox(const process::ProgramRun& run);

/// A running child that plays a part of this program, opened so that its end can be watched. The first
/// window of a session may start a process of the system as a child of this one, too.
base::ProcessHandle OpenChild();

/// What the command line asks a child to do, done; nothing when this is no child.
std::optional<int> PlayChild();

}  // namespace ferry::test
