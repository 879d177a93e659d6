#include "framework/fields.h"

#include <commctrl.h>

#include <utility>

#include "framework/window.h"

namespace ferry::framework {

namespace {

std::wstring EnglishLimitText(int maxLength) {
    return L"Enter no more than " + std::to_wstring(maxLength) + L" characters.";
}

/// What tells of a text that is too long.
LimitText& CurrentLimitText() {
    static LimitText text = &EnglishLimitText;
    return text;
}

}  // namespace

LimitTextInForce::LimitTextInForce(LimitText text) {
    CurrentLimitText() = std::move(text);
}

LimitTextInForce::~LimitTextInForce() {
    CurrentLimitText() = &EnglishLimitText;
}

namespace detail {

namespace {

// The edit field inside an extended or a plain combo box, or the control itself.
HWND EditOf(HWND control) {
    wchar_t className[32] = {};
    GetClassNameW(control, className, static_cast<int>(std::size(className)));
    if (lstrcmpiW(className, WC_COMBOBOXEXW) == 0) {
        return reinterpret_cast<HWND>(SendMessageW(control, CBEM_GETEDITCONTROL, 0, 0));
    }
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    if (lstrcmpiW(className, WC_COMBOBOXW) == 0 && GetComboBoxInfo(control, &info) != FALSE) {
        return info.hwndItem;
    }
    return control;
}

void ReportTooLong(HWND dialog, HWND edit, int maxLength) {
    const std::wstring text = CurrentLimitText()(maxLength);
    MessageBoxW(dialog, text.c_str(), WindowText(dialog).c_str(), MB_OK | MB_ICONEXCLAMATION);
    SetFocus(edit);
    SendMessageW(edit, EM_SETSEL, 0, -1);
}

}  // namespace

bool ExchangeText(HWND dialog, int id, std::wstring& value, int maxLength, Exchange way) {
    const HWND edit = EditOf(GetDlgItem(dialog, id));
    if (way == Exchange::ToControls) {
        SendMessageW(edit, EM_LIMITTEXT, static_cast<WPARAM>(maxLength), 0);
        SetWindowTextW(edit, value.c_str());
        return true;
    }
    std::wstring text = WindowText(edit);
    if (text.size() > static_cast<std::size_t>(maxLength)) {
        ReportTooLong(dialog, edit, maxLength);
        return false;
    }
    value = std::move(text);
    return true;
}

void ExchangeCheck(HWND dialog, int id, std::uint32_t& value, Exchange way) {
    if (way == Exchange::ToControls) {
        CheckDlgButton(dialog, id, value != 0 ? BST_CHECKED : BST_UNCHECKED);
    } else {
        value = IsDlgButtonChecked(dialog, id) == BST_CHECKED ? 1 : 0;
    }
}

void ExchangeRadio(HWND dialog, std::span<const int> ids, std::uint32_t& value, Exchange way) {
    for (std::uint32_t index = 0; index < ids.size(); ++index) {
        if (ids[index] == 0)
            continue;
        if (way == Exchange::ToControls) {
            CheckDlgButton(dialog, ids[index], index == value ? BST_CHECKED : BST_UNCHECKED);
        } else if (IsDlgButtonChecked(dialog, ids[index]) == BST_CHECKED) {
            value = index;
        }
    }
}

void ExchangeIndex(HWND dialog, int id, std::uint32_t& value, Exchange way) {
    if (way == Exchange::ToControls) {
        SendDlgItemMessageW(dialog, id, CB_SETCURSEL, value, 0);
        return;
    }
    const LRESULT index = SendDlgItemMessageW(dialog, id, CB_GETCURSEL, 0, 0);
    if (index != CB_ERR) {
        value = static_cast<std::uint32_t>(index);
    }
}

}  // namespace detail

}  // namespace ferry::framework
