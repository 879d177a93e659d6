// The window of a program by itself: of the launcher, or of what authors of scripts use.
#pragma once

#include "watched_run_win32.h"

namespace ferry::rundriver {

/// Starts the program, pauses when its window is there, and closes it. False, after a line on the error
/// output, when something did not happen in time.
bool ShowProgram(const Wishes& wishes);

}  // namespace ferry::rundriver
