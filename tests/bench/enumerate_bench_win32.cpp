// How long the listing of a tree of 50,000 files takes, against a bare walk that only counts them.
//
// Prints one line of JSON and ends with 1 when it could not be measured.
#include <windows.h>

#include <cstddef>
#include <string>

#include "base/handles_win32.h"
#include "bench_ground_win32.h"
#include "comparison.h"
#include "files/disk_win32.h"
#include "transfer/source_listing.h"

namespace {

using ferry::base::FindHandle;
using ferry::bench::Counting;
using ferry::bench::kListTree;

constexpr double kEnumerationGoal = 1.05;

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
    ferry::files::DiskSearch search;
    ferry::files::DiskInfo info;
    return ferry::transfer::ListSourceFolder(search, info, folder, [] { return true; }).Files.Size();
}

bool MeasureListing() {
    const ferry::bench::BenchGround ground;
    const std::wstring folder = ground.Tree(kListTree);
    return ferry::bench::Compare({Counting(kListTree.Files(), [&] { return CountByFerry(folder); }),
                                  Counting(kListTree.Files(), [&] { return CountByHand(folder); })},
                                 {{"list 50000 files, against a bare walk", 0, 1, kEnumerationGoal}});
}

}  // namespace

int main() {
    return ferry::bench::ResultOf(MeasureListing);
}
