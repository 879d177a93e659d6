// Questions to the windows of another process, which is given a time to answer.
#pragma once

#include <windows.h>

#include <stdexcept>

#include "support/poll_win32.h"

namespace ferry::e2e {

using test::kPatienceMs;
using test::WaitUntil;

/// A window of the program under test exists and did not answer in time: the program hangs, and nothing
/// more can be found out about it.
class NoAnswer : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Sends a message and waits for its answer. A window that is gone answers 0. Throws NoAnswer when the
/// window has not answered within `patienceMs`.
LRESULT Ask(HWND window, UINT message, WPARAM first = 0, LPARAM second = 0, int patienceMs = kPatienceMs);

/// Waits until the window's thread has handled all that was sent, posted or typed before: a part of the
/// window is drawn anew, which happens only when nothing else is left to do. False when that takes longer
/// than a test waits.
bool HasHandledAll(HWND window);

}  // namespace ferry::e2e
