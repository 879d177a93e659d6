// The items behind a virtual list.
#pragma once

#include <windows.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string_view>
#include <vector>

#include "base/text_list.h"

namespace ferry::controls {

/// A critical section that spins a while before it waits; usable with std::lock_guard.
class CriticalSection {
public:
    CriticalSection() noexcept { InitializeCriticalSectionAndSpinCount(&section_, 4000); }
    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;
    ~CriticalSection() { DeleteCriticalSection(&section_); }

    void lock() noexcept { EnterCriticalSection(&section_); }
    void unlock() noexcept { LeaveCriticalSection(&section_); }

private:
    CRITICAL_SECTION section_;
};

/// One item. Its texts lie in the store and are followed by a NUL.
struct ListItem {
    ListItem(std::wstring_view path, std::uint32_t nameOffset) noexcept
        : Path(path), NameOffset(nameOffset) {}

    /// What the list shows: the path's last component.
    const wchar_t* DisplayName() const noexcept { return Path.data() + NameOffset; }

    std::wstring_view Path;
    std::uint32_t NameOffset;
    std::atomic<int> IconIndex = kNoIcon;  ///< Written by the icon worker, read when drawing.

    static constexpr int kNoIcon = -1;
};

/// The items of one list. Whoever changes them or works on a range holds Lock(); the user
/// interface, the only one to change them, reads without it.
class ListItems {
public:
    /// Takes over the paths in `list` and appends an item for each.
    void Append(base::TextList list);

    void Clear();

    std::size_t Size() const noexcept { return items_.size(); }
    ListItem& operator[](std::size_t index) noexcept { return items_[index]; }
    const ListItem& operator[](std::size_t index) const noexcept { return items_[index]; }

    CriticalSection& Lock() noexcept { return lock_; }

private:
    CriticalSection lock_;
    std::vector<base::TextList> texts_;
    std::deque<ListItem> items_;
};

}  // namespace ferry::controls
