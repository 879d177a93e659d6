#include "controls/folder_list.h"

#include <algorithm>
#include <string>

#include "controls/path_display.h"

namespace ferry::controls {

using framework::Answer;
using framework::Route;

namespace {

// Space on both sides of a text in a list box.
constexpr int kMargins = 8;

std::wstring TextAt(HWND list, WPARAM index) {
    const LRESULT length = SendMessageW(list, LB_GETTEXTLEN, index, 0);
    std::wstring text(static_cast<std::size_t>(std::max<LRESULT>(length, 0)) + 1, L'\0');
    const LRESULT copied = SendMessageW(list, LB_GETTEXT, index, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(std::max<LRESULT>(copied, 0)));
    return text;
}

}  // namespace

void CFolderList::Show(const base::TextList& folders) const {
    SendMessageW(Handle(), WM_SETREDRAW, FALSE, 0);
    SendMessageW(Handle(), LB_RESETCONTENT, 0, 0);
    for (const std::wstring_view folder : folders) {
        SendMessageW(Handle(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(folder.data()));
    }
    FitToWidest();
    SendMessageW(Handle(), WM_SETREDRAW, TRUE, 0);
    InvalidateRect(Handle(), nullptr, TRUE);
}

// A list box does not know how wide its texts are: it scrolls as far as it is told.
void CFolderList::FitToWidest() const {
    const PathDisplay display(Handle());
    LONG widest = 0;
    const LRESULT count = SendMessageW(Handle(), LB_GETCOUNT, 0, 0);
    for (LRESULT index = 0; index < count; ++index) {
        widest = std::max(widest, display.WidthOf(TextAt(Handle(), static_cast<WPARAM>(index))));
    }
    const int dpi = static_cast<int>(GetDpiForWindow(Handle()));
    const int extent = widest + MulDiv(kMargins, dpi, USER_DEFAULT_SCREEN_DPI);
    SendMessageW(Handle(), LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(extent), 0);
}

std::span<const Route> CFolderList::Routes() const {
    static constexpr Route kRoutes[] = {
        framework::OnMessage<&CFolderList::OnScaled>(WM_DPICHANGED_AFTERPARENT),
    };
    return kRoutes;
}

// The list box has the font of the new scaling by now.
Answer CFolderList::OnScaled(WPARAM wParam, LPARAM lParam) {
    const LRESULT result = CallDefault(WM_DPICHANGED_AFTERPARENT, wParam, lParam);
    FitToWidest();
    return result;
}

}  // namespace ferry::controls
