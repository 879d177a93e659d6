#include "controls/dropped_files.h"

#include <optional>

#include "paths/path_grammar.h"

namespace ferry::controls {
namespace {

std::optional<std::wstring> SystemLongName(const std::wstring& path) {
    const DWORD needed = GetLongPathNameW(path.c_str(), nullptr, 0);
    if (needed == 0) {
        return std::nullopt;
    }
    std::wstring answer(needed + 1, L'\0');
    const DWORD length = GetLongPathNameW(path.c_str(), answer.data(), needed + 1);
    if (length == 0 || length > needed) {
        return std::nullopt;
    }
    answer.resize(length);
    return answer;
}

std::optional<std::wstring> AskLongName(const std::wstring& prefixedPath) {
    std::optional<std::wstring> answer = SystemLongName(prefixedPath);
    // Some systems give a prefixed path back as it came; those expand the plain one.
    if (answer == prefixedPath && !prefixedPath.starts_with(paths::kPlainNetworkPrefix)) {
        if (const auto plain = SystemLongName(prefixedPath.substr(paths::kPlainPrefix.size()))) {
            answer = std::wstring(paths::kPlainPrefix) + *plain;
        }
    }
    return answer;
}

}  // namespace

std::wstring ExpandLongName(std::wstring_view path) {
    return paths::ExpandLongName(path, AskLongName);
}

std::wstring DroppedFileName(HDROP drop, UINT index) {
    const UINT length = DragQueryFileW(drop, index, nullptr, 0);
    std::wstring name(length + 2, L'\0');
    name.resize(DragQueryFileW(drop, index, name.data(), length + 2));
    return ExpandLongName(name);
}

}  // namespace ferry::controls
