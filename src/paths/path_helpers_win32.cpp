#include "paths/path_helpers_win32.h"

#include <optional>

#include "base/com_ptr_win32.h"
#include "paths/path_helpers.h"
#include "paths/shell_item_win32.h"

namespace ferry::paths {
namespace {

std::optional<std::wstring> AskLongName(const std::wstring& prefixedPath) {
    const DWORD needed = GetLongPathNameW(prefixedPath.c_str(), nullptr, 0);
    if (needed == 0) {
        return std::nullopt;
    }
    std::wstring answer(needed + 1, L'\0');
    const DWORD length = GetLongPathNameW(prefixedPath.c_str(), answer.data(), needed + 1);
    if (length == 0 || length > needed) {
        return std::nullopt;
    }
    answer.resize(length);
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
