// The masks of a search.
#pragma once

#include <string_view>

namespace ferry::test {

/// Whether `name` fits `mask`, in which "*" stands for any text and "?" for any character; both in small
/// letters.
inline bool Fits(std::wstring_view mask, std::wstring_view name) {
    if (mask.empty())
        return name.empty();
    if (mask.front() == L'*')
        return Fits(mask.substr(1), name) || (!name.empty() && Fits(mask, name.substr(1)));
    return !name.empty() && (mask.front() == L'?' || mask.front() == name.front()) &&
           Fits(mask.substr(1), name.substr(1));
}

}  // namespace ferry::test
