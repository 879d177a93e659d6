// The texts of the destination field: what must hold of any text, any base and any names found.
#include <algorithm>
#include <vector>

#include "base/case_order.h"
#include "completion/candidates.h"
#include "completion/field_text.h"
#include "completion/history.h"
#include "completion/key_table.h"
#include "fuzz_input.h"
#include "paths/path_grammar.h"

namespace {

using namespace ferry;
using fuzz::Require;

/// Finds the lines of the input.
class InputLookup : public files::FolderSearch {
public:
    explicit InputLookup(std::vector<std::wstring_view> names) : names_(std::move(names)) {}

    std::uint32_t Search(std::wstring_view pattern,
                         const std::function<bool(const files::Match&)>& visit) override {
        Pattern = pattern;
        for (const std::wstring_view name : names_) {
            ++Visited;
            if (!visit({name, name.size() % 2 == 0 ? files::kAttributeDirectory : 0, {}})) {
                return 0;
            }
        }
        return 0;
    }

    std::wstring Pattern;
    std::size_t Visited = 0;

private:
    std::vector<std::wstring_view> names_;
};

void CheckFieldText(std::wstring_view text, std::wstring_view baseFolder) {
    const std::wstring canonical = completion::Canonical(text);
    Require(completion::Canonical(canonical) == canonical, "a canonical form is its own");
    Require(canonical.size() <= text.size(), "a canonical form is not longer");
    Require(completion::IsRelative(baseFolder) ||
                !completion::IsRelative(completion::ResolveAgainst(baseFolder, text)),
            "a resolved text is not relative");
    std::wstring rest(text);
    for (std::size_t step = 0; step <= text.size(); ++step) {
        const auto up = completion::UpOneLevel(rest);
        Require(!up || (!up->empty() && up->size() < rest.size() && rest.starts_with(*up)),
                "a step up shortens the text from its end");
        Require(up.has_value() || step < text.size() || text.empty(), "the steps up come to an end");
        if (!up) {
            break;
        }
        rest = *up;
    }
    if (const auto root = completion::RootFor(text)) {
        Require(text.size() < 3 && root->ends_with(L'\\'), "a root ends with its backslash");
        Require(completion::OfferFor(text, 0) == completion::Offer::PutRoot, "a root is put at once");
    } else if (text.size() == 1) {
        Require(completion::OfferFor(text, 1) == completion::Offer::Nothing, "one character stays alone");
    }
}

void CheckSearch(std::wstring_view text, std::wstring_view searchBase,
                 const std::vector<std::wstring_view>& names) {
    const std::wstring search = completion::SearchText(text, searchBase);
    Require(completion::IsRelative(text) || search == text, "an absolute text is searched for as it is");
    for (const bool foldersOnly : {true, false}) {
        InputLookup lookup(names);
        const auto found = completion::FindCandidates(lookup, search, foldersOnly);
        Require(found.size() <= completion::kMaxCandidates + 1, "the cap holds");
        Require(search.size() >= completion::kMinSearchLength || lookup.Visited == 0, "too short to search");
        const paths::PathParts parts = paths::SplitPath(search);
        const std::wstring folder = std::wstring(parts.Drive).append(parts.Folder);
        std::vector<std::wstring> sorted = found;
        base::SortIgnoringCase(sorted);
        Require(sorted == found, "candidates are sorted");
        Require(
            std::ranges::all_of(found, [&](const std::wstring& path) { return path.starts_with(folder); }),
            "candidates lie in the folder of the text");
    }
}

void CheckHistory(const std::vector<std::wstring_view>& texts) {
    completion::History history;
    for (const std::wstring_view text : texts) {
        const auto before = history.Entries();
        history.Add(text);
        const auto after = history.Entries();
        Require(text.empty() ? after == before : after.front() == text, "the text added last is in front");
        Require(after.size() >= before.size(), "no entry is lost while there is room");
        Require(std::ranges::count(after, text) == (text.empty() ? 0 : 1), "an entry stands there once");
    }
}

std::vector<std::wstring_view> Lines(std::wstring_view text) {
    std::vector<std::wstring_view> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(L'\n'), text.size());
        lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The field's text and the base in the first two lines; the names of the folder follow. A field
    // holds no NUL.
    std::wstring units = fuzz::UnitsOf(data, size);
    std::erase(units, L'\0');
    const fuzz::ExactUnits input(units);
    std::vector<std::wstring_view> lines = Lines(input.View());
    lines.resize(std::max<std::size_t>(lines.size(), 2));
    const std::wstring_view text = lines[0];
    const std::wstring_view baseFolder = lines[1];
    lines.erase(lines.begin(), lines.begin() + 2);
    CheckFieldText(text, baseFolder);
    CheckSearch(text, baseFolder, lines);
    CheckHistory(lines);
    for (unsigned key = 0; key < 256; ++key) {
        const bool bit = !text.empty() && (text.front() & 1) != 0;
        static_cast<void>(completion::ActionOf(key, {bit, !bit, bit, bit, bit}));
    }
    return 0;
}
