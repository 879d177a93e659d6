#include "base/text_search.h"

namespace ferry::base {

namespace {

/// Up to here the plain search is the faster one, and its worst case is bearable.
constexpr std::size_t kShortPart = 32;

/// For each unit of `part` the length of the longest start of it that ends there, too, and is not all of it
/// (the failure function of Knuth, Morris and Pratt).
std::vector<std::uint32_t> BordersOf(std::wstring_view part) {
    std::vector<std::uint32_t> borders(part.size(), 0);
    std::uint32_t length = 0;
    for (std::size_t at = 1; at < part.size(); ++at) {
        while (length > 0 && part[at] != part[length]) {
            length = borders[length - 1];
        }
        length += part[at] == part[length] ? 1 : 0;
        borders[at] = length;
    }
    return borders;
}

/// How often `search` finds its part of `length` units in `text` without overlaps.
std::size_t CountOf(const TextSearch& search, std::size_t length, std::wstring_view text) {
    std::size_t count = 0;
    for (std::size_t at = search.Find(text, 0); at != std::wstring_view::npos;
         at = search.Find(text, at + length)) {
        ++count;
    }
    return count;
}

}  // namespace

TextSearch::TextSearch(std::wstring_view part) : part_(part) {
    if (part.size() > kShortPart) {
        borders_ = BordersOf(part);
    }
}

std::size_t TextSearch::Find(std::wstring_view text, std::size_t from) const noexcept {
    return borders_.empty() ? text.find(part_, from) : FindLong(text, from);
}

std::size_t TextSearch::FindLong(std::wstring_view text, std::size_t from) const noexcept {
    std::size_t length = 0;
    for (std::size_t at = from; at < text.size(); ++at) {
        while (length > 0 && text[at] != part_[length]) {
            length = borders_[length - 1];
        }
        length += text[at] == part_[length] ? 1 : 0;
        if (length == part_.size()) {
            return at + 1 - length;
        }
    }
    return std::wstring_view::npos;
}

bool ReplaceAllWithin(std::wstring& text, std::wstring_view from, std::wstring_view to,
                      std::size_t maxUnits) {
    if (from.empty()) {
        return true;
    }
    const TextSearch search(from);
    const std::size_t count = CountOf(search, from.size(), text);
    if (count == 0) {
        return true;
    }
    const std::size_t kept = text.size() - count * from.size();
    if (kept > maxUnits || (!to.empty() && count > (maxUnits - kept) / to.size())) {
        return false;
    }
    std::wstring result;
    result.reserve(kept + count * to.size());
    std::size_t begin = 0;
    for (std::size_t at = search.Find(text, 0); at != std::wstring::npos; at = search.Find(text, begin)) {
        result.append(text, begin, at - begin).append(to);
        begin = at + from.size();
    }
    text = std::move(result.append(text, begin));
    return true;
}

}  // namespace ferry::base
