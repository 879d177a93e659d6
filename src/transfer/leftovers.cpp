// What a run could not do.
#include "transfer/leftovers.h"

namespace ferry::transfer {

LeftReason ReasonOf(ShellResult result) noexcept {
    switch (result) {
        case ShellResult::NoSourceItem:
            return LeftReason::NoSourceItem;
        case ShellResult::NoFolderItem:
            return LeftReason::NoFolderItem;
        case ShellResult::NotQueued:
            return LeftReason::NotQueued;
        case ShellResult::NoObject:
        case ShellResult::Done:
        case ShellResult::Failed:
            return LeftReason::NoShell;
    }
    return LeftReason::NoShell;
}

}  // namespace ferry::transfer
