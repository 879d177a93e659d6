// The menu of the registered folders, over a folder that the test fills.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "e2e/driver/message_box.h"
#include "e2e/driver/remote_menu.h"
#include "e2e/driver/run_dialogs.h"
#include "e2e/fixture.h"

namespace ferry::e2e {

class FavouriteTest : public FerryTest {
protected:
    /// The host's user folder lies in the test's own tree; nothing is in it.
    FavouriteTest();

    /// The folder that the menu shows, or what lies in it.
    std::wstring Favourites(const std::wstring& name = L"") const;

    /// Writes a script there, with the folders around it.
    void WriteScript(const std::wstring& name, std::initializer_list<std::wstring> lines) const;

    /// A script that has the dialog show `folder`.
    void WriteJump(const std::wstring& name, const std::wstring& folder, int pane = 0) const;

    /// Opens Ferry with one item that is not there, and with the destination kBefore.
    testing::AssertionResult OpenDialog();

    /// Clicks the button and waits for the menu.
    testing::AssertionResult OpenMenu();

    /// Opens the menu and chooses an entry with the keys, by the names on the way to it.
    testing::AssertionResult Choose(std::initializer_list<std::wstring> path);

    RemoteMenu& Menu() { return menu_; }

    /// Whether the destination becomes `folder` with a separator behind it, all of it selected.
    testing::AssertionResult DestinationIs(const std::wstring& folder) const;

    /// Whether the dialog is as it was before anything was chosen, and in front.
    testing::AssertionResult IsUnchanged();

    /// The same, and that it can be used; it is closed then.
    testing::AssertionResult IsAsBefore();

    /// The message box that Ferry shows, without its window when none comes.
    ShownBox Box() { return WaitForMessageBox(Run().FerryId()); }

    /// The destination that stands there before anything is chosen.
    static constexpr wchar_t kBefore[] = L"C:\\before\\";

private:
    /// What the dialog shows that a script could change.
    std::vector<std::wstring> WhatStands() const;

    std::wstring userFolder_;
    RemoteMenu menu_{nullptr};
    std::vector<std::wstring> before_;
};

}  // namespace ferry::e2e
