// The version of the system's shell.
#pragma once

#include <optional>

namespace ferry::files {

/// The file version of the system's shell32.dll.
struct ShellVersionNumber {
    int Major = 0;
    int Minor = 0;
    int Build = 0;
};

/// The shell's version, read once per process; nothing when it cannot be read, and then the next
/// call tries again. Any thread may ask.
std::optional<ShellVersionNumber> ShellVersion();

/// Major x 100 + minor, settled by the first call in the process; 0 when unknown at that time.
int CombinedShellVersion();

}  // namespace ferry::files
