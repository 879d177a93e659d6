// The start of a transfer: what was chosen becomes a request, or a message says why not.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "files/ports.h"
#include "transfer/ports.h"
#include "transfer/request.h"

namespace ferry::confirmation {

/// What the dialog holds when the start is pressed.
struct Choices {
    std::wstring Destination;  ///< As typed.
    std::uint32_t Operation = 0;
    transfer::TransferSettings Settings;
};

/// A start that may go on, with a request that still lacks its sources; or one that may not, with the message
/// to show, if any.
struct Start {
    std::optional<transfer::TransferRequest> Request;
    std::uint16_t Message = 0;  ///< 0: none.
};

/// Judges the destination and makes its folder exist.
Start PrepareStart(const Choices& choices, files::FileInfo& info, files::FileChanges& changes,
                   transfer::ShellOperations& shell);

}  // namespace ferry::confirmation
