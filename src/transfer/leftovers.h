// What a run could not do.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "transfer/ports.h"

namespace ferry::transfer {

/// Why an item stayed behind.
enum class LeftReason {
    NoShell,        ///< The shell's file operation is not there, or did nothing.
    NoSourceItem,   ///< The shell knows no item of that path.
    NoFolderItem,   ///< The shell knows no item of the folder that it should go into.
    NotQueued,      ///< The shell's file operation did not take it.
    FolderNotMade,  ///< The folder could not be made at the destination.
    NotListed,      ///< What the folder holds could not be listed, or not all of it.
    LeadsBack,      ///< The folder is a link to one that holds it.
    NotSeen,        ///< What had to be known about it could not be looked at.
};

/// Why the shell did not do it; for outcomes of which it did not tell the person itself.
LeftReason ReasonOf(ShellResult result) noexcept;

/// An item that stayed behind.
struct Leftover {
    std::wstring Path;
    LeftReason Why = LeftReason::NoShell;
    std::uint32_t Code = 0;  ///< The error of Windows, or the HRESULT; 0 where there is none.
};

/// The items that a run left behind without the shell having told the person.
class Leftovers {
public:
    /// Counts an item of the run, whatever becomes of it.
    void CountItem() noexcept { ++items_; }

    void Add(std::wstring_view path, LeftReason why, std::uint32_t code) {
        left_.push_back({std::wstring(path), why, code});
    }

    /// How many items the run had to do with.
    std::size_t Items() const noexcept { return items_; }

    const std::vector<Leftover>& Left() const noexcept { return left_; }

private:
    std::size_t items_ = 0;
    std::vector<Leftover> left_;
};

}  // namespace ferry::transfer
