#include "bench_ground_win32.h"

#include <algorithm>
#include <stdexcept>

#include "base/handles_win32.h"
#include "e2e/driver/surroundings.h"

namespace ferry::bench {
namespace {

/// A name that has only ASCII characters.
std::wstring Wide(std::string_view name) {
    return {name.begin(), name.end()};
}

bool IsOwnOrParent(const wchar_t* name) {
    return wcscmp(name, L".") == 0 || wcscmp(name, L"..") == 0;
}

/// What one entry of `folder` adds.
TreeSum SumOfEntry(const std::wstring& folder, const WIN32_FIND_DATAW& entry) {
    if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
        return {1, (std::uint64_t{entry.nFileSizeHigh} << 32) | entry.nFileSizeLow};
    return IsOwnOrParent(entry.cFileName) ? TreeSum{} : SumBelow(folder + L'\\' + entry.cFileName);
}

}  // namespace

TreeSum SumOf(const TreeShape& shape) {
    return {shape.Files(), shape.Bytes()};
}

TreeSum SumBelow(const std::wstring& folder) {
    TreeSum sum;
    WIN32_FIND_DATAW entry;
    const base::FindHandle search(FindFirstFileExW((folder + L"\\*").c_str(), FindExInfoBasic, &entry,
                                                   FindExSearchNameMatch, nullptr,
                                                   FIND_FIRST_EX_LARGE_FETCH));
    if (!search)
        return sum;
    do {
        const TreeSum added = SumOfEntry(folder, entry);
        sum.Files += added.Files;
        sum.Bytes += added.Bytes;
    } while (FindNextFileW(search.Get(), &entry));
    return sum;
}

std::wstring TreeName(const TreeShape& shape) {
    return Wide(shape.Name);
}

std::wstring FilePath(const TreeShape& shape, std::size_t folder, std::size_t file) {
    std::string path = FolderName(shape, folder) + "/" + FileName(folder, file);
    std::ranges::replace(path, '/', '\\');
    return Wide(path);
}

std::wstring BenchGround::Tree(const TreeShape& shape) const {
    if (filled_.empty())
        MakeTree(Root(), shape);
    const std::wstring path = Root() + L'\\' + TreeName(shape);
    const TreeSum sum = SumBelow(path);
    if (sum != SumOf(shape))
        throw std::runtime_error(std::string("the tree \"") + shape.Name + "\" has " +
                                 std::to_string(sum.Files) + " files of " + std::to_string(sum.Bytes) +
                                 " bytes, which is not its shape");
    return path;
}

std::wstring BenchGround::CrowdedFolder() const {
    if (filled_.empty())
        MakeCrowdedFolder(Root());
    return Root() + L'\\' + Wide(kCrowdedName);
}

std::wstring BenchGround::NewFolder() {
    const std::wstring path =
        Root() + L"\\new-" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++folders_);
    if (!CreateDirectoryW(path.c_str(), nullptr))
        throw std::runtime_error("a folder could not be made");
    return path + L'\\';
}

std::wstring BenchGround::FilledFolder() {
    return e2e::Variable(L"FERRY_BENCH_FOLDER");
}

}  // namespace ferry::bench
