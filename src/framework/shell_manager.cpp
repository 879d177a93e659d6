#include "framework/shell_manager.h"

#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

#include <iterator>

namespace ferry::framework {

namespace {

constexpr int kLargerSizes[] = {SHIL_LARGE, SHIL_EXTRALARGE};

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
base::ComPtr<IImageList> FetchIcons(int size) noexcept {
    base::ComPtr<IImageList> icons;
    // A failure leaves the pointer empty: a list without icons.
    SHGetImageList(size, IID_PPV_ARGS(icons.Put()));
    return icons;
}

int WidthOf(const base::ComPtr<IImageList>& icons) noexcept {
    int width = 0;
    int height = 0;
    return icons.Get() != nullptr && SUCCEEDED(icons->GetIconSize(&width, &height)) ? width : 0;
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

CShellManager::CShellManager() : fetchedIcons_(std::async(&FetchIcons, SHIL_SMALL)) {}

// The small icons of the system have the size that is small on the main screen. A number means the same icon
// in the lists of all sizes.
HIMAGELIST CShellManager::SmallIcons(UINT dpi) {
    if (fetchedIcons_.valid()) {
        smallIcons_ = fetchedIcons_.get();
    }
    const base::ComPtr<IImageList>* fitting = &smallIcons_;
    const int wanted = GetSystemMetricsForDpi(SM_CXSMICON, dpi);
    for (std::size_t index = 0; index < std::size(kLargerSizes) && WidthOf(*fitting) < wanted; ++index) {
        base::ComPtr<IImageList>& larger = largerIcons_[index];
        if (larger.Get() == nullptr) {
            larger = FetchIcons(kLargerSizes[index]);
        }
        if (WidthOf(larger) > WidthOf(*fitting) && WidthOf(larger) <= wanted) {
            fitting = &larger;
        }
    }
    return IImageListToHIMAGELIST(fitting->Get());
}

}  // namespace ferry::framework
