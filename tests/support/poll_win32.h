// Waiting for a condition with a deadline, in place of sleeping.
#pragma once

#include <windows.h>

namespace ferry::test {

/// Long enough for a busy machine; a test that passes never waits so long.
inline constexpr int kPatienceMs = 15000;

/// How often a condition is asked. Most of them ask the system a good deal, which keeps the ones that they
/// wait for from their work.
inline constexpr int kStepMs = 15;

/// Asks `condition` until it holds or `timeoutMs` have passed. True when it held.
template <class Condition>
bool WaitUntil(Condition condition, int timeoutMs = kPatienceMs) {
    const ULONGLONG deadline = GetTickCount64() + static_cast<ULONGLONG>(timeoutMs);
    while (!condition()) {
        if (GetTickCount64() >= deadline)
            return false;
        Sleep(kStepMs);
    }
    return true;
}

}  // namespace ferry::test
