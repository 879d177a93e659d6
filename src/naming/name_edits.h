// The one-click editing operations on a name: pure functions of a text.
#pragma once

#include <string>
#include <string_view>

namespace ferry::naming {

/// `name` without the markers that a shell puts into the names of copies.
/// Plain markers go wherever they stand; a numbered one must be found at the start of the name, or
/// behind a first word, by the rules of scanf, and then goes wherever its number stands.
std::wstring RemoveCopyMarkers(std::wstring_view name);

/// `name` without the run of ASCII digits at its end; fullwidth digits stay.
std::wstring RemoveTrailingDigits(std::wstring_view name);

/// `name` without the run of ASCII digits at its start; fullwidth digits stay.
std::wstring RemoveLeadingDigits(std::wstring_view name);

/// `text` in capitals by the case mapping of the process's locale, or of the language that stands in for it.
/// The length stays; units of a surrogate pair are copied unchanged.
std::wstring ToUpper(std::wstring_view text);

/// `text` in small letters; otherwise like ToUpper.
std::wstring ToLower(std::wstring_view text);

/// `name` with a capital at the start of each word and small letters inside.
/// Only Latin letters change, ASCII and fullwidth ones, in every locale. Spaces, hyphens, low
/// lines and digits, ASCII and fullwidth, stand between words.
std::wstring CapitaliseWords(std::wstring_view name);

}  // namespace ferry::naming
