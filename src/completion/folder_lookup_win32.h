// The lookup over the folders of this machine and its network.
#pragma once

#include "completion/folder_lookup.h"

namespace ferry::completion {

/// Asks Windows, on the calling thread.
class WindowsFolderLookup : public FolderLookup {
public:
    void Search(std::wstring_view pattern, const std::function<bool(const Match&)>& visit) override;
    std::uint32_t Attributes(std::wstring_view path) override;
};

}  // namespace ferry::completion
