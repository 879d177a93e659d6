// The shell's file operation behind the port of the runs.
#pragma once

#include <windows.h>

#include "transfer/ports.h"

namespace ferry::transfer {

/// Hands transfers to the shell. The thread must have initialised COM.
class WindowsShellOperations : public ShellOperations {
public:
    /// `owner` owns what the shell shows during single transfers; a batch outlives that window
    /// and belongs to the desktop.
    explicit WindowsShellOperations(HWND owner) noexcept : owner_(owner) {}

    ShellOutcome TransferFile(const ShellTransfer& transfer) override;
    std::int32_t TransferBatch(const base::TextList& sources, std::wstring_view destination,
                               std::uint32_t function, std::uint32_t flags) override;

private:
    HWND owner_;
};

}  // namespace ferry::transfer
