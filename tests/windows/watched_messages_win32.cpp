#include "windows/watched_messages_win32.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>

namespace ferry::test {

WatchedMessages::WatchedMessages(HWND window) : window_(window) {
    SetWindowSubclass(window, &Note, reinterpret_cast<UINT_PTR>(this), reinterpret_cast<DWORD_PTR>(this));
}

WatchedMessages::~WatchedMessages() {
    RemoveWindowSubclass(window_, &Note, reinterpret_cast<UINT_PTR>(this));
}

std::vector<MSG> WatchedMessages::Of(UINT message) const {
    std::vector<MSG> found;
    std::ranges::copy_if(seen_, std::back_inserter(found),
                         [message](const MSG& seen) { return seen.message == message; });
    return found;
}

UINT WatchedMessages::Last(std::initializer_list<UINT> kinds) const {
    const auto found = std::find_if(seen_.rbegin(), seen_.rend(), [&](const MSG& seen) {
        return std::ranges::find(kinds, seen.message) != kinds.end();
    });
    return found == seen_.rend() ? WM_NULL : found->message;
}

LRESULT CALLBACK WatchedMessages::Note(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                       DWORD_PTR object) {
    auto& watched = *reinterpret_cast<WatchedMessages*>(object);
    watched.seen_.push_back({window, message, wParam, lParam, 0, {}});
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, &Note, id);
        watched.window_ = nullptr;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

}  // namespace ferry::test
