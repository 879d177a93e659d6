#include "hostlink/host_link_win32.h"

#include <array>
#include <optional>
#include <string>

#include "hostlink/host_block.h"
#include "hostlink/host_variable.h"
#include "hostlink/shared_memory_view_win32.h"

namespace ferry::hostlink {
namespace {

std::optional<HostVariable> ReadHostVariable() {
    std::array<wchar_t, kHostVariableCapacity> buffer{};
    const DWORD length =
        GetEnvironmentVariableW(kHostVariableName, buffer.data(), static_cast<DWORD>(buffer.size()));
    // A longer value answers the size that it needs and leaves nothing usable in the buffer.
    if (length == 0 || length >= buffer.size()) {
        return std::nullopt;
    }
    return ParseHostVariable({buffer.data(), length});
}

/// Holds a block's guard for a scope.
class BlockLock {
public:
    explicit BlockLock(SharedMemoryView& view) noexcept : view_(view) { view_.Lock(); }
    ~BlockLock() { view_.Unlock(); }

    BlockLock(const BlockLock&) = delete;
    BlockLock& operator=(const BlockLock&) = delete;

private:
    SharedMemoryView& view_;
};

/// Gives the system's error number; 0 when the block was read.
std::uint32_t ReadBlock(const HostVariable& variable, HostData& data) {
    SharedMemoryView view(BlockName(variable), BlockGuardName(variable), variable.BlockSizeBytes);
    if (!view.IsOpen()) {
        return view.Error();
    }
    const BlockLock lock(view);
    // The size in bytes bounds the index of a unit, so a host that announces its units is read as well.
    ParseHostBlock(view.Units(), variable.BlockSizeBytes,
                   {data.CurrentDir, data.Option, data.SelectedItems, data.TabFolders});
    return 0;
}

}  // namespace

PresenceMutex::PresenceMutex(std::wstring_view modulePath) {
    const std::wstring name = PresenceMutexName(modulePath);
    const base::MutexHandle earlier(OpenMutexW(MUTEX_ALL_ACCESS, FALSE, name.c_str()));
    if (!earlier) {
        mutex_.Reset(CreateMutexW(nullptr, FALSE, name.c_str()));
    }
}

HostReading ReadHostData() {
    HostReading reading;
    if (const auto variable = ReadHostVariable()) {
        reading.Data.WindowMode = variable->WindowMode;
        reading.Data.ActivateHostOnExit = variable->ActivateHostOnExit;
        reading.Data.ShareMode = variable->ShareMode;
        if (variable->ShareMode)
            reading.BlockError = ReadBlock(*variable, reading.Data);
    }
    return reading;
}

}  // namespace ferry::hostlink
