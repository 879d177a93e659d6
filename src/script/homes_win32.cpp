#include "script/homes_win32.h"

#include <windows.h>
// After windows.h, which they build on.
#include <lmcons.h>
#include <shlobj.h>

#include "base/handles_win32.h"
#include "paths/path_grammar.h"

namespace ferry::script {
namespace {

/// A text that the shell allocated.
using ShellText = base::UniqueResource<base::ReleasedBy<wchar_t*, &CoTaskMemFree>>;

}  // namespace

std::optional<std::wstring> SystemHomes::LoginName() {
    wchar_t name[UNLEN + 1];
    DWORD size = UNLEN + 1;
    return GetUserNameW(name, &size) ? std::optional<std::wstring>(name) : std::nullopt;
}

std::optional<std::wstring> SystemHomes::LocalAppData() {
    ShellText path;
    // What a failure leaves in the place is to be freed, too.
    if (FAILED(SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_DEFAULT, nullptr, path.Put())))
        return std::nullopt;
    return path.Get();
}

std::wstring SystemHomes::ProgramFolder() {
    return std::wstring(paths::ParentWithSeparator(modulePath_));
}

}  // namespace ferry::script
