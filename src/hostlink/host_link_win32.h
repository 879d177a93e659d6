// The link to the host at start-up: the presence marker and the data it handed over.
#pragma once

#include <cstdint>
#include <string_view>

#include "base/handles_win32.h"
#include "hostlink/host_data.h"

namespace ferry::hostlink {

/// Marks that a program of this name runs, by the mere existence of a named mutex.
class PresenceMutex {
public:
    /// Makes the marker of the executable at `modulePath`, unless an earlier instance has it:
    /// then this object holds nothing.
    explicit PresenceMutex(std::wstring_view modulePath);

    /// Takes the marker away before the object ends.
    void Close() noexcept { mutex_.Reset(); }

private:
    base::MutexHandle mutex_;
};

/// What the host handed over, and why a block that it announced could not be opened.
struct HostReading {
    HostData Data;
    std::uint32_t BlockError = 0;  ///< The system's error number; 0: none.
};

/// Reads the host variable and, when it announces one, the shared block. Everything stays empty
/// without a proper variable.
HostReading ReadHostData();

}  // namespace ferry::hostlink
