// The common controls that the dialogs use.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <cstdint>
#include <optional>
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

/// An edit field of one line.
class CEdit : public CWnd {
public:
    /// Replaces the selected text, or inserts at the caret; the user can undo it.
    void ReplaceSelection(const std::wstring& text) const noexcept;

    void SelectAll() const noexcept { SendMessageW(Handle(), EM_SETSEL, 0, -1); }

    /// Puts the caret behind the last character; nothing is selected then.
    void PlaceCaretAtEnd() const noexcept;

    void ScrollCaretIntoView() const noexcept { SendMessageW(Handle(), EM_SCROLLCARET, 0, 0); }

    /// Gives the field the dialog's keyboard focus; selection and caret stay as they are, and
    /// the caret comes into view.
    void FocusInDialog() const noexcept;
};

/// The text of item `index` of the drop-down list `combo`; empty when there is none.
std::wstring ItemTextOf(HWND combo, int index);

/// A drop-down list.
class CComboBox : public CWnd {
public:
    /// Appends an item.
    void Append(const wchar_t* item) const noexcept;

    int Count() const noexcept { return static_cast<int>(SendMessageW(Handle(), CB_GETCOUNT, 0, 0)); }

    /// The text of item `index`; empty when there is none.
    std::wstring ItemText(int index) const { return ItemTextOf(Handle(), index); }

    /// The selected item's text, or nothing when none is selected.
    std::optional<std::wstring> SelectedText() const;

    /// Selects the first item that is exactly `text`; without one the selection stays.
    void SelectItem(const std::wstring& text) const;

    /// Selects the first item that begins with `text`, letter case aside; without one the
    /// selection stays.
    void SelectItemByPrefix(const std::wstring& text) const noexcept;
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
    /// Shows that `done` of `count` are done.
    void Show(std::uint32_t done, std::uint32_t count) const noexcept;
};

}  // namespace ferry::framework
