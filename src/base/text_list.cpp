// An ordered list of texts that lie together in a few large blocks of memory.
#include "base/text_list.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace ferry::base {

namespace {

// Blocks double from a size that suits a handful of paths to one at which a further doubling no
// longer makes a million of them cheaper.
constexpr std::size_t kFirstBlockUnits = 4096;
constexpr std::size_t kLargestBlockUnits = std::size_t{4} << 20;

}  // namespace

TextList::TextList(TextList&& other) noexcept
    : blocks_(std::exchange(other.blocks_, {})),
      views_(std::exchange(other.views_, {})),
      used_(std::exchange(other.used_, 0)),
      capacity_(std::exchange(other.capacity_, 0)) {}

TextList& TextList::operator=(TextList&& other) noexcept {
    // Each exchange empties the other list first, so that even assigning to itself loses nothing.
    blocks_ = std::exchange(other.blocks_, {});
    views_ = std::exchange(other.views_, {});
    used_ = std::exchange(other.used_, 0);
    capacity_ = std::exchange(other.capacity_, 0);
    return *this;
}

void TextList::Append(std::wstring_view text) {
    const std::size_t needed = text.size() + 1;
    if (capacity_ - used_ < needed) {
        const std::size_t next = std::clamp(capacity_ * 2, kFirstBlockUnits, kLargestBlockUnits);
        const std::size_t units = std::max(next, needed);
        blocks_.push_back(std::make_unique_for_overwrite<wchar_t[]>(units));
        capacity_ = units;
        used_ = 0;
    }
    wchar_t* const copy = blocks_.back().get() + used_;
    std::copy_n(text.data(), text.size(), copy);
    copy[text.size()] = L'\0';
    views_.emplace_back(copy, text.size());
    used_ += needed;
}

void TextList::Append(TextList&& list) {
    if (IsEmpty()) {
        *this = std::move(list);
        return;
    }
    // Room first: what throws must do so before anything has moved.
    blocks_.reserve(blocks_.size() + list.blocks_.size());
    views_.insert(views_.end(), list.views_.begin(), list.views_.end());
    std::ranges::move(list.blocks_, std::back_inserter(blocks_));
    // Further texts go on in the last block.
    if (!list.blocks_.empty()) {
        used_ = list.used_;
        capacity_ = list.capacity_;
    }
    list.Clear();
}

void TextList::Clear() noexcept {
    *this = TextList();
}

}  // namespace ferry::base
