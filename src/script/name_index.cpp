#include "script/name_index.h"

#include <utility>

namespace ferry::script {

namespace {

constexpr std::uint32_t kNoNode = 0;
constexpr std::uint32_t kRootNode = 1;

std::uint64_t KeyOf(std::uint32_t node, wchar_t unit) noexcept {
    return std::uint64_t{node} << 32 | static_cast<std::uint32_t>(unit);
}

std::size_t PlaceOf(std::uint64_t key, std::size_t count) noexcept {
    // The multiplier of Fibonacci hashing, 2^64 divided by the golden ratio.
    return static_cast<std::size_t>(key * 0x9E3779B97F4A7C15U >> 32) & (count - 1);
}

}  // namespace

NameIndex::NameIndex() : steps_(64), numbers_(2, kNone) {}

void NameIndex::Add(std::wstring_view name, std::uint32_t number) {
    std::uint32_t node = kRootNode;
    for (const wchar_t unit : name) {
        const std::uint32_t child = Child(node, unit);
        node = child != kNoNode ? child : AddChild(node, unit);
    }
    numbers_[node] = number;
}

std::uint32_t NameIndex::At(std::wstring_view text, std::size_t at) const noexcept {
    std::uint32_t node = FirstChild(text[at]);
    while (node != kNoNode && numbers_[node] == kNone) {
        ++at;
        node = at < text.size() ? Child(node, text[at]) : kNoNode;
    }
    return node != kNoNode ? numbers_[node] : kNone;
}

std::uint32_t NameIndex::Find(std::wstring_view text) const noexcept {
    std::uint32_t node = kRootNode;
    for (const wchar_t unit : text) {
        node = Child(node, unit);
        if (node == kNoNode) {
            return kNone;
        }
    }
    return numbers_[node];
}

std::uint32_t NameIndex::Child(std::uint32_t node, wchar_t unit) const noexcept {
    const std::uint64_t key = KeyOf(node, unit);
    std::size_t place = PlaceOf(key, steps_.size());
    while (steps_[place].Key != 0 && steps_[place].Key != key) {
        place = (place + 1) & (steps_.size() - 1);
    }
    return steps_[place].Key == key ? steps_[place].To : kNoNode;
}

std::uint32_t NameIndex::AddChild(std::uint32_t node, wchar_t unit) {
    // At most half full, so that a search soon meets an empty place.
    if ((used_ + 1) * 2 > steps_.size()) {
        Grow();
    }
    const auto child = static_cast<std::uint32_t>(numbers_.size());
    numbers_.push_back(kNone);
    Place({KeyOf(node, unit), child});
    ++used_;
    const std::size_t index = static_cast<std::uint32_t>(unit);
    if (node == kRootNode && index < firstChildren_.size()) {
        firstChildren_[index] = child;
    }
    return child;
}

void NameIndex::Place(Step step) noexcept {
    std::size_t place = PlaceOf(step.Key, steps_.size());
    while (steps_[place].Key != 0) {
        place = (place + 1) & (steps_.size() - 1);
    }
    steps_[place] = step;
}

void NameIndex::Grow() {
    std::vector<Step> old(steps_.size() * 2);
    std::swap(old, steps_);
    for (const Step& step : old) {
        if (step.Key != 0) {
            Place(step);
        }
    }
}

}  // namespace ferry::script
