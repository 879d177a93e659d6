// The files that a translator starts with.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "texts/dialog_source.h"

namespace ferry::texts {

/// A file of a language, with the units that the program reads.
struct LanguageFile {
    std::wstring Name;
    std::wstring Units;
};

/// The dialog text file of `dialog`, as the program itself writes it where there is none. Where
/// `translation`, the content of such a file in another language, has a text, that one stands there.
LanguageFile StartDialogText(const DialogSource& dialog, std::wstring_view translation);

/// The message file of `language` with the texts of the message file `original`.
LanguageFile StartMessages(const std::wstring& language, std::wstring_view original);

/// Whether `name` can be the name of a language, as in "fr-FR": letters, digits and hyphens between them.
bool IsLanguageName(std::wstring_view name);

}  // namespace ferry::texts
