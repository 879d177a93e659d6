#include "script/chance_win32.h"

#include <windows.h>

#include <cstdint>
#include <cstdlib>

namespace ferry::script {
namespace {

constexpr std::uint64_t kValuesOfOneDraw = std::uint64_t{RAND_MAX} + 1;

/// The library's plain generator is chance enough to choose a picture by.
std::uint64_t Draw() noexcept {
    return static_cast<std::uint64_t>(std::rand());  // NOLINT(cert-msc50-cpp)
}

}  // namespace

SystemChance::SystemChance() {
    std::srand(GetTickCount());
}

std::size_t SystemChance::Below(std::size_t count) {
    // One draw of this library has 32,768 values; a folder may have more files.
    std::uint64_t values = kValuesOfOneDraw;
    std::uint64_t drawn = Draw();
    while (values < count) {
        drawn = drawn * kValuesOfOneDraw + Draw();
        values *= kValuesOfOneDraw;
    }
    return drawn % count;
}

}  // namespace ferry::script
