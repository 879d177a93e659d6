// The files that the benchmarks work on: made by a program of the system that holds them, or where they are
// needed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

namespace ferry::bench {

/// Files of one size in folders, and these in groups: "group G/folder F/some document F-N.txt".
struct TreeShape {
    const char* Name;
    std::size_t Groups;
    std::size_t Folders;  ///< In all groups together.
    std::size_t FilesInFolder;
    std::size_t FileSize;

    constexpr std::size_t Files() const { return Folders * FilesInFolder; }
    constexpr std::uint64_t Bytes() const { return std::uint64_t{Files()} * FileSize; }
};

inline constexpr TreeShape kBatchTree{"batch", 1, 5, 100, 4096};
inline constexpr TreeShape kCopyTree{"copy", 1, 50, 20, 4096};
inline constexpr TreeShape kMoveTree{"move", 1, 50, 20, 4096};
inline constexpr TreeShape kListTree{"list", 10, 500, 100, 0};

/// One folder with many entries, of which every so many is a folder itself.
inline constexpr char kCrowdedName[] = "crowded";
inline constexpr std::size_t kCrowdedEntries = 100'000;
inline constexpr std::size_t kCrowdedFolderEvery = 15;

/// The folder of a file in a tree, and the file's own name.
std::string FolderName(const TreeShape& shape, std::size_t folder);
std::string FileName(std::size_t folder, std::size_t file);

/// Makes the tree below `place`, under its own name. Throws what std::filesystem throws.
void MakeTree(const std::filesystem::path& place, const TreeShape& shape);

/// Makes the folder with many entries below `place`.
void MakeCrowdedFolder(const std::filesystem::path& place);

}  // namespace ferry::bench
