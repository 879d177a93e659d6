// The batch run: all sources as one operation of the shell, which can be undone as one.
#include "transfer/batch_run.h"

namespace ferry::transfer {

void RunBatch(const TransferRequest& request, ShellOperations& shell) {
    const std::uint32_t function = request.What == Operation::Move ? kFunctionMove : kFunctionCopy;
    const std::uint32_t flags = request.Settings.NoAsk != 0 ? kBatchFlags | kFlagNoConfirmation : kBatchFlags;
    // The result is dropped on purpose: the shell has told the person already.
    shell.TransferBatch(request.Sources, request.Destination, function, flags);
}

}  // namespace ferry::transfer
