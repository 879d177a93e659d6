// A link from one folder to another, as a person may have put it anywhere.
#pragma once

#include <string>

namespace ferry::test {

/// A link that goes with this object. Below Wine it is one of the system that Wine runs on.
class FolderLink {
public:
    /// Makes the link at `path`, which leads to the folder `target`.
    FolderLink(const std::wstring& path, const std::wstring& target);
    ~FolderLink();
    FolderLink(const FolderLink&) = delete;
    FolderLink& operator=(const FolderLink&) = delete;

    /// False where this system or this account makes no links.
    bool IsMade() const;

private:
    std::wstring path_;
};

}  // namespace ferry::test
