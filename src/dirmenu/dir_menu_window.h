// Shows the menu of a folder and waits for a choice.
#pragma once

#include <windows.h>

#include <optional>
#include <span>
#include <string>

#include "dirmenu/dir_menu.h"
#include "dirmenu/menu_texts.h"
#include "files/ports.h"
#include "framework/window.h"

namespace ferry::dirmenu {

/// Shows folders as menus over a window. While one is shown this is a window without a size that the menus
/// belong to.
class CDirMenuWnd final : public framework::CWnd {
public:
    /// For menus over `owner`, most often a button of a dialog. `owner` and `search` must outlive the object;
    /// all functions run on the owner's thread.
    CDirMenuWnd(HWND owner, files::FolderSearch& search, MenuTexts texts);

    /// Moves the mouse to the middle of the owner, shows the menu of `folder` there and waits until it
    /// closes. Nothing when it closed without a choice, when it could not be shown, or when one is shown
    /// already. Messages of the thread are handled meanwhile. Whatever is thrown while a submenu is filled
    /// closes the menu and comes out of here.
    std::optional<Choice> Track(const std::wstring& folder, const MenuOptions& options);

protected:
    std::span<const framework::Route> Routes() const override;

private:
    class Tree;
    class Shown;

    framework::Answer OnInitMenuPopup(WPARAM wParam, LPARAM lParam);

    HWND owner_;
    files::FolderSearch& search_;
    MenuTexts texts_;
    Tree* tree_ = nullptr;  ///< The menus that are shown; null while none are.
};

}  // namespace ferry::dirmenu
