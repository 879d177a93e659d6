#include "framework/controls.h"

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

void CProgressCtrl::Start(std::uint32_t count) const noexcept {
    SendMessageW(Handle(), PBM_SETRANGE32, 0, static_cast<LPARAM>(count));
    SendMessageW(Handle(), PBM_SETSTEP, 1, 0);
    SendMessageW(Handle(), PBM_SETPOS, 0, 0);
}

}  // namespace ferry::framework
