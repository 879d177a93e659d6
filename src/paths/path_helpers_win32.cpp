#include "paths/path_helpers_win32.h"

#include <optional>

#include "base/com_ptr_win32.h"
#include "paths/path_helpers.h"
#include "paths/shell_item_win32.h"

namespace ferry::paths {
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
    constexpr std::wstring_view kDrivePrefix = L"\\\\?\\";
    if (answer == prefixedPath && !prefixedPath.starts_with(L"\\\\?\\UNC\\")) {
        if (const auto plain = SystemLongName(prefixedPath.substr(kDrivePrefix.size()))) {
            answer = std::wstring(kDrivePrefix) + *plain;
        }
    }
    return answer;
}

using QueueMethod = HRESULT (STDMETHODCALLTYPE IFileOperation::*)(IShellItem*, IShellItem*, LPCWSTR,
                                                                  IFileOperationProgressSink*);

HRESULT Queue(IFileOperation* operation, QueueMethod method, std::wstring_view source,
              std::wstring_view destination) {
    if (operation == nullptr) {
        return S_FALSE;  // The number 1, which callers compare with.
    }
    base::ComPtr<IShellItem> sourceItem;
    HRESULT result = MakeShellItem(source, sourceItem);
    if (FAILED(result)) {
        return result;
    }
    base::ComPtr<IShellItem> folderItem;
    const std::wstring_view folder = ParentWithSeparator(destination);
    if (!folder.empty()) {
        result = MakeShellItem(folder, folderItem);
        if (FAILED(result)) {
            return result;
        }
    }
    const std::wstring newName(LastComponent(destination));
    return (operation->*method)(sourceItem.Get(), folderItem.Get(), newName.c_str(), nullptr);
}

}  // namespace

std::wstring ExpandLongName(std::wstring_view path) {
    return ExpandLongName(path, AskLongName);
}

std::wstring DroppedFileName(HDROP drop, UINT index) {
    const UINT length = DragQueryFileW(drop, index, nullptr, 0);
    std::wstring name(length + 2, L'\0');
    name.resize(DragQueryFileW(drop, index, name.data(), length + 2));
    return ExpandLongName(name);
}

HRESULT QueueCopy(IFileOperation* operation, std::wstring_view source, std::wstring_view destination) {
    return Queue(operation, &IFileOperation::CopyItem, source, destination);
}

HRESULT QueueMove(IFileOperation* operation, std::wstring_view source, std::wstring_view destination) {
    return Queue(operation, &IFileOperation::MoveItem, source, destination);
}

}  // namespace ferry::paths
