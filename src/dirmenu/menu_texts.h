// What a menu says where it has nothing to choose.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "lang/catalogue.h"

namespace ferry::dirmenu {

/// The messages that say it. A host whose message file is older than this program does not have them.
inline constexpr std::uint16_t kEmptyMessage = 65261;
inline constexpr std::uint16_t kUnreadableMessage = 65262;
inline constexpr std::uint16_t kTooDeepMessage = 65263;
inline constexpr std::uint16_t kLeftOutMessage = 65264;

/// Stands for the number in MenuTexts::LeftOut.
inline constexpr std::wstring_view kPlaceOfCount = L"%1";

/// The texts of entries that cannot be chosen.
struct MenuTexts {
    std::wstring Empty;
    std::wstring Unreadable;
    std::wstring TooDeep;
    std::wstring LeftOut;  ///< Has kPlaceOfCount for how many entries are not shown.
};

/// The texts of `messages` where it has them, the program's own elsewhere, in Japanese or, in any other
/// language, in English, by the language `suffix` in use.
MenuTexts TextsOf(lang::Catalogue& messages, std::wstring_view suffix);

}  // namespace ferry::dirmenu
