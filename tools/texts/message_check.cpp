#include "texts/message_check.h"

#include <utility>
#include <vector>

#include "base/line_reader.h"
#include "base/text.h"
#include "lang/message_line.h"
#include "texts/placeholders.h"

namespace ferry::texts {

namespace {

struct MessageLine {
    std::size_t Line = 0;
    std::wstring Text;                                          ///< Without its ends.
    std::vector<std::pair<std::uint16_t, std::wstring>> Entry;  ///< At most one.
};

/// The lines of a message file that say something, each as the program itself understands it.
std::vector<MessageLine> LinesOf(std::wstring_view text) {
    std::vector<MessageLine> lines;
    base::LineReader reader(text);
    std::size_t number = 0;
    for (std::wstring_view raw; reader.Next(raw);) {
        ++number;
        const std::wstring cleaned = lang::WithoutMarks(raw);
        const std::wstring_view line = base::Trim(cleaned);
        if (lang::IsEndOfFile(line)) {
            break;
        }
        if (line.empty() || lang::IsComment(line)) {
            continue;
        }
        lang::CatalogueEntries entries;
        lang::ParseCatalogue(line, entries);
        lines.push_back({number, std::wstring(line), {entries.begin(), entries.end()}});
    }
    return lines;
}

/// The number that a line of a source gives a name to; 0 when it does not.
std::uint16_t NamedNumber(std::wstring_view line) {
    constexpr std::wstring_view kType = L"constexpr std::uint16_t k";
    const std::size_t equals = line.find(L" = ");
    if (line.find(kType) == std::wstring_view::npos || equals == std::wstring_view::npos) {
        return 0;
    }
    const std::wstring_view value = line.substr(equals + 3);
    const std::size_t digits = value.find_first_not_of(L"0123456789");
    const bool isMessage = digits != std::wstring_view::npos && digits >= 4 && value[digits] == L';';
    return isMessage ? static_cast<std::uint16_t>(base::ToInt(value)) : std::uint16_t{0};
}

std::wstring Message(std::uint16_t number) {
    return L"message " + std::to_wstring(number);
}

}  // namespace

void FindUsedNumbers(std::wstring_view source, const std::wstring& file, UsedNumbers& used) {
    base::LineReader reader(source);
    std::size_t number = 0;
    for (std::wstring_view line; reader.Next(line);) {
        ++number;
        if (const std::uint16_t named = NamedNumber(line); named != 0) {
            used.emplace(named, NumberPlace{file, number});
        }
    }
}

Findings CheckMessages(std::wstring_view text, const std::wstring& file, const UsedNumbers& used) {
    Findings findings;
    std::map<std::uint16_t, std::size_t> seen;
    for (const MessageLine& line : LinesOf(text)) {
        if (line.Entry.empty()) {
            findings.push_back({file, line.Line, L"this line has no effect: \"" + line.Text + L"\""});
            continue;
        }
        const auto& [number, message] = line.Entry.front();
        const auto [place, isNew] = seen.emplace(number, line.Line);
        if (!isNew) {
            findings.push_back(
                {file, line.Line,
                 Message(number) + L" stands in line " + std::to_wstring(place->second) + L" already"});
        }
        if (message.empty()) {
            findings.push_back({file, line.Line, Message(number) + L" has no text"});
        }
    }
    for (const auto& [number, place] : used) {
        if (!seen.contains(number)) {
            findings.push_back({place.File, place.Line, Message(number) + L" is not in " + file});
        }
    }
    return findings;
}

Findings CompareMessages(std::wstring_view text, const std::wstring& file, std::wstring_view original) {
    Findings findings;
    lang::CatalogueEntries wanted;
    lang::ParseCatalogue(original, wanted);
    lang::CatalogueEntries found;
    for (const MessageLine& line : LinesOf(text)) {
        if (line.Entry.empty()) {
            continue;
        }
        const auto& [number, message] = line.Entry.front();
        found.emplace(number, message);
        const auto counterpart = wanted.find(number);
        if (counterpart == wanted.end()) {
            findings.push_back({file, line.Line, Message(number) + L" is surplus"});
        } else if (PlaceholdersOf(counterpart->second) != PlaceholdersOf(message)) {
            findings.push_back(
                {file, line.Line,
                 L"the placeholders of " + Message(number) + L" differ: \"" + message + L"\""});
        }
    }
    const std::map<std::uint16_t, std::wstring> inOrder(wanted.begin(), wanted.end());
    for (const auto& [number, message] : inOrder) {
        if (!found.contains(number)) {
            findings.push_back({file, 0, Message(number) + L" is missing: \"" + message + L"\""});
        }
    }
    return findings;
}

}  // namespace ferry::texts
