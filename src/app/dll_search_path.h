// Keeps system DLLs from being looked for beside the executable.
#pragma once

namespace ferry::app {

/// From now on DLLs without a path come from the system folder only. Best effort: systems
/// without the call go on as they are.
void RestrictDllSearchPath();

}  // namespace ferry::app
