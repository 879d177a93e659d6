#include "e2e/driver/remote_dialog.h"

#include <commctrl.h>

#include <algorithm>

#include "e2e/driver/ask.h"
#include "e2e/driver/keys.h"
#include "e2e/driver/message_box.h"
#include "e2e/driver/remote_memory.h"
#include "support/poll_win32.h"

namespace ferry::e2e {

using test::WaitUntil;
namespace {

/// The place that a list view writes an item's text to must lie in its own process.
constexpr int kItemTextUnits = 1024;

}  // namespace

int PolicyControl(int policy) {
    constexpr int kIds[] = {1220, 1227, 1222, 1221, 1223, 1228, 1229, 1230};
    return kIds[policy];
}

std::wstring RemoteDialog::Title() const {
    return RemoteText(window_);
}

std::wstring RemoteDialog::Text(int id) const {
    return RemoteText(Control(id));
}

bool RemoteDialog::IsShown(int id) const {
    return (GetWindowLongPtrW(Control(id), GWL_STYLE) & WS_VISIBLE) != 0;
}

bool RemoteDialog::IsEnabled(int id) const {
    return IsWindowEnabled(Control(id)) != FALSE;
}

bool RemoteDialog::IsChecked(int id) const {
    return Ask(Control(id), BM_GETCHECK) == BST_CHECKED;
}

bool RemoteDialog::Choose(int id, bool checked) const {
    if (IsChecked(id) == checked)
        return true;
    Ask(Control(id), BM_CLICK);
    return WaitUntil([&] { return IsChecked(id) == checked; });
}

void RemoteDialog::Select(int id, int index) const {
    Ask(Control(id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    Ask(window_, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(Control(id)));
}

HWND RemoteDialog::DestinationEdit() const {
    return reinterpret_cast<HWND>(Ask(Control(kDestination), CBEM_GETEDITCONTROL));
}

std::wstring RemoteDialog::Destination() const {
    return RemoteText(DestinationEdit());
}

void RemoteDialog::SetDestination(const std::wstring& path) const {
    Ask(DestinationEdit(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
}

bool RemoteDialog::IsDestinationListOpen() const {
    return Ask(Control(kDestination), CB_GETDROPPEDSTATE) != FALSE;
}

int RemoteDialog::DestinationListCount() const {
    return static_cast<int>(Ask(Control(kDestination), CB_GETCOUNT));
}

int RemoteDialog::DestinationListSelection() const {
    return static_cast<int>(Ask(Control(kDestination), CB_GETCURSEL));
}

std::wstring RemoteDialog::DestinationListText(int index) const {
    const RemoteMemory memory(window_, sizeof(COMBOBOXEXITEMW) + kItemTextUnits * sizeof(wchar_t));
    COMBOBOXEXITEMW item = {};
    item.mask = CBEIF_TEXT;
    item.iItem = index;
    item.cchTextMax = kItemTextUnits;
    item.pszText = reinterpret_cast<wchar_t*>(memory.Place() + sizeof(item));
    memory.Write(&item, sizeof(item));
    Ask(Control(kDestination), CBEM_GETITEMW, 0, reinterpret_cast<LPARAM>(memory.Place()));
    std::wstring text(kItemTextUnits, L'\0');
    memory.Read(sizeof(item), text.data(), text.size() * sizeof(wchar_t));
    text.resize(std::min(text.find(L'\0'), text.size()));
    return text;
}

std::pair<int, int> RemoteDialog::DestinationSelection() const {
    const auto range = static_cast<DWORD>(Ask(DestinationEdit(), EM_GETSEL));
    return {LOWORD(range), HIWORD(range)};
}

bool RemoteDialog::Focus(HWND control) const {
    if (!TakeForeground(window_))
        return false;
    Ask(window_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
    return WaitForFocus(control);
}

bool RemoteDialog::FocusDestination() const {
    return Focus(DestinationEdit());
}

bool RemoteDialog::TypeDestination(const std::wstring& path) const {
    SetDestination(L"");
    if (!FocusDestination())
        return false;
    TypeText(path);
    return WaitUntil([&] { return Destination() == path; });
}

void RemoteDialog::Click(int id) const {
    PostMessageW(Control(id), BM_CLICK, 0, 0);
}

bool RemoteDialog::WaitForFocus(HWND control) const {
    const DWORD thread = GetWindowThreadProcessId(window_, nullptr);
    return WaitUntil([&] {
        GUITHREADINFO info = {};
        info.cbSize = sizeof(info);
        return GetGUIThreadInfo(thread, &info) && info.hwndFocus == control;
    });
}

bool RemoteDialog::PressWithKeys(int id, bool withShift) const {
    if (!Focus(Control(id)))
        return false;
    PressKey(VK_SPACE, withShift);
    return true;
}

int RemoteDialog::SourceCount() const {
    return static_cast<int>(Ask(Control(kSourceList), LVM_GETITEMCOUNT));
}

std::wstring RemoteDialog::SourceText(int index) const {
    const RemoteMemory memory(window_, sizeof(LVITEMW) + kItemTextUnits * sizeof(wchar_t));
    LVITEMW item = {};
    item.cchTextMax = kItemTextUnits;
    item.pszText = reinterpret_cast<wchar_t*>(memory.Place() + sizeof(item));
    memory.Write(&item, sizeof(item));
    const LRESULT length = Ask(Control(kSourceList), LVM_GETITEMTEXTW, static_cast<WPARAM>(index),
                               reinterpret_cast<LPARAM>(memory.Place()));
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    memory.Read(sizeof(item), text.data(), text.size() * sizeof(wchar_t));
    return text;
}

std::vector<std::wstring> RemoteDialog::TabFolders() const {
    const HWND list = Control(kTabFoldersList);
    std::vector<std::wstring> folders;
    const LRESULT count = Ask(list, LB_GETCOUNT);
    for (LRESULT index = 0; index < count; ++index) {
        const LRESULT length = Ask(list, LB_GETTEXTLEN, static_cast<WPARAM>(index), 0);
        std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
        Ask(list, LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
        text.resize(static_cast<std::size_t>(length));
        folders.push_back(text);
    }
    return folders;
}

}  // namespace ferry::e2e
