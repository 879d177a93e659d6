#include "framework/controls.h"

#include <algorithm>

namespace ferry::framework {

void CListCtrl::SetItemCount(std::size_t count) const noexcept {
    // The scroll position stays: items are appended while the user may be looking at the first.
    SendMessageW(Handle(), LVM_SETITEMCOUNT, count, LVSICF_NOSCROLL);
}

void CListCtrl::RedrawItems(int first, int last) const noexcept {
    SendMessageW(Handle(), LVM_REDRAWITEMS, static_cast<WPARAM>(first), last);
}

int CListCtrl::FocusedItem() const noexcept {
    return static_cast<int>(SendMessageW(Handle(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
}

void CListCtrl::FocusItem(int index) const noexcept {
    ListView_SetItemState(Handle(), index, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    ListView_EnsureVisible(Handle(), index, FALSE);
}

void CEdit::ReplaceSelection(const std::wstring& text) const noexcept {
    SendMessageW(Handle(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void CEdit::PlaceCaretAtEnd() const noexcept {
    const int length = GetWindowTextLengthW(Handle());
    SendMessageW(Handle(), EM_SETSEL, static_cast<WPARAM>(length), length);
}

void CEdit::FocusInDialog() const noexcept {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(Handle(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    // A plain SetFocus would leave the frame of the default button on the button that had the
    // focus; this message moves it back, but selects the text on the way.
    SendMessageW(GetParent(Handle()), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(Handle()), TRUE);
    SendMessageW(Handle(), EM_SETSEL, start, static_cast<LPARAM>(end));
    ScrollCaretIntoView();
}

void CComboBox::Append(const wchar_t* item) const noexcept {
    SendMessageW(Handle(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
}

std::wstring ItemTextOf(HWND combo, int index) {
    const auto item = static_cast<WPARAM>(index);
    const LRESULT length = SendMessageW(combo, CB_GETLBTEXTLEN, item, 0);
    if (length == CB_ERR) {
        return {};
    }
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied = SendMessageW(combo, CB_GETLBTEXT, item, reinterpret_cast<LPARAM>(text.data()));
    text.resize(copied == CB_ERR ? 0 : static_cast<std::size_t>(copied));
    return text;
}

std::optional<std::wstring> CComboBox::SelectedText() const {
    const LRESULT index = SendMessageW(Handle(), CB_GETCURSEL, 0, 0);
    if (index == CB_ERR) {
        return std::nullopt;
    }
    return ItemText(static_cast<int>(index));
}

void CComboBox::SelectItem(const std::wstring& text) const {
    for (int index = 0; index < Count(); ++index) {
        if (ItemText(index) == text) {
            SendMessageW(Handle(), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
            return;
        }
    }
}

void CComboBox::SelectItemByPrefix(const std::wstring& text) const noexcept {
    SendMessageW(Handle(), CB_SELECTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str()));
}

HWND CComboBoxEx::Edit() const noexcept {
    return reinterpret_cast<HWND>(SendMessageW(Handle(), CBEM_GETEDITCONTROL, 0, 0));
}

HWND CComboBoxEx::Combo() const noexcept {
    return reinterpret_cast<HWND>(SendMessageW(Handle(), CBEM_GETCOMBOCONTROL, 0, 0));
}

bool CComboBoxEx::IsListOpen() const noexcept {
    return SendMessageW(Handle(), CB_GETDROPPEDSTATE, 0, 0) != FALSE;
}

void CComboBoxEx::OpenList(bool open) const noexcept {
    SendMessageW(Handle(), CB_SHOWDROPDOWN, open ? TRUE : FALSE, 0);
}

void CComboBoxEx::RemoveItems() const noexcept {
    SendMessageW(Handle(), CB_RESETCONTENT, 0, 0);
}

void CComboBoxEx::AddItem(const std::wstring& text) const noexcept {
    COMBOBOXEXITEMW item{};
    item.mask = CBEIF_TEXT;
    item.iItem = -1;
    // The field is writable for other messages only.
    item.pszText = const_cast<wchar_t*>(text.c_str());
    SendMessageW(Handle(), CBEM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

int CComboBoxEx::SelectedItem() const noexcept {
    return static_cast<int>(SendMessageW(Handle(), CB_GETCURSEL, 0, 0));
}

void CComboBoxEx::SelectItem(int index) const noexcept {
    SendMessageW(Handle(), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

void CProgressCtrl::Show(std::uint32_t done, std::uint32_t count) const noexcept {
    SendMessageW(Handle(), PBM_SETRANGE32, 0, static_cast<LPARAM>(count));
    SendMessageW(Handle(), PBM_SETPOS, done, 0);
}

}  // namespace ferry::framework
