// What a folder holds at one moment, to be compared with another moment or another folder.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <string>

namespace ferry::e2e {

/// One file or folder.
struct TreeEntry {
    bool IsFolder = false;
    DWORD Attributes = 0;        ///< Only read-only, hidden and system.
    std::string Content;         ///< Empty for a folder.
    std::uint64_t Modified = 0;  ///< A file's time of its last change; 0 for a folder.

    bool operator==(const TreeEntry&) const = default;
};

/// Entries by their path relative to the top.
using TreeSnapshot = std::map<std::wstring, TreeEntry>;

/// Reads everything below `root`; the folder itself is not an entry.
TreeSnapshot ReadTree(const std::wstring& root);

/// The first differences between two trees, one on each line (UTF-8); empty when they are equal.
std::string Differences(const TreeSnapshot& expected, const TreeSnapshot& actual);

/// A number that changes when anything in the tree changes.
std::uint64_t HashOf(const TreeSnapshot& tree);

}  // namespace ferry::e2e
