// The start of a transfer: what was chosen becomes a request, or a message says why not.
#include "confirmation/start.h"

#include <utility>

#include "transfer/destination.h"

namespace ferry::confirmation {

Start PrepareStart(const Choices& choices, files::FileInfo& info, files::FileChanges& changes,
                   transfer::ShellOperations& shell) {
    transfer::WorkingDestination destination = transfer::MakeWorkingDestination(choices.Destination);
    if (destination.Message != 0)
        return {std::nullopt, destination.Message};
    const transfer::EnsuredFolder folder =
        transfer::EnsureDestinationFolder(info, changes, shell, destination.Path);
    // Who abandons the making of a folder knows that it was abandoned.
    if (folder.Outcome != transfer::FolderOutcome::Ready)
        return {std::nullopt, folder.Message};
    transfer::TransferRequest request;
    request.Destination = std::move(destination.Path);
    request.What = static_cast<transfer::Operation>(choices.Operation);
    request.Settings = choices.Settings;
    return {std::move(request), 0};
}

}  // namespace ferry::confirmation
