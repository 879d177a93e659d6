#include "framework/shell_manager.h"

#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

namespace ferry::framework {

namespace {

// The browser's edit field and drag-and-drop want OLE on the thread while it runs.
class OleScope {
public:
    OleScope() noexcept : result_(OleInitialize(nullptr)) {}
    OleScope(const OleScope&) = delete;
    OleScope& operator=(const OleScope&) = delete;
    ~OleScope() {
        if (SUCCEEDED(result_)) {
            OleUninitialize();
        }
    }

private:
    HRESULT result_;
};

int CALLBACK OnBrowserMessage(HWND browser, UINT message, LPARAM, LPARAM start) noexcept {
    if (message == BFFM_INITIALIZED) {
        SendMessageW(browser, BFFM_SETSELECTIONW, TRUE, start);
    }
    return 0;
}

std::optional<std::wstring> PathOf(PCIDLIST_ABSOLUTE item) {
    PWSTR path = nullptr;
    if (FAILED(SHGetNameFromIDList(item, SIGDN_FILESYSPATH, &path))) {
        return std::nullopt;
    }
    std::wstring text(path);
    CoTaskMemFree(path);
    return text;
}

// Asking for a file's icon would give the list too, but would look for that icon first.
base::ComPtr<IImageList> FetchSmallIcons() noexcept {
    base::ComPtr<IImageList> icons;
    // A failure leaves the pointer empty: a list without icons.
    SHGetImageList(SHIL_SMALL, IID_PPV_ARGS(icons.Put()));
    return icons;
}

}  // namespace

std::optional<std::wstring> CShellManager::BrowseForFolder(HWND owner, const std::wstring& prompt,
                                                           const std::wstring& start) {
    const OleScope ole;
    wchar_t displayName[MAX_PATH] = {};  // the browser writes the folder's display name here
    BROWSEINFOW info{};
    info.hwndOwner = owner;
    info.pszDisplayName = displayName;
    info.lpszTitle = prompt.c_str();
    info.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE | BIF_EDITBOX;
    info.lpfn = &OnBrowserMessage;
    info.lParam = reinterpret_cast<LPARAM>(start.c_str());
    const PIDLIST_ABSOLUTE chosen = SHBrowseForFolderW(&info);
    if (chosen == nullptr) {
        return std::nullopt;
    }
    std::optional<std::wstring> path = PathOf(chosen);
    CoTaskMemFree(chosen);
    return path;
}

CShellManager::CShellManager() : fetchedIcons_(std::async(&FetchSmallIcons)) {}

HIMAGELIST CShellManager::SmallIcons() {
    if (fetchedIcons_.valid()) {
        smallIcons_ = fetchedIcons_.get();
    }
    return IImageListToHIMAGELIST(smallIcons_.Get());
}

}  // namespace ferry::framework
