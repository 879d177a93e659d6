// The batch run: all sources as one operation of the shell, which can be undone as one.
#include "transfer/batch_run.h"

namespace ferry::transfer {

Leftovers RunBatch(const TransferRequest& request, ShellOperations& shell) {
    ShellTransfer batch;
    batch.TargetFolder = request.Destination;
    batch.What = request.What;
    batch.Flags = request.Settings.NoAsk != 0 ? kBatchFlags | kFlagNoConfirmation : kBatchFlags;
    const BatchOutcome outcome = shell.TransferAll(request.Sources, batch);
    Leftovers left;
    for (const std::wstring_view source : request.Sources) {
        left.CountItem();
        if (outcome.What == ShellResult::NoObject)
            left.Add(source, LeftReason::NoShell, static_cast<std::uint32_t>(outcome.Code));
    }
    // Of what was performed the shell has told the person already.
    for (const LeftSource& one : outcome.Left) {
        if (outcome.What != ShellResult::NoObject)
            left.Add(one.Source, ReasonOf(one.Why), static_cast<std::uint32_t>(one.Code));
    }
    return left;
}

}  // namespace ferry::transfer
