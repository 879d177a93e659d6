// The batch run: all sources as one operation of the shell, which can be undone as one.
#pragma once

#include "transfer/ports.h"
#include "transfer/request.h"

namespace ferry::transfer {

/// Hands all sources of `request` to the shell at once. Conflicts, progress and failures are the
/// shell's to show, so there is no result.
void RunBatch(const TransferRequest& request, ShellOperations& shell);

}  // namespace ferry::transfer
