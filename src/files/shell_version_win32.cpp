#include "files/shell_version_win32.h"

#include <windows.h>

#include <cstddef>
#include <mutex>
#include <string>
#include <vector>

#include "base/system_library_win32.h"

namespace ferry::files {
namespace {

std::optional<ShellVersionNumber> ReadShellVersion() {
    const base::LibraryHandle library = base::LoadSystemLibrary(L"version.dll");
    auto* const sizeOf =
        base::FindFunction<decltype(GetFileVersionInfoSizeW)>(library, "GetFileVersionInfoSizeW");
    auto* const read = base::FindFunction<decltype(GetFileVersionInfoW)>(library, "GetFileVersionInfoW");
    auto* const query = base::FindFunction<decltype(VerQueryValueW)>(library, "VerQueryValueW");
    if (sizeOf == nullptr || read == nullptr || query == nullptr) {
        return std::nullopt;
    }
    const std::wstring path = base::SystemFolder() + L"\\shell32.dll";
    DWORD ignored = 0;
    const DWORD size = sizeOf(path.c_str(), &ignored);
    std::vector<std::byte> block(size);
    if (size == 0 || !read(path.c_str(), 0, size, block.data())) {
        return std::nullopt;
    }
    void* root = nullptr;
    UINT rootSize = 0;
    if (!query(block.data(), L"\\", &root, &rootSize) || rootSize < sizeof(VS_FIXEDFILEINFO)) {
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

}  // namespace ferry::files
