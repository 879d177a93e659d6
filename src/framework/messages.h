// The messages of a thread that is busy.
#pragma once

#include <windows.h>

#include <functional>

namespace ferry::framework {

/// Handles the messages that wait for this thread. `takes` sees each one first, and keeps it from everybody
/// else by answering true. False when the thread is to end: the loops above hear of that, too.
bool HandleWaitingMessages(const std::function<bool(MSG&)>& takes);

}  // namespace ferry::framework
