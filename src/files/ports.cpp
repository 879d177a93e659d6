#include "files/ports.h"

#include <string>

#include "paths/path_grammar.h"

namespace ferry::files {

void ForEachEntry(FolderSearch& search, std::wstring_view folder,
                  const std::function<void(const Match&)>& visit) {
    search.Search(paths::WithTrailingSeparator(folder) + L'*', [&visit](const Match& match) {
        if (match.Name != L"." && match.Name != L"..") {
            visit(match);
        }
        return true;
    });
}

}  // namespace ferry::files
