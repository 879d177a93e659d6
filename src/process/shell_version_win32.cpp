#include "process/shell_version_win32.h"

#include <windows.h>

#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

namespace ferry::process {
namespace {

std::wstring ShellLibraryPath() {
    std::wstring folder(GetSystemDirectoryW(nullptr, 0), L'\0');
    folder.resize(GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size())));
    return folder + L"\\shell32.dll";
}

std::optional<ShellVersionNumber> ReadShellVersion() {
    const std::wstring path = ShellLibraryPath();
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeW(path.c_str(), &ignored);
    std::vector<std::byte> block(size);
    if (size == 0 || !GetFileVersionInfoW(path.c_str(), 0, size, block.data())) {
        return std::nullopt;
    }
    void* root = nullptr;
    UINT rootSize = 0;
    if (!VerQueryValueW(block.data(), L"\\", &root, &rootSize) || rootSize < sizeof(VS_FIXEDFILEINFO)) {
        return std::nullopt;
    }
    const auto* info = static_cast<const VS_FIXEDFILEINFO*>(root);
    return ShellVersionNumber{HIWORD(info->dwFileVersionMS), LOWORD(info->dwFileVersionMS),
                              HIWORD(info->dwFileVersionLS)};
}

}  // namespace

std::optional<ShellVersionNumber> ShellVersion() {
    static std::mutex guard;
    static std::optional<ShellVersionNumber> known;
    const std::lock_guard lock(guard);
    if (!known) {
        known = ReadShellVersion();
    }
    return known;
}

int CombinedShellVersion() {
    static const int combined = [] {
        const auto version = ShellVersion().value_or(ShellVersionNumber{});
        return version.Major * 100 + version.Minor;
    }();
    return combined;
}

}  // namespace ferry::process
