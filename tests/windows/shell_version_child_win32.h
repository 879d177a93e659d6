// The child process that sees a shell of another version.
#pragma once

#include <string>

namespace ferry::test {

/// Asks the program for the shell's version and for a search, with a shell of version `major`.`minor`, and
/// writes into `file` what came of it. When it is not readable at first, the version is asked for twice
/// before.
void ReportShellVersion(const std::wstring& file, int major, int minor, bool isReadableAtFirst);

}  // namespace ferry::test
