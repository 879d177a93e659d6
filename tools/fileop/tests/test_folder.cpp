#include "test_folder.h"

#include <windows.h>

#include <algorithm>

#include "base/handles_win32.h"

namespace ferry::fileop {
namespace {

std::wstring TemporaryRoot() {
    std::wstring path(MAX_PATH + 1, L'\0');
    path.resize(GetTempPathW(static_cast<DWORD>(path.size()), path.data()));
    return path.substr(0, path.find_last_not_of(L'\\') + 1);
}

std::wstring NewFolder(const std::wstring& parent) {
    static int counter = 0;
    const std::wstring path =
        parent + L"\\fileop" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++counter);
    return CreateDirectoryW(path.c_str(), nullptr) ? path : std::wstring();
}

void Walk(const std::wstring& folder, const std::wstring& prefix, std::vector<std::wstring>& tree) {
    test::VisitEntries(folder, [&](const test::FolderEntry& entry) {
        const std::wstring relative = prefix + entry.Name + (entry.IsFolder() ? L"\\" : L"");
        tree.push_back(relative);
        if (entry.IsFolder()) {
            Walk(folder + L"\\" + entry.Name, relative, tree);
        }
    });
}

}  // namespace

TestFolder::TestFolder() : path_(NewFolder(TemporaryRoot())) {}
TestFolder::TestFolder(const std::wstring& parent) : path_(NewFolder(parent)) {}

TestFolder::~TestFolder() {
    if (!path_.empty()) {
        test::RemoveAll(path_);
    }
}

std::wstring TestFolder::In(std::wstring_view name) const {
    return path_ + L"\\" + std::wstring(name);
}

std::wstring TestFolder::MakeFolder(std::wstring_view name) const {
    std::wstring path = In(name);
    test::MakeFolders(path);
    return path;
}

std::wstring TestFolder::MakeFile(std::wstring_view name, std::string_view content) const {
    std::wstring path = In(name);
    test::MakeFolders(path.substr(0, path.rfind(L'\\')));
    WriteContent(path, content);
    return path;
}

std::string ContentOf(const std::wstring& path) {
    const base::FileHandle file(CreateFileW(test::LongForm(path).c_str(), GENERIC_READ,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                            nullptr));
    if (!file) {
        return "<missing>";
    }
    std::string content(GetFileSize(file.Get(), nullptr), '\0');
    DWORD got = 0;
    const BOOL read = ReadFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &got, nullptr);
    return read && got == content.size() ? content : "<unreadable>";
}

void WriteContent(const std::wstring& path, std::string_view content) {
    const base::FileHandle file(
        CreateFileW(test::LongForm(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    DWORD put = 0;
    WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &put, nullptr);
}

std::vector<std::wstring> TreeOf(const std::wstring& folder) {
    std::vector<std::wstring> tree;
    Walk(folder, L"", tree);
    std::sort(tree.begin(), tree.end());
    return tree;
}

}  // namespace ferry::fileop
