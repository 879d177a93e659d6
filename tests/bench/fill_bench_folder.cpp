// Makes all that the benchmarks work on in one folder. Under Wine this is a matter of seconds for a program
// of the system below, and of an hour for one of Windows.
#include <cstdio>
#include <exception>

#include "trees.h"

namespace {

void Fill(const std::filesystem::path& place) {
    using namespace ferry::bench;
    for (const TreeShape& shape : {kBatchTree, kCopyTree, kMoveTree, kListTree}) {
        MakeTree(place, shape);
    }
    MakeCrowdedFolder(place);
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: fill_bench_folder FOLDER\n");
        return 2;
    }
    try {
        Fill(arguments[1]);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
