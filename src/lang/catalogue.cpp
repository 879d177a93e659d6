// Message texts by number, from the language's message file.
#include "lang/catalogue.h"

#include <vector>

#include "base/line_reader.h"
#include "base/text.h"
#include "lang/message_line.h"
#include "paths/path_grammar.h"

namespace ferry::lang {

void ParseCatalogue(std::wstring_view fileText, CatalogueEntries& entries) {
    base::LineReader reader(fileText);
    for (std::wstring_view raw; reader.Next(raw);) {
        // The escape becomes a line feed before the trimming, which takes it off the end again.
        const std::wstring cleaned = base::ReplaceAll(WithoutMarks(raw), L"\\n", L"\n");
        const std::wstring_view line = base::Trim(cleaned);
        if (IsComment(line)) {
            continue;
        }
        if (IsEndOfFile(line)) {
            return;
        }
        const std::vector<std::wstring_view> pieces = base::Split(line, L'\t');
        if (pieces.size() == 2) {
            entries[static_cast<std::uint16_t>(base::ToInt(pieces[0]))] = pieces[1];
        }
    }
}

std::wstring ComposeMessageFilePath(std::wstring_view modulePath, std::wstring_view suffix) {
    return std::wstring(paths::ParentWithSeparator(modulePath))
        .append(L"..\\..\\Lang\\Msg")
        .append(suffix)
        .append(L".txt");
}

std::wstring Catalogue::Fetch(std::uint16_t number) {
    if (!Load()) {
        speaker_.Tell(L"Cannot open message file.\n" + path_, Tone::Plain);
    }
    return Entry(number).value_or(kMissingText);
}

std::optional<std::wstring> Catalogue::Find(std::uint16_t number) {
    Load();
    return Entry(number);
}

bool Catalogue::Load() {
    if (!entries_.empty()) {
        return true;
    }
    const std::optional<std::wstring> text = files_.Read(path_);
    if (text) {
        ParseCatalogue(*text, entries_);
    }
    return text.has_value();
}

std::optional<std::wstring> Catalogue::Entry(std::uint16_t number) const {
    const auto found = entries_.find(number);
    return found == entries_.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace ferry::lang
