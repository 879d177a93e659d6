// Measures texts as menus draw them.
#include "dirmenu/menu_font.h"

namespace ferry::dirmenu {

namespace {

// What the settings of the system fill: the size tells it which version is meant.
static_assert(sizeof(NONCLIENTMETRICSW) == 504);

// Of a monitor's width; menus have a margin on both sides and an arrow beside their names.
constexpr int kMenusBesideEachOther = 3;

}  // namespace

MenuFont::MenuFont() : surface_(CreateCompatibleDC(nullptr)) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0)) {
        font_.Reset(CreateFontIndirectW(&metrics.lfMenuFont));
    }
    if (surface_ && font_) {
        SelectObject(surface_.Get(), font_.Get());
    }
}

int MenuFont::WidthOf(std::wstring_view text) const noexcept {
    SIZE size{};
    return GetTextExtentPoint32W(surface_.Get(), text.data(), static_cast<int>(text.size()), &size) ? size.cx
                                                                                                    : 0;
}

int WidestName(HWND window) noexcept {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    const int width = static_cast<int>(monitor.rcWork.right - monitor.rcWork.left) / kMenusBesideEachOther;
    return MulDiv(width, static_cast<int>(GetDpiForSystem()), static_cast<int>(GetDpiForWindow(window)));
}

}  // namespace ferry::dirmenu
