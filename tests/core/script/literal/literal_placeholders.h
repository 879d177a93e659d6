// What stands between question marks and percent signs, read the slow way.
#pragma once

#include <optional>
#include <string>

#include "script/ports.h"

namespace ferry::script::literal {

/// The folders of the host and its user; the user's is looked for once.
class HostFolders {
public:
    explicit HostFolders(const World& world) : world_(world) {}

    /// `text` with folders for the environment's and the host's variables.
    std::wstring Expanded(std::wstring text);

private:
    std::wstring ApplicationFolder();
    std::wstring UserFolder();
    std::wstring FindUserFolder();
    std::wstring OwnUserFolder();
    std::wstring SharedUserFolder();

    World world_;
    std::optional<std::wstring> userFolder_;
};

/// `text` with the present date and time.
std::wstring WithDates(std::wstring text, calendar::Clock& clock);

/// `text` with the current folder, which may be empty.
std::wstring WithFolders(std::wstring text, const std::wstring& current);

/// `text` with the parts of the path of `item`.
std::wstring WithItem(std::wstring text, const std::wstring& item);

}  // namespace ferry::script::literal
