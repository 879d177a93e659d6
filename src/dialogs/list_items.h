// What the drop-down lists of the dialogs offer, in order. Whoever starts a language finds them here, since
// templates cannot hold them.
#pragma once

#include <span>

#include "ids.h"

namespace ferry::dialogs {

/// How exactly times are compared.
inline constexpr const wchar_t* kPrecisions[] = {L"標準", L"±1秒は同一とみなす", L"±2秒は同一とみなす"};

/// Formats of the C library's strftime.
inline constexpr const wchar_t* kDateFormats[] = {L"%Y-%m-%d", L"%Y%m%d", L"%Y年%m月%d日",
                                                  L"%y-%m-%d", L"%y%m%d", L"%y年%m月%d日"};
inline constexpr const wchar_t* kTimeFormats[] = {L"%H-%M-%S", L"%H%M%S", L"%H時%M分%S秒",
                                                  L"%I-%M-%S", L"%I%M%S", L"%p%I時%M分%S秒"};
inline constexpr const wchar_t* kWeekdayFormats[] = {L"%a", L"%A", L"%U", L"%w", L"%W"};

/// Which time of an item is inserted.
inline constexpr const wchar_t* kDateSources[] = {L"現在日時", L"作成日時", L"更新日時", L"アクセス日時"};

/// One list and its entries.
struct ListItems {
    int Template;
    int ControlId;
    std::span<const wchar_t* const> Items;
};

/// All lists that have entries of their own.
inline constexpr ListItems kLists[] = {
    {IDD_FERRY, IDC_PRECISION, kPrecisions},     {IDD_INPUT, IDC_DATE_FORMATS, kDateFormats},
    {IDD_INPUT, IDC_TIME_FORMATS, kTimeFormats}, {IDD_INPUT, IDC_WEEKDAY_FORMATS, kWeekdayFormats},
    {IDD_INPUT, IDC_DATE_SOURCES, kDateSources},
};

}  // namespace ferry::dialogs
