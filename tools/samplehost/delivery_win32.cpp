#include "delivery_win32.h"

#include <shellapi.h>
#include <shlobj.h>

#include <cstring>

#include "base/handles_win32.h"
#include "host_block_writer.h"
#include "process_windows_win32.h"

namespace ferry::samplehost {
namespace {

/// The source list in Ferry's dialog.
constexpr int kSourceListId = 1200;

bool RunsUnderWine() {
    const HMODULE loader = GetModuleHandleW(L"ntdll.dll");
    return loader != nullptr && GetProcAddress(loader, "wine_get_version") != nullptr;
}

/// Puts the block into the target's own memory. Wine's WM_DROPFILES takes the handle across
/// unchanged, where it means nothing; an address in the target is accepted in its stead, because a
/// fixed global handle is its own address. The block is not freed: nobody there owns it.
HDROP PlaceInTarget(HWND target, std::span<const std::byte> block) {
    DWORD processId = 0;
    GetWindowThreadProcessId(target, &processId);
    const base::ProcessHandle process(OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_WRITE, FALSE, processId));
    if (!process)
        return nullptr;
    void* const place =
        VirtualAllocEx(process.Get(), nullptr, block.size(), MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    if (place == nullptr)
        return nullptr;
    if (!WriteProcessMemory(process.Get(), place, block.data(), block.size(), nullptr))
        return nullptr;
    return static_cast<HDROP>(place);
}

/// A global handle: the window manager of Windows carries its contents into the target's process,
/// as it does for every drop from another process.
HDROP PlaceInGlobalMemory(std::span<const std::byte> block) {
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, block.size());
    if (memory == nullptr)
        return nullptr;
    void* const place = GlobalLock(memory);
    if (place == nullptr) {
        GlobalFree(memory);
        return nullptr;
    }
    std::memcpy(place, block.data(), block.size());
    GlobalUnlock(memory);
    return static_cast<HDROP>(memory);
}

}  // namespace

HWND FindFerryDialog(DWORD processId) {
    return FindVisibleWindow(processId,
                             [](HWND window) { return GetDlgItem(window, kSourceListId) != nullptr; });
}

std::optional<LRESULT> AnswerToData(HWND target, HWND sender, std::uint64_t tag,
                                    std::span<const std::byte> bytes, unsigned timeoutMs) {
    COPYDATASTRUCT data = {};
    data.dwData = static_cast<ULONG_PTR>(tag);
    data.cbData = static_cast<DWORD>(bytes.size());
    data.lpData = const_cast<std::byte*>(bytes.data());  // the receiver gets a copy
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutW(target, WM_COPYDATA, reinterpret_cast<WPARAM>(sender),
                            reinterpret_cast<LPARAM>(&data), SMTO_NORMAL, timeoutMs, &answer) == 0)
        return std::nullopt;
    return static_cast<LRESULT>(answer);
}

bool SendData(HWND target, HWND sender, std::uint64_t tag, std::span<const std::byte> bytes,
              unsigned timeoutMs) {
    return AnswerToData(target, sender, tag, bytes, timeoutMs).has_value();
}

std::vector<std::byte> DropBlock(std::span<const std::wstring> paths) {
    DROPFILES head = {};
    head.pFiles = sizeof(head);
    head.fWide = TRUE;
    std::vector<std::byte> block(sizeof(head));
    std::memcpy(block.data(), &head, sizeof(head));
    for (const std::wstring& path : paths) {
        const auto name = TextPayload(path);
        block.insert(block.end(), name.begin(), name.end());
    }
    block.insert(block.end(), sizeof(wchar_t), std::byte{0});
    return block;
}

bool DropPaths(HWND target, std::span<const std::wstring> paths) {
    const auto block = DropBlock(paths);
    const HDROP drop = RunsUnderWine() ? PlaceInTarget(target, block) : PlaceInGlobalMemory(block);
    return drop != nullptr && PostMessageW(target, WM_DROPFILES, reinterpret_cast<WPARAM>(drop), 0);
}

}  // namespace ferry::samplehost
