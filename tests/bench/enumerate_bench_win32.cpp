// How long the listing of a tree of 50,000 files takes, against a bare walk that only counts them.
//
// Prints one line of JSON and ends with 1 when the goal is missed.
#include <windows.h>

#include <cstddef>
#include <cstdio>
#include <string>

#include "comparison.h"
#include "e2e/driver/temp_tree.h"
#include "transfer/file_system_win32.h"
#include "transfer/source_listing.h"

namespace {

using ferry::e2e::TempTree;

constexpr std::size_t kFolders = 500;
constexpr std::size_t kFilesInFolder = 100;
constexpr std::size_t kFiles = kFolders * kFilesInFolder;
constexpr int kWarmUpRounds = 2;
constexpr int kRounds = 31;
constexpr double kGoal = 1.05;

/// Ten folders of fifty, each with its files. The result is the top folder, empty when a file could
/// not be made.
std::wstring MakeTree(const TempTree& tree) {
    for (std::size_t folder = 0; folder < kFolders; ++folder) {
        const std::wstring path = tree.MakeFolder(L"top\\group " + std::to_wstring(folder % 10) +
                                                  L"\\folder " + std::to_wstring(folder));
        for (std::size_t file = 0; file < kFilesInFolder; ++file) {
            const std::wstring name = path + L"\\some document " + std::to_wstring(file) + L".txt";
            const HANDLE made = CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                            FILE_ATTRIBUTE_NORMAL, nullptr);
            if (made == INVALID_HANDLE_VALUE)
                return {};
            CloseHandle(made);
        }
    }
    return tree.Path(L"top");
}

/// The walk of a program that wants nothing but the number: it keeps no path of a file.
std::size_t CountByHand(const std::wstring& folder) {
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileExW((folder + L"\\*").c_str(), FindExInfoBasic, &found,
                                           FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE)
        return 0;
    std::size_t count = 0;
    do {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            ++count;
        } else if (wcscmp(found.cFileName, L".") != 0 && wcscmp(found.cFileName, L"..") != 0) {
            count += CountByHand(folder + L'\\' + found.cFileName);
        }
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return count;
}

std::size_t CountByFerry(const std::wstring& folder) {
    ferry::transfer::WindowsFileSystem fileSystem;
    return ferry::transfer::ListSourceFolder(fileSystem, folder).Files.Size();
}

using Count = std::size_t (*)(const std::wstring&);

/// Milliseconds of one count; negative when it is not the number of files.
double Time(Count count, const std::wstring& folder) {
    std::size_t counted = 0;
    const double spent = ferry::bench::MillisecondsOf([&] { counted = count(folder); });
    if (counted != kFiles) {
        std::fprintf(stderr, "%zu files were found instead of %zu\n", counted, kFiles);
        return -1;
    }
    return spent;
}

bool Race(const std::wstring& folder, ferry::bench::Comparison& comparison) {
    for (int round = 0; round < kWarmUpRounds + kRounds; ++round) {
        // The order changes, so that no side always comes second.
        const bool isFerryFirst = round % 2 == 0;
        const double first = Time(isFerryFirst ? CountByFerry : CountByHand, folder);
        const double second = Time(isFerryFirst ? CountByHand : CountByFerry, folder);
        if (first < 0 || second < 0)
            return false;
        if (round >= kWarmUpRounds) {
            comparison.Ferry.push_back(isFerryFirst ? first : second);
            comparison.Reference.push_back(isFerryFirst ? second : first);
        }
    }
    return true;
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
    return Race(folder, comparison) && Report(comparison) ? 0 : 1;
}
