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
    if (path.size() <= longest) {
        return;
    }
    if (path.ends_with(L'\\') ||
        path.substr(path.size() - longest - 1).find(L'\\') == std::wstring_view::npos) {
        const std::wstring_view name = paths::ShownName(path);
        longestName_ = name.size() > longest ? name : longestName_;
    }
}

void ListItems::Clear() {
    const std::lock_guard guard(lock_);
    ++round_;
    longestName_ = {};
    icons_.clear();
    paths_.Clear();
}

bool ListItems::Has(std::size_t index, unsigned round) const noexcept {
    return round == round_ && index < Size();
}

std::optional<std::wstring> ListItems::PathWithoutIcon(std::size_t index, unsigned round) {
    const std::lock_guard guard(lock_);
    if (!Has(index, round) || icons_[index] != kNoIcon) {
        return std::nullopt;
    }
    return std::wstring(paths_[index]);
}

void ListItems::SetIcon(std::size_t index, unsigned round, int icon) {
    const std::lock_guard guard(lock_);
    if (Has(index, round)) {
        icons_[index] = icon;
    }
}

}  // namespace ferry::controls
