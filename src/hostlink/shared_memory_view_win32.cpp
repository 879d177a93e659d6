#include "hostlink/shared_memory_view_win32.h"

namespace ferry::hostlink {

SharedMemoryView::SharedMemoryView(const std::wstring& name, const std::wstring& guardName,
                                   std::uint32_t sizeBytes) {
    // Creating instead of opening: the host's mapping of that name is found all the same.
    mapping_.Reset(
        CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeBytes, name.c_str()));
    if (mapping_) {
        view_.Reset(MapViewOfFile(mapping_.Get(), FILE_MAP_ALL_ACCESS, 0, 0, sizeBytes));
    }
    if (view_) {
        guard_.Reset(CreateMutexW(nullptr, FALSE, guardName.c_str()));
    }
    if (!guard_) {
        error_ = GetLastError();
    }
}

void SharedMemoryView::Lock() noexcept {
    // An abandoned mutex is locked too: the host that held it is gone, its block is not.
    WaitForSingleObject(guard_.Get(), INFINITE);
}

void SharedMemoryView::Unlock() noexcept {
    ReleaseMutex(guard_.Get());
}

std::span<wchar_t> SharedMemoryView::Units() const noexcept {
    MEMORY_BASIC_INFORMATION pages{};
    VirtualQuery(view_.Get(), &pages, sizeof pages);
    // Pages that the host only reserved cannot be read.
    const std::size_t bytes = pages.State == MEM_COMMIT ? pages.RegionSize : 0;
    return {static_cast<wchar_t*>(view_.Get()), bytes / sizeof(wchar_t)};
}

}  // namespace ferry::hostlink
