// What lies in a folder.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>

namespace ferry::e2e {

/// A file or a folder, as its parent folder lists it.
struct FolderEntry {
    std::wstring Name;
    DWORD Attributes = 0;
    std::uint64_t Modified = 0;  ///< As a file time.

    bool IsFolder() const noexcept { return (Attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }
};

/// Shows `visit` everything that lies directly in `folder`, but "." and "..". False when the folder cannot
/// be listed.
bool VisitEntries(const std::wstring& folder, const std::function<void(const FolderEntry&)>& visit);

}  // namespace ferry::e2e
