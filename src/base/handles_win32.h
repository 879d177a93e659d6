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

/// Handles that CloseHandle ends and whose creators answer null for "none". `Kind` only keeps
/// the types apart.
template <class Kind>
struct KernelObjectTraits {
    using Value = HANDLE;
    static Value Nothing() noexcept { return nullptr; }
    static void Release(Value handle) noexcept {
        const LastErrorKeeper keeper;
        CloseHandle(handle);
    }
};

using MappingHandle = UniqueResource<KernelObjectTraits<struct MappingKind>>;
using MutexHandle = UniqueResource<KernelObjectTraits<struct MutexKind>>;
using EventHandle = UniqueResource<KernelObjectTraits<struct EventKind>>;
using ProcessHandle = UniqueResource<KernelObjectTraits<struct ProcessKind>>;
using ThreadHandle = UniqueResource<KernelObjectTraits<struct ThreadKind>>;

struct FileTraits {
    using Value = HANDLE;
    static Value Nothing() noexcept { return INVALID_HANDLE_VALUE; }
    static void Release(Value handle) noexcept {
        const LastErrorKeeper keeper;
        CloseHandle(handle);
    }
};
using FileHandle = UniqueResource<FileTraits>;

struct FindTraits {
    using Value = HANDLE;
    static Value Nothing() noexcept { return INVALID_HANDLE_VALUE; }
    static void Release(Value handle) noexcept {
        const LastErrorKeeper keeper;
        FindClose(handle);
    }
};
using FindHandle = UniqueResource<FindTraits>;

struct MappedViewTraits {
    using Value = void*;
    static Value Nothing() noexcept { return nullptr; }
    static void Release(Value view) noexcept {
        const LastErrorKeeper keeper;
        UnmapViewOfFile(view);
    }
};
using MappedView = UniqueResource<MappedViewTraits>;

struct RegistryKeyTraits {
    using Value = HKEY;
    static Value Nothing() noexcept { return nullptr; }
    static void Release(Value key) noexcept {
        const LastErrorKeeper keeper;
        RegCloseKey(key);
    }
};
using RegistryKey = UniqueResource<RegistryKeyTraits>;

struct LibraryTraits {
    using Value = HMODULE;
    static Value Nothing() noexcept { return nullptr; }
    static void Release(Value module) noexcept {
        const LastErrorKeeper keeper;
        FreeLibrary(module);
    }
};
using LibraryHandle = UniqueResource<LibraryTraits>;

/// A text that the system allocated with LocalAlloc.
struct LocalTextTraits {
    using Value = wchar_t*;
    static Value Nothing() noexcept { return nullptr; }
    static void Release(Value text) noexcept {
        const LastErrorKeeper keeper;
        LocalFree(text);
    }
};
using LocalText = UniqueResource<LocalTextTraits>;

struct FileStreamTraits {
    using Value = std::FILE*;
    static Value Nothing() noexcept { return nullptr; }
    static void Release(Value stream) noexcept {
        const LastErrorKeeper keeper;
        std::fclose(stream);
    }
};
using FileStream = UniqueResource<FileStreamTraits>;

}  // namespace ferry::base
