#include "desktop/clipboard.h"

#include <algorithm>
#include <cstring>

#include "base/handles_win32.h"

namespace ferry::desktop {
namespace {

using GlobalMemory = base::UniqueResource<base::ReleasedBy<HGLOBAL, &GlobalFree>>;
using Window = base::UniqueResource<base::ReleasedBy<HWND, &DestroyWindow>>;

/// The clipboard, opened; closed again when this goes.
class OpenedClipboard {
public:
    explicit OpenedClipboard(HWND owner) noexcept : isOpen_(Open(owner)) {}
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    ~OpenedClipboard() {
        if (isOpen_)
            CloseClipboard();
    }

    explicit operator bool() const noexcept { return isOpen_; }

private:
    /// Programs that watch the clipboard open it for a moment whenever it changes.
    static bool Open(HWND owner) noexcept {
        constexpr DWORD kStepMs = 10;
        for (DWORD waitedMs = 0; waitedMs < kClipboardPatienceMs; waitedMs += kStepMs) {
            if (OpenClipboard(owner))
                return true;
            Sleep(kStepMs);
        }
        return OpenClipboard(owner) != FALSE;
    }

    bool isOpen_;
};

/// `text` with its terminator in memory of the kind that the clipboard takes; nothing when there is none
/// left.
GlobalMemory MemoryOf(const std::wstring& text) {
    const std::size_t byteCount = (text.size() + 1) * sizeof(wchar_t);
    GlobalMemory memory(GlobalAlloc(GMEM_MOVEABLE, byteCount));
    void* const place = memory ? GlobalLock(memory.Get()) : nullptr;
    if (place == nullptr)
        return {};
    std::memcpy(place, text.c_str(), byteCount);
    GlobalUnlock(memory.Get());
    return memory;
}

/// The text in `memory`, which may be null; it ends with the memory where nobody wrote a terminator.
std::wstring TextIn(HGLOBAL memory) {
    const auto* const begin = memory == nullptr ? nullptr : static_cast<const wchar_t*>(GlobalLock(memory));
    if (begin == nullptr)
        return {};
    const wchar_t* const end = begin + GlobalSize(memory) / sizeof(wchar_t);
    std::wstring text(begin, std::find(begin, end, L'\0'));
    GlobalUnlock(memory);
    return text;
}

}  // namespace

std::wstring ClipboardText() {
    const OpenedClipboard clipboard(nullptr);
    return clipboard ? TextIn(GetClipboardData(CF_UNICODETEXT)) : std::wstring();
}

bool SetClipboardText(const std::wstring& text) {
    // The clipboard takes nothing from an owner that is no window.
    const Window owner(CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                       GetModuleHandleW(nullptr), nullptr));
    GlobalMemory memory = MemoryOf(text);
    const OpenedClipboard clipboard(owner.Get());
    if (!memory || !clipboard || !EmptyClipboard() ||
        SetClipboardData(CF_UNICODETEXT, memory.Get()) == nullptr)
        return false;
    // What the clipboard has taken is its own.
    static_cast<void>(memory.Release());
    return true;
}

}  // namespace ferry::desktop
