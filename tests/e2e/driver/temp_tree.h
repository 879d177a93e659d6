// A folder of its own for each test, and the files that a test puts there.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "base/handles_win32.h"
#include "support/disk_win32.h"

namespace ferry::e2e {

using test::Exists;
using test::LongForm;
using test::MakeFolders;
using test::RemoveAll;

/// A new folder below the base folder, or below `base`; removed with all its contents at the end.
class TempTree {
public:
    TempTree();
    explicit TempTree(const std::wstring& base);
    ~TempTree();
    TempTree(const TempTree&) = delete;
    TempTree& operator=(const TempTree&) = delete;

    const std::wstring& Root() const noexcept { return root_; }

    /// The full path of `relative`.
    std::wstring Path(std::wstring_view relative) const;

    /// Makes a folder with its missing parents and gives it `attributes`.
    std::wstring MakeFolder(std::wstring_view relative, DWORD attributes = FILE_ATTRIBUTE_DIRECTORY) const;

    /// Writes a file, with its missing parents. The time is `seconds` after a fixed moment, so that
    /// two files compare as the test wants.
    std::wstring WriteFile(std::wstring_view relative, std::string_view content, double seconds = 0,
                           DWORD attributes = FILE_ATTRIBUTE_NORMAL) const;

    /// The sample that transfers are tried on: nested folders, Japanese names, an empty folder,
    /// a read-only and a hidden file, an empty file and a name of 200 characters.
    /// The result is the full path of its top folder.
    std::wstring MakeSample(std::wstring_view relative) const;

private:
    std::wstring root_;
};

/// The bytes of a file; empty when it cannot be read.
std::string ReadBytes(std::wstring_view path);

/// Opens a file so that nobody else can, for as long as the handle lives.
base::FileHandle OpenAlone(std::wstring_view path);

/// Writes a file as UTF-16LE with a byte-order mark; its folder must exist.
void WriteUtf16(std::wstring_view path, std::wstring_view text);

}  // namespace ferry::e2e
