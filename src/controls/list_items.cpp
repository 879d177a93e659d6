#include "controls/list_items.h"

#include <mutex>
#include <utility>

#include "paths/path_helpers.h"

namespace ferry::controls {

void ListItems::Append(base::TextList list) {
    const std::lock_guard guard(lock_);
    const std::size_t before = Size();
    paths_.Append(std::move(list));
    for (std::size_t index = before; index < paths_.Size(); ++index) {
        const std::wstring_view path = paths_[index];
        const std::wstring_view name = paths::LastComponent(path);
        extras_.emplace_back(static_cast<std::uint32_t>(path.size() - name.size()));
        if (name.size() > longestName_.size()) {
            longestName_ = name;
        }
    }
}

void ListItems::Clear() {
    const std::lock_guard guard(lock_);
    longestName_ = {};
    extras_.clear();
    paths_.Clear();
}

}  // namespace ferry::controls
