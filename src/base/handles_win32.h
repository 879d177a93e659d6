// Owners of the handles that the adapters share.
#pragma once

#include <windows.h>

#include <cstdio>

#include "base/unique_resource.h"

namespace ferry::base {

/// Puts the thread's last error back when it goes out of scope.
class LastErrorKeeper {
public:
    LastErrorKeeper() noexcept : error_(GetLastError()) {}
    ~LastErrorKeeper() { SetLastError(error_); }

    LastErrorKeeper(const LastErrorKeeper&) = delete;
    LastErrorKeeper& operator=(const LastErrorKeeper&) = delete;

private:
    DWORD error_;
};

/// What `release` ends and whose creators answer null for "none". `Kind` only keeps types apart
/// that are released alike.
template <class Type, auto release, class Kind = void>
struct ReleasedBy {
    using Value = Type;
    static Value Nothing() noexcept { return nullptr; }
    static void Release(Value value) noexcept {
        const LastErrorKeeper keeper;
        release(value);
    }
};

/// The same for creators that answer INVALID_HANDLE_VALUE.
template <auto release>
struct FileReleasedBy : ReleasedBy<HANDLE, release> {
    static HANDLE Nothing() noexcept { return INVALID_HANDLE_VALUE; }
};

/// Handles that CloseHandle ends, a type of its own for each `Kind`.
template <class Kind>
using KernelObject = UniqueResource<ReleasedBy<HANDLE, &CloseHandle, Kind>>;

using MappingHandle = KernelObject<struct MappingKind>;
using MutexHandle = KernelObject<struct MutexKind>;
using EventHandle = KernelObject<struct EventKind>;
using ProcessHandle = KernelObject<struct ProcessKind>;
using ThreadHandle = KernelObject<struct ThreadKind>;

using FileHandle = UniqueResource<FileReleasedBy<&CloseHandle>>;
using FindHandle = UniqueResource<FileReleasedBy<&FindClose>>;

using MappedView = UniqueResource<ReleasedBy<void*, &UnmapViewOfFile>>;
using RegistryKey = UniqueResource<ReleasedBy<HKEY, &RegCloseKey>>;
using LibraryHandle = UniqueResource<ReleasedBy<HMODULE, &FreeLibrary>>;

/// A text that the system allocated with LocalAlloc.
using LocalText = UniqueResource<ReleasedBy<wchar_t*, &LocalFree>>;

using FileStream = UniqueResource<ReleasedBy<std::FILE*, &std::fclose>>;

}  // namespace ferry::base
