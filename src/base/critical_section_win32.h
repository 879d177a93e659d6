// A lock between threads of this process.
#pragma once

#include <windows.h>

namespace ferry::base {

/// A critical section that spins a while before it waits; usable with std::lock_guard and std::unique_lock.
class CriticalSection {
public:
    CriticalSection() noexcept { InitializeCriticalSectionAndSpinCount(&section_, 4000); }
    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;
    ~CriticalSection() { DeleteCriticalSection(&section_); }

    void lock() noexcept { EnterCriticalSection(&section_); }
    bool try_lock() noexcept { return TryEnterCriticalSection(&section_) != FALSE; }
    void unlock() noexcept { LeaveCriticalSection(&section_); }

private:
    CRITICAL_SECTION section_;
};

}  // namespace ferry::base
