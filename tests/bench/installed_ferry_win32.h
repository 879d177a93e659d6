// The installed program, as the benchmarks start it: alone, with a block that is handed over.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "e2e/driver/child_process.h"
#include "samplehost/shared_block_win32.h"
#include "support/poll_win32.h"

namespace ferry::bench {

/// The program inside the layout that FERRY_E2E_APP names, or else the layout "app" beside the build tree.
std::wstring InstalledFerry();

/// A host's selection, there to be read as long as this lives.
class HandOver {
public:
    /// Shares the block with these units and announces it to the programs that are started from now on.
    /// False when it cannot be made.
    bool Prepare(std::wstring_view blockUnits);

private:
    samplehost::SharedBlock block_;
};

/// Whether a program ended with 0; a remark on the standard error when not.
bool IsGood(const e2e::Ending& ending);

/// Waits until the program has ended; as IsGood().
bool HasEndedWell(const e2e::ChildProcess& process);

}  // namespace ferry::bench
