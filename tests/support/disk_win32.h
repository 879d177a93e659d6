// What all tests on Windows do with files. Paths have any length.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace ferry::test {

/// `path` in the form that has no length limit; one that has it already stays.
std::wstring LongForm(std::wstring_view path);

bool Exists(std::wstring_view path);

/// Makes a folder with its missing parents.
void MakeFolders(const std::wstring& path);

/// Removes a file or a folder with all its contents, whatever their attributes.
void RemoveAll(const std::wstring& path);

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

}  // namespace ferry::test
