#include "files/ports.h"

#include <string>

#include "paths/path_grammar.h"

namespace ferry::files {

std::uint32_t ForEachEntry(FolderSearch& search, std::wstring_view folder,
                           const std::function<bool(const Match&)>& visit) {
    return search.Search(paths::WithTrailingSeparator(folder) + L'*', [&visit](const Match& match) {
        return match.Name == L"." || match.Name == L".." || visit(match);
    });
}

}  // namespace ferry::files
