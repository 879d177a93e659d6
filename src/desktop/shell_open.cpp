#include "desktop/shell_open.h"

#include <shellapi.h>

#include <string>

#include "paths/path_grammar.h"

namespace ferry::desktop {
namespace {

/// The folder of `file`, or nothing for a bare name or an address.
std::wstring_view FolderOf(std::wstring_view file) noexcept {
    const std::wstring_view folder = paths::ParentWithSeparator(file);
    return folder.ends_with(L'\\') ? folder : std::wstring_view();
}

}  // namespace

bool ShellOpen(const ShellOpenRequest& request) {
    const std::wstring file = paths::LongPathText(request.File);
    const std::wstring parameters(request.Parameters);
    const std::wstring folder =
        paths::LongPathText(request.WorkingFolder.empty() ? FolderOf(request.File) : request.WorkingFolder);
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof(info);
    info.fMask = SEE_MASK_DOENVSUBST | (request.WaitForShell ? SEE_MASK_NOASYNC : 0UL);
    info.hwnd = request.Owner;
    info.lpFile = file.c_str();
    info.lpParameters = parameters.c_str();
    info.lpDirectory = folder.c_str();
    info.nShow = request.ShowMode;
    return ShellExecuteExW(&info) != FALSE;
}

void OpenManualPage(HWND owner, const std::wstring& address) {
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof(info);
    info.fMask = SEE_MASK_DOENVSUBST;
    info.hwnd = owner;
    info.lpFile = address.c_str();
    info.lpParameters = L"";
    info.lpDirectory = L"";
    info.nShow = SW_SHOW;
    // Best effort: the shell itself tells the user what went wrong.
    ShellExecuteExW(&info);
}

}  // namespace ferry::desktop
