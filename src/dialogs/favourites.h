// The user's favourites, as the confirmation dialog needs them.
#pragma once

#include <string>

namespace ferry::dialogs {

/// A folder of scripts that the host keeps for its user.
class Favourites {
public:
    virtual ~Favourites() = default;

    /// The full path of the folder, which need not be there; without a separator at its end.
    virtual std::wstring Folder() = 0;

    /// Runs the script at `path` until it ends or the person stops it, and tells what goes wrong. Messages of
    /// the thread may be handled meanwhile.
    virtual void Run(const std::wstring& path) = 0;
};

}  // namespace ferry::dialogs
