#include "trace_lists_win32.h"

#include <algorithm>
#include <utility>

#include "base/text.h"

namespace ferry::tracewindow {

namespace {

constexpr wchar_t kLineMark = 0x25B6;  // a triangle that points to the line
constexpr wchar_t kHoldMark = 0x25CF;  // a disc

/// A quarter of the way from the background to what is selected: seen in every colour scheme, and legible.
COLORREF MarkColour() noexcept {
    const COLORREF ground = GetSysColor(COLOR_WINDOW);
    const COLORREF selected = GetSysColor(COLOR_HIGHLIGHT);
    const auto mix = [](int one, int other) { return (3 * one + other) / 4; };
    return RGB(mix(GetRValue(ground), GetRValue(selected)), mix(GetGValue(ground), GetGValue(selected)),
               mix(GetBValue(ground), GetBValue(selected)));
}

}  // namespace

void CMarkedList::AddColumn(const wchar_t* title) {
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_SUBITEM;
    column.pszText = const_cast<wchar_t*>(title);  // only read
    column.iSubItem = columns_;
    SendMessageW(Handle(), LVM_INSERTCOLUMNW, static_cast<WPARAM>(columns_),
                 reinterpret_cast<LPARAM>(&column));
    ++columns_;
}

void CMarkedList::SetWidths(std::initializer_list<int> widths) const {
    RECT client{};
    GetClientRect(Handle(), &client);
    // Room for the scroll bar, which may come and go.
    int left = client.right - client.left;
    if ((GetWindowLongPtrW(Handle(), GWL_STYLE) & WS_VSCROLL) == 0)
        left -= GetSystemMetricsForDpi(SM_CXVSCROLL, GetDpiForWindow(Handle()));
    int column = 0;
    for (const int width : widths) {
        ListView_SetColumnWidth(Handle(), column, width);
        left -= width;
        ++column;
    }
    ListView_SetColumnWidth(Handle(), column, std::max(left, 0));
}

void CMarkedList::Mark(int index) {
    const int before = std::exchange(marked_, index);
    RedrawItems(before, before);
    RedrawItems(index, index);
}

framework::Answer CMarkedList::OnOwnNotification(NMHDR& header) {
    if (header.code == LVN_GETDISPINFOW) {
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW&>(header).item;
        if ((item.mask & LVIF_TEXT) != 0) {
            cell_ = CellText(item.iItem, item.iSubItem);
            item.pszText = cell_.data();
        }
        return 0;
    }
    if (header.code == NM_CUSTOMDRAW) {
        auto& draw = reinterpret_cast<NMLVCUSTOMDRAW&>(header);
        if (draw.nmcd.dwDrawStage == CDDS_PREPAINT)
            return CDRF_NOTIFYITEMDRAW;
        if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && static_cast<int>(draw.nmcd.dwItemSpec) == marked_) {
            draw.clrText = GetSysColor(COLOR_WINDOWTEXT);
            draw.clrTextBk = MarkColour();
        }
        return CDRF_DODEFAULT;
    }
    return std::nullopt;
}

void CLinesList::Show(std::wstring text) {
    script_.emplace(std::move(text));
    SetItemCount(script_->Count());
    InvalidateRect(Handle(), nullptr, TRUE);
}

std::wstring CLinesList::CellText(int row, int column) const {
    const std::size_t number = static_cast<std::size_t>(row) + 1;
    if (column == kMarkColumn) {
        std::wstring marks;
        if (model_.HasHold(number))
            marks += kHoldMark;
        if (row == Marked())
            marks += kLineMark;
        return marks;
    }
    if (column < kFirstTextColumn)
        return std::to_wstring(number);
    return base::ReplaceAll(script_->Line(number), L"\t", L"    ");
}

std::wstring CVariablesList::CellText(int row, int column) const {
    // The table asks later, when there may be fewer.
    if (static_cast<std::size_t>(row) >= model_.Variables().size())
        return {};
    const TracedVariable& variable = model_.Variables()[static_cast<std::size_t>(row)];
    if (column == kMarkColumn)
        return row == Marked() ? std::wstring(1, kLineMark) : std::wstring();
    return column < kFirstTextColumn ? variable.Name : ValueText(variable, texts_);
}

}  // namespace ferry::tracewindow
