// Finds and replaces a text in texts of any length, in a time that grows with their lengths alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ferry::base {

/// A text that is looked for.
class TextSearch {
public:
    /// `part` must outlive the search.
    explicit TextSearch(std::wstring_view part);

    /// Where the part stands in `text` first, at `from` or behind; npos when it does not. An empty part
    /// stands everywhere.
    std::size_t Find(std::wstring_view text, std::size_t from) const noexcept;

private:
    std::size_t FindLong(std::wstring_view text, std::size_t from) const noexcept;

    std::wstring_view part_;
    std::vector<std::uint32_t> borders_;
};

/// Replaces every occurrence of `from` in `text`, found from left to right, by `to`; what was put in is not
/// looked at. An empty `from` changes nothing. False, and nothing changes, when the text would have more than
/// `maxUnits` units.
bool ReplaceAllWithin(std::wstring& text, std::wstring_view from, std::wstring_view to, std::size_t maxUnits);

}  // namespace ferry::base
