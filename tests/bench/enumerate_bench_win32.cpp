// How long the listing of a tree of 50,000 files takes, against a bare walk that only counts them.
//
// Prints one line of JSON and ends with 1 when the goal is missed.
#include <windows.h>

#include <cstddef>
#include <cstdio>
#include <string>

#include "base/handles_win32.h"
#include "comparison.h"
#include "e2e/driver/temp_tree.h"
#include "transfer/file_system_win32.h"
#include "transfer/source_listing.h"

namespace {

using ferry::base::FileHandle;
using ferry::base::FindHandle;
using ferry::bench::Counting;
using ferry::e2e::TempTree;

constexpr std::size_t kFolders = 500;
constexpr std::size_t kFilesInFolder = 100;
constexpr std::size_t kFiles = kFolders * kFilesInFolder;
constexpr ferry::bench::Rounds kRounds{2, 31};
constexpr double kGoal = 1.05;

/// Ten folders of fifty, each with its files. The result is the top folder, empty when a file could
/// not be made.
std::wstring MakeTree(const TempTree& tree) {
    for (std::size_t folder = 0; folder < kFolders; ++folder) {
        const std::wstring path = tree.MakeFolder(L"top\\group " + std::to_wstring(folder % 10) +
                                                  L"\\folder " + std::to_wstring(folder));
        for (std::size_t file = 0; file < kFilesInFolder; ++file) {
            const std::wstring name = path + L"\\some document " + std::to_wstring(file) + L".txt";
            const FileHandle made(CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                              FILE_ATTRIBUTE_NORMAL, nullptr));
            if (!made)
                return {};
        }
    }
    return tree.Path(L"top");
}

/// The walk of a program that wants nothing but the number: it keeps no path of a file.
std::size_t CountByHand(const std::wstring& folder) {
    WIN32_FIND_DATAW found;
    const FindHandle search(FindFirstFileExW((folder + L"\\*").c_str(), FindExInfoBasic, &found,
                                             FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
    if (!search)
        return 0;
    std::size_t count = 0;
    do {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            ++count;
        } else if (wcscmp(found.cFileName, L".") != 0 && wcscmp(found.cFileName, L"..") != 0) {
            count += CountByHand(folder + L'\\' + found.cFileName);
        }
    } while (FindNextFileW(search.Get(), &found));
    return count;
}

std::size_t CountByFerry(const std::wstring& folder) {
    ferry::transfer::WindowsFileSystem fileSystem;
    return ferry::transfer::ListSourceFolder(fileSystem, folder).Files.Size();
}

}  // namespace

int main() {
    const TempTree tree;
    const std::wstring folder = MakeTree(tree);
    if (folder.empty()) {
        std::fprintf(stderr, "the tree could not be made\n");
        return 1;
    }
    ferry::bench::Comparison comparison{"list 50000 files, against a bare walk", kGoal, {}, {}};
    const bool isMet = Race(comparison, kRounds, Counting(kFiles, [&] { return CountByFerry(folder); }),
                            Counting(kFiles, [&] { return CountByHand(folder); })) &&
                       Report(comparison);
    return isMet ? 0 : 1;
}
