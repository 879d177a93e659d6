#include "trees.h"

#include <fstream>
#include <stdexcept>

namespace ferry::bench {
namespace {

namespace fs = std::filesystem;

// An entry that is a link to a file costs a small part of a new file. File systems bound the links of one
// file: at 1024 those of Windows, at 65000 a usual one elsewhere.
constexpr std::size_t kMostLinks = 1000;

void MakeFile(const fs::path& path, std::size_t size) {
    std::ofstream file(path, std::ios::binary);
    file << std::string(size, '#');
    if (!file.flush())
        throw std::runtime_error("a file could not be made: " + path.string());
}

/// Makes empty files, nearly all of which are links.
class EmptyFiles {
public:
    void Make(const fs::path& path) {
        if (made_++ % kMostLinks != 0) {
            fs::create_hard_link(linked_, path);
            return;
        }
        MakeFile(path, 0);
        linked_ = path;
    }

private:
    fs::path linked_;
    std::size_t made_ = 0;
};

}  // namespace

std::string FolderName(const TreeShape& shape, std::size_t folder) {
    return "group " + std::to_string(folder % shape.Groups) + "/folder " + std::to_string(folder);
}

std::string FileName(std::size_t folder, std::size_t file) {
    return "some document " + std::to_string(folder) + "-" + std::to_string(file) + ".txt";
}

void MakeTree(const fs::path& place, const TreeShape& shape) {
    EmptyFiles empty;
    for (std::size_t folder = 0; folder < shape.Folders; ++folder) {
        const fs::path path = place / shape.Name / FolderName(shape, folder);
        fs::create_directories(path);
        for (std::size_t file = 0; file < shape.FilesInFolder; ++file) {
            if (shape.FileSize == 0)
                empty.Make(path / FileName(folder, file));
            else
                MakeFile(path / FileName(folder, file), shape.FileSize);
        }
    }
}

void MakeCrowdedFolder(const fs::path& place) {
    const fs::path folder = place / kCrowdedName;
    fs::create_directories(folder);
    EmptyFiles empty;
    for (std::size_t entry = 0; entry < kCrowdedEntries; ++entry) {
        const fs::path path = folder / ("Some entry " + std::to_string(entry));
        if (entry % kCrowdedFolderEvery == 0)
            fs::create_directory(path);
        else
            empty.Make(path);
    }
}

}  // namespace ferry::bench
