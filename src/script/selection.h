// The selected items of a run, which scripts read and change.
#pragma once

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "script/limits.h"

namespace ferry::script {

/// The caller's list of items, with a watch over how long it gets.
class Selection {
public:
    /// `items` must outlive this object.
    explicit Selection(std::vector<std::wstring>& items) : items_(items) {
        for (const std::wstring& item : items) {
            units_ += item.size();
        }
    }

    const std::vector<std::wstring>& Items() const noexcept { return items_; }

    std::size_t Count() const noexcept { return items_.size(); }

    /// Appends all of `items`, or none and false when there would be too many or too much.
    bool Append(std::span<const std::wstring_view> items) {
        std::size_t units = units_;
        for (const std::wstring_view item : items) {
            units += item.size();
        }
        if (items.size() > kMaxItems - std::min(items_.size(), kMaxItems) || units > kMaxGatheredUnits) {
            return false;
        }
        items_.insert(items_.end(), items.begin(), items.end());
        units_ = units;
        return true;
    }

    void Clear() noexcept {
        items_.clear();
        units_ = 0;
    }

private:
    std::vector<std::wstring>& items_;
    std::size_t units_ = 0;
};

}  // namespace ferry::script
