#include "paths/folders_win32.h"

#include <windows.h>
// After windows.h, which the shell's headers build on.
#include <shlobj.h>

#include <string>

#include "paths/path_helpers.h"

namespace ferry::paths {
namespace {

int LastError() noexcept {
    return static_cast<int>(GetLastError());
}

/// Makes the folder at `path`, in its prefixed form, after its missing parents.
int MakeLongFolder(const std::wstring& path) {
    if (CreateDirectoryW(path.c_str(), nullptr)) {
        return ERROR_SUCCESS;
    }
    const int error = LastError();
    const std::size_t separator = path.find_last_of(L'\\', path.size() - 2);
    if (error != ERROR_PATH_NOT_FOUND || separator == std::wstring::npos) {
        return error;
    }
    const int parent = MakeLongFolder(path.substr(0, separator));
    if (parent != ERROR_SUCCESS && parent != ERROR_ALREADY_EXISTS) {
        return parent;
    }
    return CreateDirectoryW(path.c_str(), nullptr) ? ERROR_SUCCESS : LastError();
}

}  // namespace

int MakeFolder(std::wstring_view path) {
    const LongPath target = ToLongPath(path);
    // The shell's function refuses prefixed paths, or even cuts them and makes a wrong folder.
    return target.Form == LongPathForm::Unchanged ? SHCreateDirectory(nullptr, target.Text.c_str())
                                                  : MakeLongFolder(target.Text);
}

}  // namespace ferry::paths
