#include "shared_block_win32.h"

#include <cstring>

namespace ferry::samplehost {

bool SharedBlock::Create(const VariableFields& names, std::span<const std::byte> bytes,
                         std::uint32_t mappingBytes, bool holdsGuard) {
    guard_.Reset(CreateMutexW(nullptr, holdsGuard, GuardName(names).c_str()));
    if (!guard_)
        return false;
    holdsGuard_ = holdsGuard;
    mapping_.Reset(CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, mappingBytes,
                                      MappingName(names).c_str()));
    if (!mapping_)
        return false;
    const base::MappedView view(MapViewOfFile(mapping_.Get(), FILE_MAP_WRITE, 0, 0, mappingBytes));
    if (!view)
        return false;
    std::memcpy(view.Get(), bytes.data(), bytes.size());
    return true;
}

void SharedBlock::ReleaseGuard() noexcept {
    if (holdsGuard_)
        ReleaseMutex(guard_.Get());
    holdsGuard_ = false;
}

}  // namespace ferry::samplehost
