// What the host and drops bring into the confirmation dialog.
#include <windows.h>
// After windows.h, which the shell's headers build on.
#include <shellapi.h>

#include <algorithm>
#include <span>
#include <string>

#include "dialogs/ferry_dialog.h"
#include "framework/errors.h"
#include "framework/handles.h"
#include "hostlink/host_block.h"
#include "hostlink/window_placement_win32.h"
#include "ids.h"
#include "paths/path_helpers.h"
#include "paths/path_helpers_win32.h"

namespace ferry::dialogs {

using framework::Answer;

namespace {

constexpr ULONG_PTR kBlockTag = 255;

// Three hand-over codes of the host's scripts; all of them carry a destination.
constexpr ULONG_PTR kDestinationTags[] = {100, 200, 300};

// A drop of nothing may count as one item without a name.
base::TextList PathsOf(HDROP drop) {
    base::TextList paths;
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT index = 0; index < count; ++index) {
        if (const std::wstring path = paths::DroppedFileName(drop, index); !path.empty()) {
            paths.Append(path);
        }
    }
    return paths;
}

}  // namespace

Answer CFerryDlg::OnDropFiles(WPARAM wParam, LPARAM) {
    const framework::DropHandle drop(reinterpret_cast<HDROP>(wParam));
    if (arrival_ == Arrival::FolderList) {
        return 0;
    }
    base::TextList paths = PathsOf(drop.Get());
    if (paths.IsEmpty()) {
        return 0;
    }
    if (arrival_ == Arrival::Nothing) {
        TakeDroppedItems(std::move(paths));
    } else {
        TakeDroppedFolders(std::move(paths));
    }
    return 0;
}

void CFerryDlg::TakeDroppedItems(base::TextList paths) {
    list_.Clear();
    list_.Append(std::move(paths));
    arrival_ = Arrival::FileList;
    ShowItemCount();
    OfferSourceFolder();
    EnableWindow(Item(IDOK), TRUE);
}

void CFerryDlg::TakeDroppedFolders(base::TextList paths) {
    services_.Host.TabFolders.Append(std::move(paths));
    arrival_ = Arrival::FolderList;
    PresetDestination();
    FillTabList();
    FocusAtStart();
    EnableWindow(Item(IDOK), TRUE);
}

Answer CFerryDlg::OnCopyData(WPARAM, LPARAM lParam) {
    const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    if (data == nullptr) {
        return std::nullopt;
    }
    if (data->dwData == kBlockTag) {
        return TakeDelivery(*data) ? Answer(TRUE) : std::nullopt;
    }
    if (std::ranges::find(kDestinationTags, data->dwData) == std::end(kDestinationTags)) {
        return std::nullopt;
    }
    if (data->lpData != nullptr) {
        SetDestinationAndSelect(hostlink::TextFromPayload(
            {static_cast<const std::byte*>(data->lpData), static_cast<std::size_t>(data->cbData)}));
    }
    return TRUE;
}

// The block lies in memory that the system copied for this one message, so it may be changed
// where it lies, as the format's reader does.
bool CFerryDlg::TakeDelivery(const COPYDATASTRUCT& data) {
    if (arrival_ != Arrival::Nothing) {
        return false;
    }
    hostlink::HostData& host = services_.Host;
    base::TextList items;
    if (data.lpData != nullptr) {
        const std::span<wchar_t> units(static_cast<wchar_t*>(data.lpData), data.cbData / sizeof(wchar_t));
        hostlink::ParseHostBlock(units, data.cbData, {host.CurrentDir, host.Option, items, host.TabFolders});
    }
    list_.Append(std::move(items));
    PresetDestination();
    FillTabList();
    ShowItemCount();
    OfferSourceFolder();
    EnableWindow(Item(IDOK), TRUE);
    OpenIfMinimised();
    hostlink::BringToForeground(Handle());
    // A dialog that becomes active gives the focus to whichever control had it last; so this comes after it.
    FocusAtStart();
    return true;
}

// "Show the desktop" minimises dialogs, too. In the foreground such a one would still not be seen, and
// nothing in it could take the focus.
void CFerryDlg::OpenIfMinimised() const {
    if (IsIconic(Handle()) != FALSE) {
        ShowWindow(Handle(), SW_RESTORE);
    }
}

void CFerryDlg::PresetDestination() {
    const base::TextList& folders = services_.Host.TabFolders;
    if (folders.IsEmpty()) {
        return;
    }
    const int index = options_.TabFolderIndex % static_cast<int>(folders.Size());
    if (index < 0) {
        throw framework::InvalidArgument();
    }
    SetDestination(folders[static_cast<std::size_t>(index)]);
}

void CFerryDlg::FillTabList() {
    if (options_.TabListMode == 0) {
        return;
    }
    const HWND list = Item(IDC_TAB_LIST);
    const base::TextList& folders = services_.Host.TabFolders;
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list, LB_RESETCONTENT, 0, 0);
    for (const std::wstring_view folder : folders) {
        SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(folder.data()));
    }
    if (!folders.IsEmpty()) {
        const int index = options_.TabFolderIndex % static_cast<int>(folders.Size());
        SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
    }
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

void CFerryDlg::FocusAtStart() {
    if (options_.TabListMode != 0 && options_.FocusMode == 1) {
        SetFocus(Item(IDC_TAB_LIST));
        return;
    }
    SetFocus(destination_.Edit());
    destination_.SelectAll();
    // Getting the focus selects the text; the posted message comes after that and leaves the
    // caret behind the last character, where a subfolder can be typed at once.
    PostMessageW(destination_.Edit(), EM_SETSEL, static_cast<WPARAM>(-1), -1);
}

void CFerryDlg::ShowItemCount() {
    const std::wstring text = L"(" + std::to_wstring(list_.Items().Size()) + L")";
    SetDlgItemTextW(Handle(), IDC_COUNT, text.c_str());
}

// A name that is typed alone is most often meant beside the sources.
void CFerryDlg::OfferSourceFolder() {
    if (list_.Items().Size() > 0) {
        destination_.SetSearchBase(std::wstring(paths::ParentWithSeparator(list_.Items().Path(0))));
    }
}

void CFerryDlg::SetDestination(std::wstring_view folder) {
    destination_.ReplaceText(paths::WithTrailingSeparator(folder));
}

void CFerryDlg::SetDestinationAndSelect(std::wstring_view folder) {
    if (!folder.empty()) {
        SetDestination(folder);
        destination_.SelectAll();
    }
}

}  // namespace ferry::dialogs
