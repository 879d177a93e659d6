// The batch run: all sources as one operation of the shell, which can be undone as one.
#pragma once

#include "transfer/leftovers.h"
#include "transfer/ports.h"
#include "transfer/request.h"

namespace ferry::transfer {

/// Hands all sources of `request` to the shell at once. Conflicts, progress and failures are the shell's to
/// show; what never reached it is in the answer.
Leftovers RunBatch(const TransferRequest& request, ShellOperations& shell);

}  // namespace ferry::transfer
