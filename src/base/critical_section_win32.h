// A lock between threads of this process.
#pragma once

#include <windows.h>

namespace ferry::base {

/// A critical section that spins a while before it waits; usable with std::lock_guard.
class CriticalSection {
public:
    CriticalSection() noexcept { InitializeCriticalSectionAndSpinCount(&section_, 4000); }
    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;
    ~CriticalSection() { DeleteCriticalSection(&section_); }

    void lock() noexcept { EnterCriticalSection(&section_); }
    void unlock() noexcept { LeaveCriticalSection(&section_); }

private:
    CRITICAL_SECTION section_;
};

}  // namespace ferry::base
