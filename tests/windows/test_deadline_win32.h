// No test can stop its program for good: what waits for an answer gets one, and then the program ends.
#pragma once

#include <windows.h>

#include <chrono>

namespace ferry::test {

/// After this time the windows that a test left open are closed for it, and it has failed.
inline constexpr std::chrono::seconds kTestDeadline{180};

/// When that did not help, the program ends after this time more and names the test.
inline constexpr std::chrono::seconds kTestGrace{30};

/// Lets `window` and its menu go: presses Cancel or another button of a box or dialog, closes anything else.
void CloseWaitingWindow(HWND window);

/// The same for every window of this process that can be seen.
void CloseWaitingWindows();

}  // namespace ferry::test
