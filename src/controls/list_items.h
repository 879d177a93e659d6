// The items behind a virtual list.
#pragma once

#include <windows.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string_view>

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

/// The items of one list: paths, of which the last components are shown. A path costs its text and
/// one view; what the list keeps besides is small, since there may be a million.
/// Whoever changes the items or works on a range holds Lock(); the user interface, the only one to
/// append and clear, reads without it.
class ListItems {
public:
    static constexpr int kNoIcon = -1;

    /// Takes over the paths in `list` and appends an item for each.
    void Append(base::TextList list);

    void Clear();

    std::size_t Size() const noexcept { return extras_.size(); }

    /// The path of an item, followed by a NUL in memory like its name.
    std::wstring_view Path(std::size_t index) const noexcept { return paths_[index]; }

    /// What the list shows: the path's last component.
    std::wstring_view Name(std::size_t index) const noexcept {
        return paths_[index].substr(extras_[index].NameOffset);
    }

    /// The icon of an item, or kNoIcon; written by the icon worker and read when drawing.
    int Icon(std::size_t index) const noexcept { return extras_[index].Icon; }
    void SetIcon(std::size_t index, int icon) noexcept { extras_[index].Icon = icon; }

    /// The first of the longest names; empty without items.
    std::wstring_view LongestName() const noexcept { return longestName_; }

    CriticalSection& Lock() noexcept { return lock_; }

private:
    /// What is known about an item besides its path.
    struct Extra {
        explicit Extra(std::uint32_t nameOffset) noexcept : NameOffset(nameOffset) {}

        std::uint32_t NameOffset;
        std::atomic<int> Icon = kNoIcon;
    };

    CriticalSection lock_;
    base::TextList paths_;
    std::deque<Extra> extras_;
    std::wstring_view longestName_;
};

}  // namespace ferry::controls
