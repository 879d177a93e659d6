// Ferry's dialog as a person sees and uses it, from another process.
#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

namespace ferry::e2e {

/// The controls of the confirmation dialog.
enum ControlId : int {
    kStart = 1,
    kCancel = 2,
    kNoAsk = 1030,
    kOpenDestination = 1031,
    kBrowse = 1100,
    kFavourites = 1101,
    kTabFoldersButton = 1102,
    kPolicyGroup = 1140,
    kPrecision = 1170,
    kSourceList = 1200,
    kTabFoldersList = 1201,
    kCopy = 1224,
    kMove = 1225,
    kItemCount = 1350,
    kDestination = 1410,
    kBatch = 1550,
    kIndividual = 1551,
};

/// The radio button of collision policy `policy` (0 to 7); the ids are not in the policies' order.
int PolicyControl(int policy);

/// A dialog of another process. All waiting is for the effect, with a deadline.
class RemoteDialog {
public:
    RemoteDialog() = default;
    explicit RemoteDialog(HWND window) : window_(window) {}

    HWND Window() const noexcept { return window_; }
    bool IsOpen() const noexcept { return window_ != nullptr && IsWindow(window_); }

    HWND Control(int id) const noexcept { return GetDlgItem(window_, id); }
    std::wstring Title() const;
    std::wstring Text(int id) const;
    bool IsShown(int id) const;
    bool IsEnabled(int id) const;
    bool IsChecked(int id) const;

    /// Clicks a radio button or a check box until it is as wanted.
    bool Choose(int id, bool checked = true) const;

    /// Chooses an entry of a drop-down list.
    void Select(int id, int index) const;

    /// The edit field inside the destination's combo box.
    HWND DestinationEdit() const;
    std::wstring Destination() const;

    /// Writes the destination as a whole, without typing.
    void SetDestination(const std::wstring& path) const;

    /// The list of the destination's combo box.
    bool IsDestinationListOpen() const;
    int DestinationListCount() const;
    int DestinationListSelection() const;

    /// The text that the list shows for an item.
    std::wstring DestinationListText(int index) const;

    /// The selection in the destination's edit field, as start and end.
    std::pair<int, int> DestinationSelection() const;

    /// Gives a control the focus of a dialog in the foreground.
    bool Focus(HWND control) const;

    /// Gives the destination's edit field the focus of a dialog in the foreground.
    bool FocusDestination() const;

    /// Empties the destination and types `path` with real keys.
    bool TypeDestination(const std::wstring& path) const;

    /// Posts a click, so that a box that opens does not keep the test waiting.
    void Click(int id) const;

    /// Gives the control the focus and presses the space bar, with Shift when wanted.
    bool PressWithKeys(int id, bool withShift = false) const;

    /// Waits until the focus is on the control.
    bool WaitForFocus(HWND control) const;

    int SourceCount() const;
    std::wstring SourceText(int index) const;
    std::vector<std::wstring> TabFolders() const;

private:
    HWND window_ = nullptr;
};

}  // namespace ferry::e2e
