// Opens files, addresses and manual pages through the shell.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace ferry::desktop {

/// What the shell is to open.
struct ShellOpenRequest {
    HWND Owner = nullptr;
    std::wstring_view File;
    std::wstring_view Parameters;
    std::wstring_view WorkingFolder;  ///< Empty: the file's own folder.
    int ShowMode = SW_SHOWNORMAL;
    bool WaitForShell = false;  ///< The call returns only when the shell is done with it.
};

/// Opens a file or an address with its default action; for scripts. Environment variables in the texts are
/// expanded. Failures are the shell's to report; whether there was none.
bool ShellOpen(const ShellOpenRequest& request);

/// Opens the page of the manual at `address`.
void OpenManualPage(HWND owner, const std::wstring& address);

}  // namespace ferry::desktop
