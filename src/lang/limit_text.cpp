// What a person is told of a text that is too long for its field.
#include "lang/limit_text.h"

#include <optional>

#include "base/text.h"

namespace ferry::lang {

namespace {

constexpr std::wstring_view kPlaceOfLimit = L"%1";

std::wstring OwnText(std::wstring_view suffix) {
    return suffix == kBuiltInSuffix ? L"%1文字以内で入力してください。"
                                    : L"Enter no more than %1 characters.";
}

}  // namespace

std::wstring TooLongText(Catalogue& messages, std::wstring_view suffix, int limit) {
    const std::optional<std::wstring> text = messages.Find(kTooLongMessage);
    const bool isUsable = text && text->find(kPlaceOfLimit) != std::wstring::npos;
    return base::ReplaceAll(isUsable ? *text : OwnText(suffix), kPlaceOfLimit, std::to_wstring(limit));
}

}  // namespace ferry::lang
