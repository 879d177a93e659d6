// Opens files, addresses and manual pages through the shell.
#pragma once

#include <windows.h>

#include <string_view>

namespace ferry::process {

/// What the shell is to open.
struct ShellOpenRequest {
    HWND Owner = nullptr;
    std::wstring_view File;
    std::wstring_view Parameters;
    std::wstring_view WorkingFolder;  ///< Empty: the file's own folder.
    int ShowMode = SW_SHOWNORMAL;
    bool WaitForShell = false;  ///< The call returns only when the shell is done with it.
};

/// Opens a file or an address with its default action. Environment variables in the texts are
/// expanded. Failures are the shell's to report.
void ShellOpen(const ShellOpenRequest& request);

/// Opens `page` of the manual under `base`; an empty base means the manual beside the program.
void OpenManualPage(HWND owner, std::wstring_view base, std::wstring_view page);

}  // namespace ferry::process
