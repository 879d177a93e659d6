// The messages that reach a window, in the order in which they come.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <vector>

namespace ferry::test {

/// Listens to `window` in front of everyone who listens now, and behind everyone who comes later. Both on the
/// window's thread, and the window goes before this object or after it.
class WatchedMessages {
public:
    explicit WatchedMessages(HWND window);
    ~WatchedMessages();
    WatchedMessages(const WatchedMessages&) = delete;
    WatchedMessages& operator=(const WatchedMessages&) = delete;

    /// The messages of one kind so far.
    std::vector<MSG> Of(UINT message) const;

    /// The last message of any of these kinds; WM_NULL when there was none.
    UINT Last(std::initializer_list<UINT> kinds) const;

    /// How many there were of one kind.
    std::size_t Count(UINT message) const { return Of(message).size(); }

    void Forget() { seen_.clear(); }

private:
    static LRESULT CALLBACK Note(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                 DWORD_PTR object);

    HWND window_;
    std::vector<MSG> seen_;
};

}  // namespace ferry::test
