#include "hostlink/host_link_win32.h"

#include <array>
#include <optional>
#include <string>

#include "hostlink/host_block.h"
#include "hostlink/host_variable.h"
#include "hostlink/last_error_win32.h"
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

void ReadBlock(const HostVariable& variable, HostData& data) {
    SharedMemoryView view(BlockName(variable), BlockGuardName(variable), variable.BlockSizeBytes);
    if (!view.IsOpen()) {
        ReportSystemError(view.Error());
        return;
    }
    const BlockLock lock(view);
    ParseHostBlock(view.Units(), variable.BlockSizeBytes,
                   {data.CurrentDir, data.Option, data.SelectedItems, data.TabFolders});
}

}  // namespace

PresenceMutex::PresenceMutex(std::wstring_view modulePath) {
    const std::wstring name = PresenceMutexName(modulePath);
    const base::MutexHandle earlier(OpenMutexW(MUTEX_ALL_ACCESS, FALSE, name.c_str()));
    if (!earlier) {
        mutex_.Reset(CreateMutexW(nullptr, FALSE, name.c_str()));
    }
}

HostData ReadHostData() {
    HostData data;
    if (const auto variable = ReadHostVariable()) {
        data.WindowMode = variable->WindowMode;
        data.ActivateHostOnExit = variable->ActivateHostOnExit;
        data.ShareMode = variable->ShareMode;
        if (variable->ShareMode) {
            ReadBlock(*variable, data);
        }
    }
    return data;
}

}  // namespace ferry::hostlink
