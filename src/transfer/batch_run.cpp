// The batch run: all sources as one operation of the shell, which can be undone as one.
#include "transfer/batch_run.h"

namespace ferry::transfer {

void RunBatch(const TransferRequest& request, ShellOperations& shell) {
    ShellTransfer batch;
    batch.TargetFolder = request.Destination;
    batch.What = request.What;
    batch.Flags = request.Settings.NoAsk != 0 ? kBatchFlags | kFlagNoConfirmation : kBatchFlags;
    // The outcome is dropped on purpose: the shell has told the person already.
    shell.TransferAll(request.Sources, batch);
}

}  // namespace ferry::transfer
