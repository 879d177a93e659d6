// A copy of the installed layout that a test may spoil.
#pragma once

#include <string>

namespace ferry::e2e {

/// Copies the installed layout into `folder`, which is made. False when a file could not be copied.
bool CopyApp(const std::wstring& folder);

/// Copies a folder with all that is in it into `to`, whose parent exists; what is there already stays, unless
/// it has the name of a copied file. False when something could not be copied.
bool CopyFolder(const std::wstring& from, const std::wstring& to);

/// The folder of Ferry.exe inside the layout at `appFolder`.
std::wstring ProgramFolder(const std::wstring& appFolder);

}  // namespace ferry::e2e
