// What stands in for the programs that scripts start: beside it lies a plan, and it writes down how it was
// started.
#pragma once

#include <string>

namespace ferry::e2e {

/// What the plan is called: the program's path with this behind it. It holds the exit code and the
/// milliseconds that the program takes; when it goes, the program ends at once.
inline constexpr wchar_t kPlanEnd[] = L".plan";

/// The variable that names the log: a line for each start, with command line, current folder and show mode.
inline constexpr wchar_t kStandInLog[] = L"FERRY_STAND_IN_LOG";

/// The mutex that a stand-in with this file name owns while it runs.
inline std::wstring StandInMutex(const std::wstring& fileName) {
    return L"FerryStandIn-" + fileName;
}

}  // namespace ferry::e2e
