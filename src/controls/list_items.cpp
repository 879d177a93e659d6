#include "controls/list_items.h"

#include <mutex>
#include <utility>

namespace ferry::controls {

void ListItems::Append(base::TextList list) {
    const std::lock_guard guard(lock_);
    const std::size_t before = Size();
    paths_.Append(std::move(list));
    for (std::size_t index = before; index < paths_.Size(); ++index) {
        icons_.emplace_back(kNoIcon);
        KeepIfLonger(paths_[index]);
    }
}

/// One look at the place where the name of most items begins: the memory of a million paths takes longer to
/// read than to think about.
void ListItems::KeepIfLonger(std::wstring_view path) noexcept {
    const std::size_t longest = longestName_.size();
    if (path.size() <= longest ||
        path.substr(path.size() - longest - 1).find(L'\\') != std::wstring_view::npos) {
        return;
    }
    longestName_ = paths::LastComponent(path);
}

void ListItems::Clear() {
    const std::lock_guard guard(lock_);
    longestName_ = {};
    icons_.clear();
    paths_.Clear();
}

}  // namespace ferry::controls
