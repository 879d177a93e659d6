#include "windows/watched_import_win32.h"

#include <cstring>
#include <utility>

namespace ferry::test {
namespace {

/// What stands `offset` bytes behind the start of this program in memory.
template <class Thing>
Thing* At(DWORD offset) noexcept {
    return reinterpret_cast<Thing*>(reinterpret_cast<BYTE*>(GetModuleHandleW(nullptr)) + offset);
}

const IMAGE_IMPORT_DESCRIPTOR* FirstLibrary() noexcept {
    const auto* const headers =
        At<const IMAGE_NT_HEADERS>(static_cast<DWORD>(At<const IMAGE_DOS_HEADER>(0)->e_lfanew));
    return At<const IMAGE_IMPORT_DESCRIPTOR>(
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
}

}  // namespace

void** FindImport(const char* name) noexcept {
    for (const auto* library = FirstLibrary(); library->Name != 0; ++library) {
        // Two tables side by side: what was asked for, and the addresses that the loader found.
        const auto* asked = At<const IMAGE_THUNK_DATA>(library->OriginalFirstThunk);
        auto* found = At<IMAGE_THUNK_DATA>(library->FirstThunk);
        for (; asked->u1.AddressOfData != 0; ++asked, ++found) {
            if (IMAGE_SNAP_BY_ORDINAL(asked->u1.Ordinal)) {
                continue;
            }
            const auto* const import =
                At<const IMAGE_IMPORT_BY_NAME>(static_cast<DWORD>(asked->u1.AddressOfData));
            if (std::strcmp(reinterpret_cast<const char*>(import->Name), name) == 0) {
                return reinterpret_cast<void**>(&found->u1.Function);
            }
        }
    }
    return nullptr;
}

void* ReplaceImport(void** place, void* function) noexcept {
    // Some linkers put the table where it can only be read.
    DWORD before = 0;
    VirtualProtect(place, sizeof(*place), PAGE_READWRITE, &before);
    void* const replaced = std::exchange(*place, function);
    VirtualProtect(place, sizeof(*place), before, &before);
    return replaced;
}

}  // namespace ferry::test
