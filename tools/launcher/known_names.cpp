#include "launcher/known_names.h"

#include <iterator>

#include "paths/path_grammar.h"

namespace ferry::launcher {

bool KnownNames::Exists(const std::wstring& path) {
    Enter(paths::ParentWithSeparator(path));
    return names_.contains(std::wstring(paths::LastComponent(path))) || ask_(path);
}

void KnownNames::Enter(std::wstring_view folder) {
    if (folder != folder_) {
        folder_ = folder;
        asked_ = 0;
        names_.clear();
    }
    if (++asked_ != kEnoughToList)
        return;
    std::vector<std::wstring> names = list_(folder_);
    names_.insert(std::make_move_iterator(names.begin()), std::make_move_iterator(names.end()));
}

}  // namespace ferry::launcher
