#include "windows/resource_counts_win32.h"

#include <windows.h>
// After windows.h, which it builds on.
#include <tlhelp32.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "base/handles_win32.h"

namespace ferry::test {
namespace {

// More than the tables of objects have gaps: so many new ones fill them and go on at the end.
constexpr std::size_t kProbes = 3000;

/// Makes kProbes objects and takes them away again. The last place of the table that was needed, less the
/// objects of the probe, is the number of the others.
template <class Make, class Unmake>
std::size_t CountByPlaces(Make make, Unmake unmake, unsigned placesPerObject) {
    std::vector<decltype(make())> objects(kProbes);
    std::size_t last = 0;
    for (auto& object : objects) {
        object = make();
        last = std::max(last, (reinterpret_cast<std::uintptr_t>(object) & 0xFFFF) / placesPerObject);
    }
    for (const auto& object : objects) {
        unmake(object);
    }
    return last - kProbes;
}

std::size_t CountUserObjects() {
    const DWORD count = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS);
    return count != 0 ? count : CountByPlaces([] { return CreateMenu(); }, DestroyMenu, 2);
}

std::size_t CountGdiObjects() {
    const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    return count != 0 ? count : CountByPlaces([] { return CreateSolidBrush(0x123456); }, DeleteObject, 1);
}

}  // namespace

std::size_t CountHandles() {
    DWORD count = 0;
    if (GetProcessHandleCount(GetCurrentProcess(), &count) && count != 0) {
        return count;
    }
    return CountByPlaces([] { return CreateEventW(nullptr, FALSE, FALSE, nullptr); }, CloseHandle, 4);
}

std::size_t CountThreads() {
    const base::FileHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    std::size_t count = 0;
    for (BOOL found = Thread32First(snapshot.Get(), &entry); found;
         found = Thread32Next(snapshot.Get(), &entry)) {
        count += entry.th32OwnerProcessID == GetCurrentProcessId() ? 1 : 0;
    }
    return count;
}

ResourceCounts CountResources() {
    return {CountHandles(), CountUserObjects(), CountGdiObjects(), CountThreads()};
}

}  // namespace ferry::test
