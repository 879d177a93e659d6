#include "controls/path_display.h"

namespace ferry::controls {

namespace {

// What the ellipsis may add to a text that is shortened where it stands.
constexpr std::size_t kEllipsisRoom = 4;

constexpr UINT kFormat = DT_SINGLELINE | DT_NOPREFIX | DT_PATH_ELLIPSIS | DT_MODIFYSTRING | DT_CALCRECT;

}  // namespace

PathDisplay::PathDisplay(HWND control) noexcept : control_(control), context_(GetDC(control)) {
    auto* const font = reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0));
    oldFont_ = SelectObject(context_, font != nullptr ? font : GetStockObject(SYSTEM_FONT));
    GetClientRect(control, &area_);
}

PathDisplay::~PathDisplay() {
    SelectObject(context_, oldFont_);
    ReleaseDC(control_, context_);
}

std::wstring PathDisplay::Shown(const std::wstring& path) const {
    if (WidthOf(path) <= area_.right) {
        return path;
    }
    // The system keeps what stands behind the last backslash; of a folder's path that is its name
    // only without the backslash at the end.
    std::wstring shown = path;
    std::wstring ending;
    if (shown.ends_with(L'\\')) {
        shown.pop_back();
        ending = L"\\";
    }
    RECT area = area_;
    area.right -= WidthOf(ending);
    const int length = static_cast<int>(shown.size());
    shown.resize(shown.size() + kEllipsisRoom);
    DrawTextW(context_, shown.data(), length, &area, kFormat);
    shown.resize(wcsnlen(shown.data(), shown.size()));
    return shown + ending;
}

LONG PathDisplay::WidthOf(const std::wstring& text) const noexcept {
    SIZE size{};
    GetTextExtentPoint32W(context_, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx;
}

}  // namespace ferry::controls
