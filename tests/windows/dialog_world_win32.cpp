#include "windows/dialog_world_win32.h"

#include <utility>

#include "desktop/shell_operations_win32.h"
#include "framework/common_controls.h"
#include "process/module_path_win32.h"
#include "windows/support_win32.h"

namespace ferry::test {
namespace {

/// A program of the product's name beside the test, where the build puts the dialog texts.
std::wstring InstalledProgram() {
    const std::wstring module = process::ModulePath();
    return module.substr(0, module.rfind(L'\\') + 1) + L"Ferry.exe";
}

/// Runs nothing but what the test wants.
class FavouritesByPlan final : public dialogs::Favourites {
public:
    FavouritesByPlan(const PlannedFavourites& plan, HWND dialog) noexcept : plan_(plan), dialog_(dialog) {}

    std::wstring Folder() override { return plan_.Folder; }
    void Run(const std::wstring& path) override { plan_.Run(path, dialog_); }

private:
    const PlannedFavourites& plan_;
    HWND dialog_;
};

}  // namespace

DialogWorld::DialogWorld() : DialogWorld(InstalledProgram()) {}

DialogWorld::DialogWorld(std::wstring program)
    : localiser_(Store, files_, changes_, texts_, std::move(program)), services_(ServicesWith(Clock)) {
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
    framework::CommonControls::Get().Init(&controls);
    HoldKeys({});
}

DialogWorld::~DialogWorld() {
    HoldKeys({});
}

dialogs::Services DialogWorld::ServicesWith(calendar::Clock& clock) {
    return ServicesWith(clock, folders_);
}

dialogs::Services DialogWorld::ServicesWith(files::FolderSearch& folders) {
    return ServicesWith(Clock, folders);
}

dialogs::Services DialogWorld::ServicesWith(calendar::Clock& clock, files::FolderSearch& folders) {
    return {process::ModulePath(),
            host_,
            Store,
            speaker_,
            messages_,
            localiser_,
            shell_,
            clock,
            files_,
            folders,
            changes_,
            [this](HWND owner) -> std::unique_ptr<transfer::ShellOperations> {
                return std::make_unique<desktop::WindowsShellOperations>(owner, files_);
            },
            [this](HWND dialog) -> std::unique_ptr<dialogs::Favourites> {
                return std::make_unique<FavouritesByPlan>(Favourites, dialog);
            }};
}

void Click(HWND dialog, int id) {
    SendMessageW(GetDlgItem(dialog, id), BM_CLICK, 0, 0);
}

std::wstring TextOfControl(HWND dialog, int id) {
    return TextOfWindow(GetDlgItem(dialog, id));
}

bool IsShown(HWND dialog, int id) {
    return (GetWindowLongPtrW(GetDlgItem(dialog, id), GWL_STYLE) & WS_VISIBLE) != 0;
}

}  // namespace ferry::test
