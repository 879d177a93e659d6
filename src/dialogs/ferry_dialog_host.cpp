// What the host and drops bring into the confirmation dialog.
#include <windows.h>
// After windows.h, which the shell's headers build on.
#include <shellapi.h>

#include <span>
#include <string>

#include "controls/dropped_files.h"
#include "desktop/window_placement.h"
#include "dialogs/ferry_dialog.h"
#include "framework/handles.h"
#include "hostlink/host_block.h"
#include "hostlink/host_message.h"
#include "ids.h"
#include "paths/path_grammar.h"

namespace ferry::dialogs {

using framework::Answer;

namespace {

// A drop of nothing may count as one item without a name.
base::TextList PathsOf(HDROP drop) {
    base::TextList paths;
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT index = 0; index < count; ++index) {
        if (const std::wstring path = controls::DroppedFileName(drop, index); !path.empty()) {
            paths.Append(path);
        }
    }
    return paths;
}

}  // namespace

Answer CFerryDlg::OnDropFiles(WPARAM wParam, LPARAM) {
    const framework::DropHandle drop(reinterpret_cast<HDROP>(wParam));
    if (!arrivals_.TakesDrops()) {
        return 0;
    }
    base::TextList paths = PathsOf(drop.Get());
    switch (arrivals_.TakeDrop(paths.Size())) {
        case confirmation::Drop::Items:
            TakeDroppedItems(std::move(paths));
            break;
        case confirmation::Drop::Folders:
            TakeDroppedFolders(std::move(paths));
            break;
        case confirmation::Drop::Nothing:
            break;
    }
    return 0;
}

void CFerryDlg::TakeDroppedItems(base::TextList paths) {
    list_.Clear();
    list_.Append(std::move(paths));
    ShowItemCount();
    OfferSourceFolder();
    EnableWindow(Item(IDOK), TRUE);
}

void CFerryDlg::TakeDroppedFolders(base::TextList paths) {
    services_.Host.TabFolders.Append(std::move(paths));
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
    switch (hostlink::HostMessageOf(data->dwData)) {
        case hostlink::HostMessage::Block:
            return TakeDelivery(*data) ? Answer(TRUE) : std::nullopt;
        case hostlink::HostMessage::Destination:
            if (data->lpData != nullptr) {
                SetDestinationAndSelect(hostlink::TextFromPayload(
                    {static_cast<const std::byte*>(data->lpData), static_cast<std::size_t>(data->cbData)}));
            }
            return TRUE;
        case hostlink::HostMessage::None:
            break;
    }
    return std::nullopt;
}

// The block lies in memory that the system copied for this one message, so it may be changed
// where it lies, as the format's reader does.
bool CFerryDlg::TakeDelivery(const COPYDATASTRUCT& data) {
    if (!arrivals_.TakesDeliveries()) {
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
    desktop::BringToForeground(Handle());
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
    SetDestination(folders[confirmation::PresetFolder(options_.TabFolderIndex, folders.Size())]);
}

void CFerryDlg::FillTabList() {
    if (options_.TabListMode == 0) {
        return;
    }
    const base::TextList& folders = services_.Host.TabFolders;
    tabList_.Show(folders);
    if (!folders.IsEmpty()) {
        const std::size_t preset = confirmation::PresetFolder(options_.TabFolderIndex, folders.Size());
        SendMessageW(tabList_.Handle(), LB_SETCURSEL, preset, 0);
    }
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
        hasNewDestination_ = true;
    }
}

}  // namespace ferry::dialogs
