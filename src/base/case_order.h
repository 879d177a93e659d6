// Texts compared without regard to case, and their order in a list.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace ferry::base {

/// The small letter of `unit`, by the simple mapping of Unicode, for the alphabets that have two
/// cases and are in everyday use; every other unit is itself. The same on every host and in every
/// locale.
wchar_t ToSmall(wchar_t unit) noexcept;

/// `text` with each of its units made small.
std::wstring SmallLetters(std::wstring_view text);

/// Whether both texts are equal when capitals and small letters are not told apart, unit by unit.
bool EqualsIgnoringCase(std::wstring_view left, std::wstring_view right) noexcept;

/// Sorts by the small letters of the whole texts, unit by unit; texts that differ in case only
/// stand in the order of their units.
void SortIgnoringCase(std::vector<std::wstring>& texts);

}  // namespace ferry::base
