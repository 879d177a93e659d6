// Where the benchmarks find the files that they work on, and where they put others.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "e2e/driver/temp_tree.h"
#include "trees.h"

namespace ferry::bench {

/// What is below a folder.
struct TreeSum {
    std::size_t Files = 0;
    std::uint64_t Bytes = 0;

    bool operator==(const TreeSum&) const = default;
};

/// What a tree of this shape holds.
TreeSum SumOf(const TreeShape& shape);

/// What is below `folder` as it is.
TreeSum SumBelow(const std::wstring& folder);

/// The name of the tree's top folder.
std::wstring TreeName(const TreeShape& shape);

/// The path of a file inside its tree.
std::wstring FilePath(const TreeShape& shape, std::size_t folder, std::size_t file);

/// The folder of a benchmark. FERRY_BENCH_FOLDER names one that somebody has filled, and will remove. Without
/// it the files are made when they are asked for, in a folder that goes away at the end.
class BenchGround {
public:
    /// The path of a tree of this shape. Throws std::runtime_error when it cannot be made, or when what is
    /// there has another number of files or bytes.
    std::wstring Tree(const TreeShape& shape) const;

    /// The path of the folder with many entries. Throws std::runtime_error when it cannot be made.
    std::wstring CrowdedFolder() const;

    /// A new folder, with a separator at its end and no blank in its path. Throws std::runtime_error.
    std::wstring NewFolder();

private:
    std::wstring Root() const { return filled_.empty() ? own_.Root() : filled_; }

    e2e::TempTree own_;
    std::wstring filled_ = FilledFolder();
    std::size_t folders_ = 0;

    static std::wstring FilledFolder();
};

}  // namespace ferry::bench
