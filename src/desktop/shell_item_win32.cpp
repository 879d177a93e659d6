#include "desktop/shell_item_win32.h"

// After windows.h, which the shell's headers build on.
#include <shlobj.h>
#include <shlwapi.h>

#include "base/case_order.h"
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

/// The folder that `item` lies in; none where the shell has no such folder.
base::ComPtr<IShellFolder> FolderOf(IShellItem& item) {
    base::ComPtr<IShellItem> parent;
    base::ComPtr<IShellFolder> folder;
    if (SUCCEEDED(item.GetParent(parent.Put())))
        parent->BindToHandler(nullptr, BHID_SFObject, IID_PPV_ARGS(folder.Put()));
    return folder;
}

struct ChildTraits {
    using Value = PITEMID_CHILD;
    static Value Nothing() noexcept { return nullptr; }
    static void Release(Value child) noexcept { CoTaskMemFree(child); }
};

/// What a folder calls one of its items.
using Child = base::UniqueResource<ChildTraits>;

/// Whether `folder` knows its item `child` by `name`.
bool IsNamed(IShellFolder& folder, PCUITEMID_CHILD child, const std::wstring& name) {
    STRRET text;
    wchar_t found[MAX_PATH];
    return SUCCEEDED(folder.GetDisplayNameOf(child, SHGDN_INFOLDER | SHGDN_FORPARSING, &text)) &&
           SUCCEEDED(StrRetToBufW(&text, child, found, MAX_PATH)) && base::EqualsIgnoringCase(found, name);
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

HRESULT ShellItemMaker::Make(std::wstring_view path, base::ComPtr<IShellItem>& item) {
    // What the folder cannot tell, the whole path does.
    if (MakeBeside(path, item))
        return S_OK;
    const HRESULT result = MakeShellItem(path, info_, item);
    if (SUCCEEDED(result))
        Keep(path, *item.Get());
    return result;
}

bool ShellItemMaker::MakeBeside(std::wstring_view path, base::ComPtr<IShellItem>& item) {
    if (paths::ParentWithSeparator(path) != parent_ || !FindFolder())
        return false;
    std::wstring name(paths::LastComponent(path));
    Child child;
    if (FAILED(folder_->ParseDisplayName(nullptr, nullptr, name.data(), nullptr, child.Put(), nullptr)))
        return false;
    return IsNamed(*folder_.Get(), child.Get(), name) &&
           SUCCEEDED(SHCreateShellItem(nullptr, folder_.Get(), child.Get(), item.Put()));
}

/// Whether folder_ is the folder at parent_. It is looked for when a second item comes, since many folders
/// hold one only. An item of a path that ends in a separator, or was another spelling, lies in another
/// folder.
bool ShellItemMaker::FindFolder() {
    if (whole_ && paths::IsSamePath(paths::ParentWithSeparator(PathOf(*whole_.Get())), parent_))
        folder_ = FolderOf(*whole_.Get());
    whole_.Reset();
    return static_cast<bool>(folder_);
}

/// Remembers `item`, which was made of the whole `path`, for those beside it.
void ShellItemMaker::Keep(std::wstring_view path, IShellItem& item) {
    const std::wstring_view parent = paths::ParentWithSeparator(path);
    if (parent == parent_ && folder_)
        return;
    parent_ = parent;
    folder_.Reset();
    item.AddRef();
    whole_.Reset(&item);
}

}  // namespace ferry::desktop
