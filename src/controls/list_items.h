// The items behind a virtual list.
#pragma once

#include <atomic>
#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "base/critical_section_win32.h"
#include "base/text_list.h"
#include "paths/path_grammar.h"

namespace ferry::controls {

/// The items of one list: paths, of which the last components are shown. A path costs its text and
/// one view; what the list keeps besides is small, since there may be a million.
/// Lock() guards them, and is held for moments only: appending and clearing must not wait for whoever asks
/// the shell. The user interface, the only one to append and clear, reads without it.
class ListItems {
public:
    static constexpr int kNoIcon = -1;

    /// Takes over the paths in `list` and appends an item for each.
    void Append(base::TextList list);

    void Clear();

    std::size_t Size() const noexcept { return icons_.size(); }

    /// The path of an item, followed by a NUL in memory like its name.
    std::wstring_view Path(std::size_t index) const noexcept { return paths_[index]; }

    /// What the list shows. A separator may follow it in memory instead of the NUL.
    std::wstring_view Name(std::size_t index) const noexcept { return paths::ShownName(paths_[index]); }

    /// The icon of an item, or kNoIcon; written by the icon worker and read when drawing.
    int Icon(std::size_t index) const noexcept { return icons_[index]; }

    /// How often the items were cleared. An icon thread remembers it, so that what it was asked about an item
    /// is not taken for that of a later one.
    unsigned Round() const noexcept { return round_; }

    /// For icon threads: a copy of the path of an item that has no icon yet. Nothing when it has one, or is
    /// not there any more.
    std::optional<std::wstring> PathWithoutIcon(std::size_t index, unsigned round);

    /// For icon threads: gives an item its icon, unless it is not there any more.
    void SetIcon(std::size_t index, unsigned round, int icon);

    /// The first of the longest names; empty without items.
    std::wstring_view LongestName() const noexcept { return longestName_; }

    base::CriticalSection& Lock() noexcept { return lock_; }

private:
    void KeepIfLonger(std::wstring_view path) noexcept;
    bool Has(std::size_t index, unsigned round) const noexcept;

    base::CriticalSection lock_;
    unsigned round_ = 0;
    base::TextList paths_;
    std::deque<std::atomic<int>> icons_;
    std::wstring_view longestName_;
};

}  // namespace ferry::controls
