// The paths that may complete a typed one.
#include "completion/candidates.h"

#include "base/case_order.h"
#include "completion/field_text.h"
#include "paths/path_grammar.h"

namespace ferry::completion {

std::wstring SearchText(std::wstring_view text, std::wstring_view searchBase) {
    if (!IsRelative(text) || searchBase.empty()) {
        return std::wstring(text);
    }
    if (text.starts_with(L'\\')) {
        text.remove_prefix(1);
    }
    return paths::WithTrailingSeparator(searchBase).append(text);
}

std::wstring SearchPattern(std::wstring_view text) {
    const std::wstring_view typed = paths::LastComponent(text);
    if (typed.size() < 2) {
        return std::wstring(text).append(L"*");
    }
    return std::wstring(paths::ParentWithSeparator(text)).append(L"*").append(typed).append(L"*");
}

std::vector<std::wstring> FindCandidates(files::FolderSearch& search, std::wstring_view text,
                                         bool foldersOnly) {
    std::vector<std::wstring> names;
    if (text.size() < kMinSearchLength) {
        return names;
    }
    search.Search(SearchPattern(text), [&](const files::Match& match) {
        const bool isFolder = files::IsFolder(match.Attributes);
        if (match.Name != L"." && match.Name != L".." && (isFolder || !foldersOnly)) {
            std::wstring& name = names.emplace_back();
            name.reserve(match.Name.size() + 1);
            name.append(match.Name);
            if (isFolder) {
                name.push_back(L'\\');
            }
        }
        return names.size() <= kMaxCandidates;
    });
    // All candidates share the folder in front, so their order is that of the names.
    base::SortIgnoringCase(names);
    const paths::PathParts parts = paths::SplitPath(text);
    const std::wstring folder = std::wstring(parts.Drive).append(parts.Folder);
    for (std::wstring& name : names) {
        name.insert(0, folder);
    }
    return names;
}

}  // namespace ferry::completion
