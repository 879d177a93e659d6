#include "controls/list_items.h"

#include <mutex>
#include <utility>

#include "paths/path_helpers.h"

namespace ferry::controls {

void ListItems::Append(base::TextList list) {
    const std::lock_guard guard(lock_);
    texts_.push_back(std::move(list));
    for (const std::wstring_view path : texts_.back()) {
        const std::wstring_view name = paths::LastComponent(path);
        items_.emplace_back(path, static_cast<std::uint32_t>(path.size() - name.size()));
    }
}

void ListItems::Clear() {
    const std::lock_guard guard(lock_);
    items_.clear();
    texts_.clear();
}

}  // namespace ferry::controls
