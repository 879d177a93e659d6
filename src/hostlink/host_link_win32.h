// The link to the host at start-up: the presence marker and the data it handed over.
#pragma once

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

    bool IsHeld() const noexcept { return static_cast<bool>(mutex_); }

    /// Takes the marker away before the object ends.
    void Close() noexcept { mutex_.Reset(); }

private:
    base::MutexHandle mutex_;
};

/// Reads the host variable and, when it announces one, the shared block. Everything stays empty
/// without a proper variable; a block that cannot be opened is reported to the user.
HostData ReadHostData();

}  // namespace ferry::hostlink
