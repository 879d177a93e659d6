#include "controls/cmd_list_ctrl.h"

#include <imm.h>

#include <algorithm>

#include "base/text.h"
#include "framework/keyboard.h"

namespace ferry::controls {

using framework::Answer;
using framework::Route;

namespace {

// Space beside the text of a list column: the small icon and the list view's own margins.
constexpr int kIconAndMargins = 28;

/// Gives `item` the text `name`, behind which there is more in memory: the end of its path, or a separator.
void ShowText(std::wstring_view name, LVITEMW& item) noexcept {
    if (*(name.data() + name.size()) == L'\0') {
        // The list view only reads the text; the field is writable for other kinds of lists.
        item.pszText = const_cast<wchar_t*>(name.data());
    } else if (item.cchTextMax > 0) {
        const std::size_t room = static_cast<std::size_t>(item.cchTextMax) - 1;
        item.pszText[name.copy(item.pszText, room)] = L'\0';
    }
}

}  // namespace

bool CCmdListCtrl::Prepare(HWND list, SmallIconSource icons) {
    if (!Attach(list)) {
        return false;
    }
    smallIcons_ = std::move(icons);
    ShowIcons();
    // Nothing is written here: with an input method the keys would compose text instead of finding items.
    ImmAssociateContext(list, nullptr);
    return true;
}

void CCmdListCtrl::ShowIcons() const {
    SendMessageW(Handle(), LVM_SETIMAGELIST, LVSIL_SMALL,
                 reinterpret_cast<LPARAM>(smallIcons_(GetDpiForWindow(Handle()))));
}

void CCmdListCtrl::Append(base::TextList list) {
    const bool isFirst = items_.Size() == 0;
    items_.Append(std::move(list));
    if (isFirst && items_.Size() != 0) {
        LetMeasureOneItem();
    }
    FitColumn();
    SetItemCount(items_.Size());
}

void CCmdListCtrl::Clear() {
    items_.Clear();
    SetItemCount(0);
}

// A list view may measure every text before it draws for the first time: a minute for a million items, and
// for a column width that FitColumn sets anyway. So its first drawing is of one item.
void CCmdListCtrl::LetMeasureOneItem() const {
    SetItemCount(1);
    const HDC dc = GetDC(Handle());
    SendMessageW(Handle(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    ReleaseDC(Handle(), dc);
}

// A virtual list does not know its texts, so it cannot find its column width by itself. The name
// with the most characters is nearly always the widest; a name wider than the list is cut.
void CCmdListCtrl::FitColumn() const {
    const std::wstring longest(items_.LongestName());
    RECT client{};
    GetClientRect(Handle(), &client);
    const int text = static_cast<int>(
        SendMessageW(Handle(), LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(longest.c_str())));
    const int dpi = static_cast<int>(GetDpiForWindow(Handle()));
    const int wanted = text + MulDiv(kIconAndMargins, dpi, USER_DEFAULT_SCREEN_DPI);
    SendMessageW(Handle(), LVM_SETCOLUMNWIDTH, 0, std::min(wanted, static_cast<int>(client.right)));
}

std::span<const Route> CCmdListCtrl::Routes() const {
    static constexpr Route kRoutes[] = {
        framework::OnMessage<&CCmdListCtrl::OnIconsReady>(kIconsReadyMessage),
        framework::OnMessage<&CCmdListCtrl::OnScaled>(WM_DPICHANGED_AFTERPARENT),
        framework::OnMessage<&CCmdListCtrl::OnKeyDown>(WM_KEYDOWN),
        framework::OnMessage<&CCmdListCtrl::OnChar>(WM_CHAR),
    };
    return kRoutes;
}

Answer CCmdListCtrl::OnOwnNotification(NMHDR& header) {
    switch (header.code) {
        case LVN_GETDISPINFOW:
            FillDisplayInfo(reinterpret_cast<NMLVDISPINFOW&>(header).item);
            return 0;
        case LVN_ODCACHEHINT: {
            const auto& hint = reinterpret_cast<const NMLVCACHEHINT&>(header);
            RequestIcons(hint.iFrom, hint.iTo);
            return 0;
        }
        case LVN_ODFINDITEMW:
            // No answer would say that its own search for other characters has found the first item.
            return -1;
        default:
            return std::nullopt;
    }
}

void CCmdListCtrl::FillDisplayInfo(LVITEMW& item) const {
    const auto index = static_cast<std::size_t>(item.iItem);
    if (item.iItem < 0 || index >= items_.Size()) {
        return;
    }
    if ((item.mask & LVIF_TEXT) != 0) {
        ShowText(items_.Name(index), item);
    }
    if ((item.mask & LVIF_IMAGE) != 0) {
        // Another icon in its place would be taken for its own.
        const int icon = items_.Icon(index);
        item.iImage = icon == ListItems::kNoIcon ? I_IMAGENONE : icon;
    }
}

// A list view that jumps may announce everything between here and there. Icons are wanted for what can be
// seen and a page around it: those of a million items would keep the shell busy for minutes.
void CCmdListCtrl::RequestIcons(int first, int last) {
    const int top = static_cast<int>(SendMessageW(Handle(), LVM_GETTOPINDEX, 0, 0));
    const int page = std::max(static_cast<int>(SendMessageW(Handle(), LVM_GETCOUNTPERPAGE, 0, 0)), 1);
    const int from = std::max({first, top - page, 0});
    const int to = std::min(last, top + 2 * page);
    if (from <= to) {
        icons_.Request(Handle(), static_cast<std::size_t>(from), static_cast<std::size_t>(to));
    }
}

Answer CCmdListCtrl::OnIconsReady(WPARAM first, LPARAM last) {
    RedrawItems(static_cast<int>(first), static_cast<int>(last));
    return 0;
}

// The list view has the font of the new scaling by now.
Answer CCmdListCtrl::OnScaled(WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CallDefault(WM_DPICHANGED_AFTERPARENT, wParam, lParam);
    ShowIcons();
    FitColumn();
    return result;
}

Answer CCmdListCtrl::OnKeyDown(WPARAM key, LPARAM) {
    const bool isCommand = framework::IsKeyHeld(VK_CONTROL);
    if (!typing_.Press(isCommand ? 0 : static_cast<unsigned>(key),
                       static_cast<std::uint32_t>(GetMessageTime()))) {
        return std::nullopt;
    }
    FocusTypedItem();
    return 0;
}

// The list view's own search by typing must not run besides; it would also beep.
Answer CCmdListCtrl::OnChar(WPARAM unit, LPARAM) {
    const auto typed = static_cast<wchar_t>(unit);
    return base::IsDriveLetter(typed) || base::IsDigit(typed) ? Answer(0) : std::nullopt;
}

void CCmdListCtrl::FocusTypedItem() const {
    const int focused = FocusedItem();
    const std::size_t start =
        focused < 0 ? 0 : static_cast<std::size_t>(focused) + (typing_.StepsOn() ? 1 : 0);
    const auto found = completion::FindFrom(start, items_.Size(), [this](std::size_t index) {
        return completion::BeginsWith(items_.Name(index), typing_.Text());
    });
    if (found) {
        FocusItem(static_cast<int>(*found));
    }
}

}  // namespace ferry::controls
