// Memory of another process: the answers of its windows and its system calls go there.
#pragma once

#include <windows.h>

#include <cstddef>

#include "base/handles_win32.h"

namespace ferry::e2e {

/// Some bytes in another process, for as long as this lives.
class RemoteMemory {
public:
    /// `protection` is a PAGE_ number.
    RemoteMemory(DWORD processId, std::size_t size, DWORD protection = PAGE_READWRITE)
        : process_(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processId)),
          place_(VirtualAllocEx(process_.Get(), nullptr, size, MEM_COMMIT | MEM_RESERVE, protection)) {}

    /// In the process of `window`.
    RemoteMemory(HWND window, std::size_t size) : RemoteMemory(ProcessOf(window), size) {}

    ~RemoteMemory() { VirtualFreeEx(process_.Get(), place_, 0, MEM_RELEASE); }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    /// Null when there is none.
    std::byte* Place() const noexcept { return static_cast<std::byte*>(place_); }
    bool Write(const void* data, std::size_t size, std::size_t offset = 0) const {
        return WriteProcessMemory(process_.Get(), Place() + offset, data, size, nullptr) != FALSE;
    }
    bool Read(std::size_t offset, void* data, std::size_t size) const {
        return ReadProcessMemory(process_.Get(), Place() + offset, data, size, nullptr) != FALSE;
    }

private:
    static DWORD ProcessOf(HWND window) {
        DWORD processId = 0;
        GetWindowThreadProcessId(window, &processId);
        return processId;
    }

    base::ProcessHandle process_;
    void* place_;
};

}  // namespace ferry::e2e
