// The library itself: its handle and the count that keeps it loaded.
#pragma once

#include <windows.h>

namespace ferry::fileop {

/// The library's own handle.
HINSTANCE ModuleHandle() noexcept;

/// Counts what keeps the library loaded: one more, or one less.
void LockModule() noexcept;
void UnlockModule() noexcept;

}  // namespace ferry::fileop
