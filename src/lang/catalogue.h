// Message texts by number, from the language's message file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "lang/speaker.h"
#include "lang/text_files.h"

namespace ferry::lang {

/// What an unknown number gives.
inline constexpr wchar_t kMissingText[] = L"No message text.Please update message file.";

/// The language suffix of the built-in texts.
inline constexpr wchar_t kBuiltInSuffix[] = L".ja-JP";

using CatalogueEntries = std::unordered_map<std::uint16_t, std::wstring>;

/// Adds the entries of a message file's text to `entries`; of a number that occurs twice the
/// later text wins. Lines that are no entry are ignored.
void ParseCatalogue(std::wstring_view fileText, CatalogueEntries& entries);

/// The message file of `suffix` for the executable at `modulePath`, not yet made absolute:
/// "<folder>\..\..\Lang\Msg<suffix>.txt".
std::wstring ComposeMessageFilePath(std::wstring_view modulePath, std::wstring_view suffix);

/// The program's message texts; loaded by the first fetch, and again by every later fetch while
/// there are none, so that the user is told each time that texts are missing.
class Catalogue {
public:
    /// For the message file at `path`. The ports must outlive the catalogue.
    Catalogue(TextFiles& files, std::wstring path, Speaker& speaker) noexcept
        : files_(files), path_(std::move(path)), speaker_(speaker) {}

    /// The text of `number`, or kMissingText.
    std::wstring Fetch(std::uint16_t number);

    /// The text of `number`, for who can do without it: nobody is told when there is none.
    std::optional<std::wstring> Find(std::uint16_t number);

private:
    /// Reads the file unless there are texts; false when it cannot be read.
    bool Load();
    std::optional<std::wstring> Entry(std::uint16_t number) const;

    TextFiles& files_;
    std::wstring path_;
    Speaker& speaker_;
    CatalogueEntries entries_;
};

}  // namespace ferry::lang
