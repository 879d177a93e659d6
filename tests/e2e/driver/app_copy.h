// A copy of the installed layout that a test may spoil.
#pragma once

#include <string>

namespace ferry::e2e {

/// Copies the installed layout into `folder`, which is made. False when a file could not be copied.
bool CopyApp(const std::wstring& folder);

/// The folder of Ferry.exe inside the layout at `appFolder`.
std::wstring ProgramFolder(const std::wstring& appFolder);

}  // namespace ferry::e2e
