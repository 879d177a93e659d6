// The folders of the host and of its user, which scripts name between percent signs.
#pragma once

#include <optional>
#include <string>

#include "paths/placeholders.h"
#include "script/ports.h"

namespace ferry::script {

/// Works the folders out when they are first asked for, and keeps them.
class HostFolders {
public:
    /// `world` must outlive this object.
    explicit HostFolders(const World& world) : world_(world) {}

    /// The host's application folder, with its separator: this program lies two levels below it.
    const std::wstring& Application();

    /// The user's folder, with its separator. It is made where the host's settings do not name it.
    const std::wstring& User();

    /// The folder that a word stands for.
    std::wstring Of(paths::FolderVariable which);

private:
    std::wstring FindUser();
    std::wstring UserInLocalAppData();
    std::wstring UserFromSettings();
    std::wstring UserInApplication();

    const World& world_;
    std::optional<std::wstring> application_;
    std::optional<std::wstring> user_;
};

}  // namespace ferry::script
