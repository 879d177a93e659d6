// The order of names in a menu.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ferry::dirmenu {

/// Whether `left` stands before `right`: digits that lie together count as one number, everything else by its
/// small letters, unit by unit. Names that differ in case or in leading zeros only stand in the order of
/// their units, so that the order is the same whatever a search finds first.
bool ComesBefore(std::wstring_view left, std::wstring_view right) noexcept;

/// Sorts by ComesBefore.
void SortNames(std::vector<std::wstring>& names);

}  // namespace ferry::dirmenu
