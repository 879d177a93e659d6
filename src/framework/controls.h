// The common controls that the dialogs use.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <cstdint>
#include <string>

#include "framework/window.h"

namespace ferry::framework {

/// A list view.
class CListCtrl : public CWnd {
public:
    /// Tells a virtual list how many items it has.
    void SetItemCount(std::size_t count) const noexcept;

    /// Redraws the items `first` to `last`, both included.
    void RedrawItems(int first, int last) const noexcept;

    /// The index of the focused item, or -1.
    int FocusedItem() const noexcept;

    /// Makes `index` the focused and the selected item and scrolls it into view.
    void FocusItem(int index) const noexcept;
};

/// An extended combo box with an edit field.
class CComboBoxEx : public CWnd {
public:
    /// The edit field inside, or null.
    HWND Edit() const noexcept;

    /// The plain combo box inside, or null.
    HWND Combo() const noexcept;

    /// The edit field's text, at any length.
    std::wstring EditText() const { return WindowText(Edit()); }
    void SetEditText(const std::wstring& text) const noexcept { SetWindowTextW(Edit(), text.c_str()); }

    /// Selects the edit field's whole text.
    void SelectAll() const noexcept { SendMessageW(Edit(), EM_SETSEL, 0, -1); }

    bool IsListOpen() const noexcept;
    void OpenList(bool open) const noexcept;

    /// Empties the list. The control may clear the edit field with it.
    void RemoveItems() const noexcept;

    /// Appends an item; the control copies the text.
    void AddItem(const std::wstring& text) const noexcept;

    /// The index of the selected item, or -1.
    int SelectedItem() const noexcept;

    /// Selects an item; the control shows its text in the edit field.
    void SelectItem(int index) const noexcept;
};

/// A progress bar.
class CProgressCtrl : public CWnd {
public:
    /// Range 0 to `count`, step 1, position 0.
    void Start(std::uint32_t count) const noexcept;
    void StepIt() const noexcept { SendMessageW(Handle(), PBM_STEPIT, 0, 0); }
};

}  // namespace ferry::framework
