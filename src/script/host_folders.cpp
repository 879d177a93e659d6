#include "script/host_folders.h"

namespace ferry::script {

namespace {

/// Where the host's setting "UserDirMode" puts the user's folder; any other number: below the host.
constexpr std::uint32_t kModeLocalAppData = 0;
constexpr std::uint32_t kModeSettings = 2;

}  // namespace

const std::wstring& HostFolders::Application() {
    if (!application_) {
        application_ = world_.Surroundings.FullPath(world_.Homes.ProgramFolder() + L"..\\..\\");
    }
    return *application_;
}

const std::wstring& HostFolders::User() {
    if (!user_) {
        user_ = FindUser();
    }
    return *user_;
}

std::wstring HostFolders::Of(paths::FolderVariable which) {
    using paths::FolderVariable;
    switch (which) {
        case FolderVariable::Script:
            return User() + L"Script\\";
        case FolderVariable::User:
            return User();
        case FolderVariable::Menu:
            return User() + L"Menu\\";
        case FolderVariable::Application:
            return Application();
        case FolderVariable::Command:
            return Application() + L"command\\Default\\";
        case FolderVariable::CommandPlugin:
            return Application() + L"command\\CmdPlugin\\";
        case FolderVariable::Viewer:
            return Application() + L"command\\Viewer\\";
        default:
            return Application() + L"command\\User\\";
    }
}

std::wstring HostFolders::FindUser() {
    const std::uint32_t mode = world_.Settings.ReadHostNumber(L"UserDirMode");
    if (mode == kModeLocalAppData) {
        return UserInLocalAppData();
    }
    return mode == kModeSettings ? UserFromSettings() : UserInApplication();
}

std::wstring HostFolders::UserInLocalAppData() {
    const std::optional<std::wstring> local = world_.Homes.LocalAppData();
    if (!local) {
        return Application();
    }
    const std::wstring folder = *local + L"\\Kiv";
    if (world_.Files.Attributes(folder) == files::kInvalidAttributes) {
        // The folder is used whether it could be made or not; what is done in it fails visibly.
        world_.Changes.MakeFolder(folder);
    }
    return folder + L'\\';
}

std::wstring HostFolders::UserFromSettings() {
    std::wstring folder = world_.Settings.ReadHostText(L"UserDir", L"");
    // A drive root loses its separator, too: one follows anyway.
    if (folder.ends_with(L'\\') || folder.ends_with(L'/')) {
        folder.pop_back();
    }
    return folder + L'\\';
}

std::wstring HostFolders::UserInApplication() {
    std::wstring folder = Application() + L"Ubar";
    const std::optional<std::wstring> login = world_.Homes.LoginName();
    if (login) {
        folder.append(1, L'\\').append(*login);
    }
    world_.Changes.MakeFolder(folder);
    return folder + L'\\';
}

}  // namespace ferry::script
