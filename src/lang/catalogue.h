// Message texts by number, from the language's message file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

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

/// Where the catalogue gets its file's text from.
class CatalogueSource {
public:
    virtual ~CatalogueSource() = default;

    /// The units of the message file, or nothing when it cannot be opened.
    virtual std::optional<std::wstring> ReadMessageFile() = 0;

    /// Tells the user that the message file cannot be opened.
    virtual void ReportCannotOpen() = 0;
};

/// The program's message texts; loaded by the first fetch, and again by every later fetch while
/// there are none, so that the user is told each time that texts are missing.
class Catalogue {
public:
    /// `source` must outlive the catalogue.
    explicit Catalogue(CatalogueSource& source) noexcept : source_(source) {}

    /// The text of `number`, or kMissingText.
    std::wstring Fetch(std::uint16_t number);

private:
    CatalogueSource& source_;
    CatalogueEntries entries_;
};

}  // namespace ferry::lang
