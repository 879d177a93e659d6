// The shared block and its guard mutex, as the host keeps them.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <span>

#include "base/handles_win32.h"
#include "host_block_writer.h"

namespace ferry::samplehost {

/// Keeps the mapping and the mutex alive; both vanish with it.
class SharedBlock {
public:
    /// Makes the mutex, and the mapping of `mappingBytes` bytes with `bytes` at its start.
    /// With `holdsGuard` the calling thread owns the mutex until ReleaseGuard.
    /// False, with the reason in GetLastError, when one of them cannot be made.
    bool Create(const VariableFields& names, std::span<const std::byte> bytes, std::uint32_t mappingBytes,
                bool holdsGuard);

    /// Gives up the mutex that Create took; without effect when it took none.
    void ReleaseGuard() noexcept;

private:
    base::MutexHandle guard_;
    base::MappingHandle mapping_;
    bool holdsGuard_ = false;
};

}  // namespace ferry::samplehost
