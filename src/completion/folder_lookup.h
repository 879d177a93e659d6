// What completion asks of the file system.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace ferry::completion {

/// One match of a search; the name is valid during the call that gets it.
struct Match {
    std::wstring_view Name;
    bool IsFolder = false;
};

/// The file system. Paths are given in their plain form, at any length.
class FolderLookup {
public:
    virtual ~FolderLookup() = default;

    /// Calls `visit` for every match of `pattern`, "." and ".." included, until it answers false.
    /// A search that fails, also half way, just ends.
    virtual void Search(std::wstring_view pattern, const std::function<bool(const Match&)>& visit) = 0;

    /// The attribute bits of the item at `path`; all bits set when it cannot be asked.
    virtual std::uint32_t Attributes(std::wstring_view path) = 0;
};

}  // namespace ferry::completion
