// What a process shows on the screen, for whoever takes pictures of it.
#pragma once

#include <windows.h>

#include <string>

namespace ferry::rundriver {

/// The frames of all windows that process `processId` shows, the topmost first, each as
/// " LEFT,TOP,WIDTH,HEIGHT"; empty when it shows none.
std::string FramesOf(DWORD processId);

/// How many windows of this class it shows.
int CountWindows(DWORD processId, const wchar_t* className);

/// Says "PAUSE name", with the frames of the process behind it, and waits for a line on the input.
void PauseFor(const char* name, DWORD processId);

/// Says on standard error what went wrong; false, for whoever has to return that.
bool Complain(const char* what);

}  // namespace ferry::rundriver
