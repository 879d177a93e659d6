#include "bare_run_win32.h"

// After windows.h, which the shell's headers build on.
#include <shlobj.h>
#include <shobjidl.h>

#include <vector>

#include "base/com_ptr_win32.h"
#include "base/handles_win32.h"

namespace ferry::bench {
namespace {

using base::ComPtr;

constexpr DWORD kRunFlags = 0x2A14;  // what a run asks for at its start

struct Listing {
    std::vector<std::wstring> Folders;
    std::vector<std::wstring> Files;
};

base::FindHandle Search(const std::wstring& pattern, WIN32_FIND_DATAW& found) {
    return base::FindHandle(FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &found, FindExSearchNameMatch,
                                             nullptr, FIND_FIRST_EX_LARGE_FETCH));
}

void List(const std::wstring& folder, Listing& listing) {
    listing.Folders.push_back(folder);
    WIN32_FIND_DATAW found;
    const base::FindHandle search = Search(folder + L"\\*", found);
    if (!search)
        return;
    do {
        const std::wstring path = folder + L'\\' + found.cFileName;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
            listing.Files.push_back(path);
        else if (wcscmp(found.cFileName, L".") != 0 && wcscmp(found.cFileName, L"..") != 0)
            List(path, listing);
    } while (FindNextFileW(search.Get(), &found));
}

void LookAtSize(const std::wstring& file) {
    const base::FileHandle opened(CreateFileW(file.c_str(), GENERIC_READ,
                                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    GetFileSizeEx(opened.Get(), &size);
}

bool TransferFile(const std::wstring& file, const std::wstring& folder, bool moves) {
    ComPtr<IFileOperation> operation;
    ComPtr<IShellItem> item;
    ComPtr<IShellItem> target;
    if (FAILED(CoCreateInstance(CLSID_FileOperation, nullptr, CLSCTX_ALL, IID_PPV_ARGS(operation.Put()))) ||
        FAILED(SHCreateItemFromParsingName(file.c_str(), nullptr, IID_PPV_ARGS(item.Put()))) ||
        FAILED(SHCreateItemFromParsingName(folder.c_str(), nullptr, IID_PPV_ARGS(target.Put()))))
        return false;
    if (moves)
        operation->MoveItems(item.Get(), target.Get());
    else
        operation->CopyItems(item.Get(), target.Get());
    operation->SetOwnerWindow(GetDesktopWindow());
    operation->SetOperationFlags(kRunFlags);
    BOOL isAborted = FALSE;
    return operation->PerformOperations() == S_OK &&
           SUCCEEDED(operation->GetAnyOperationsAborted(&isAborted)) && !isAborted;
}

}  // namespace

std::size_t TransferByHand(const std::wstring& source, const std::wstring& destination, bool moves) {
    const std::size_t baseLength = source.rfind(L'\\') + 1;
    Listing listing;
    GetFileAttributesW(source.c_str());
    List(source, listing);
    for (const std::wstring& folder : listing.Folders)
        SHCreateDirectory(nullptr, (destination + folder.substr(baseLength)).c_str());
    std::size_t count = 0;
    for (const std::wstring& file : listing.Files) {
        const std::wstring target = destination + file.substr(baseLength);
        WIN32_FIND_DATAW found;
        Search(target, found);
        LookAtSize(file);
        count += TransferFile(file, target.substr(0, target.rfind(L'\\') + 1), moves) ? 1 : 0;
    }
    for (std::size_t index = moves ? listing.Folders.size() : 0; index > 0; --index) {
        const std::wstring& folder = listing.Folders[index - 1];
        GetFileAttributesW((destination + folder.substr(baseLength)).c_str());
        SetFileAttributesW(folder.c_str(), FILE_ATTRIBUTE_DIRECTORY);
        RemoveDirectoryW(folder.c_str());
    }
    return count;
}

}  // namespace ferry::bench
