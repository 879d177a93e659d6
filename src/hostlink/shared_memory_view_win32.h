// The host's shared block, mapped for one read.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "base/handles_win32.h"

namespace ferry::hostlink {

/// A mapped block with the mutex that guards it. Its end unmaps the view, closes the mapping and
/// lets the guard go, in that order.
class SharedMemoryView {
public:
    /// Opens, or makes, the mapping `name` of `sizeBytes` bytes and the mutex `guardName`.
    SharedMemoryView(const std::wstring& name, const std::wstring& guardName, std::uint32_t sizeBytes);

    /// Whether the block can be read; Error() says why not.
    bool IsOpen() const noexcept { return static_cast<bool>(guard_); }

    /// The system error of the step that failed, 0 when none did.
    DWORD Error() const noexcept { return error_; }

    /// Waits without limit until the host has let the block go. An open block only.
    void Lock() noexcept;
    void Unlock() noexcept;

    /// All units that are mapped: those of the block, which the host may change unless it is locked, and
    /// what the system mapped with them, since it maps whole pages. An open block only.
    std::span<wchar_t> Units() const noexcept;

private:
    DWORD error_ = 0;
    // Destroyed from the last to the first.
    base::MutexHandle guard_;
    base::MappingHandle mapping_;
    base::MappedView view_;
};

}  // namespace ferry::hostlink
