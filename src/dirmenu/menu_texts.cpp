// What a menu says where it has nothing to choose.
#include "dirmenu/menu_texts.h"

#include <optional>

namespace ferry::dirmenu {

namespace {

MenuTexts OwnTexts(std::wstring_view suffix) {
    if (suffix == lang::kBuiltInSuffix) {
        return {L"（空）", L"（読み取れません）", L"（これより深い階層は表示できません）",
                L"（ほか%1件は表示できません）"};
    }
    return {L"(empty)", L"(cannot be read)", L"(too deep to be shown)", L"(%1 more are not shown)"};
}

/// Puts the message `number` into `text` if there is one, and if it has a place for what `text` has one for.
void Take(lang::Catalogue& messages, std::uint16_t number, std::wstring& text) {
    const std::optional<std::wstring> found = messages.Find(number);
    const bool needsPlace = text.find(kPlaceOfCount) != std::wstring::npos;
    if (found && !found->empty() && (!needsPlace || found->find(kPlaceOfCount) != std::wstring::npos)) {
        text = *found;
    }
}

}  // namespace

MenuTexts TextsOf(lang::Catalogue& messages, std::wstring_view suffix) {
    MenuTexts texts = OwnTexts(suffix);
    Take(messages, kEmptyMessage, texts.Empty);
    Take(messages, kUnreadableMessage, texts.Unreadable);
    Take(messages, kTooDeepMessage, texts.TooDeep);
    Take(messages, kLeftOutMessage, texts.LeftOut);
    return texts;
}

}  // namespace ferry::dirmenu
