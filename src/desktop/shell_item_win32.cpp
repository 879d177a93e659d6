#include "desktop/shell_item_win32.h"

#include <string>

#include "paths/path_grammar.h"

namespace ferry::desktop {
namespace {

/// What the shell answers where it found another item than the one that was asked for.
constexpr HRESULT kOtherItem = HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);

/// The path of the item in the file system; empty when it has none.
std::wstring PathOf(IShellItem& item) {
    PWSTR text = nullptr;
    if (FAILED(item.GetDisplayName(SIGDN_FILESYSPATH, &text)))
        return {};
    std::wstring path(text);
    CoTaskMemFree(text);
    return path;
}

/// Whether `item` is the one at `path`. The parser takes some paths apart in its own way: of two separators
/// before a name it may read the name twice, and of a long path it may lose a part.
bool IsItemAt(IShellItem& item, std::wstring_view path, files::FileInfo& info) {
    const std::wstring found = PathOf(item);
    if (paths::IsSamePath(found, path))
        return true;
    // A short name, a link or dots on the way: another spelling of the same place.
    const auto id = info.Identity(path);
    return id && id == info.Identity(found);
}

/// The item that the shell makes of `text`, if it is the one at `path`.
HRESULT Parse(const std::wstring& text, std::wstring_view path, files::FileInfo& info,
              base::ComPtr<IShellItem>& item) {
    const HRESULT result = SHCreateItemFromParsingName(text.c_str(), nullptr, IID_PPV_ARGS(item.Put()));
    if (FAILED(result) || IsItemAt(*item.Get(), path, info))
        return result;
    item.Reset();
    return kOtherItem;
}

}  // namespace

HRESULT MakeShellItem(std::wstring_view path, files::FileInfo& info, base::ComPtr<IShellItem>& item) {
    const HRESULT result = Parse(std::wstring(path), path, info, item);
    if (SUCCEEDED(result))
        return result;
    // The shell names its items by the plain form. Only some versions parse it at any length; others take a
    // long path in its prefixed form alone.
    const paths::LongPath prefixed = paths::ToLongPath(path);
    return prefixed.Form == paths::LongPathForm::Unchanged ? result : Parse(prefixed.Text, path, info, item);
}

}  // namespace ferry::desktop
