// What a person is told of a text that is too long for its field.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "lang/catalogue.h"

namespace ferry::lang {

/// The message that says it; "%1" stands for the number of characters. A host whose message file is older
/// than this program does not have it, or has another text there.
inline constexpr std::uint16_t kTooLongMessage = 65250;

/// That a field takes no more than `limit` characters: by the message of `messages` if that has a place for
/// the number, else in Japanese, the built-in language, or in English, by the language `suffix` in use.
std::wstring TooLongText(Catalogue& messages, std::wstring_view suffix, int limit);

}  // namespace ferry::lang
