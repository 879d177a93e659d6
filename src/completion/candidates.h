// The paths that may complete a typed one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "files/ports.h"

namespace ferry::completion {

/// A shorter text is not searched for.
inline constexpr std::size_t kMinSearchLength = 2;

/// A search stops as soon as it has more candidates than this, which bounds the time that the user
/// waits for a very large folder.
inline constexpr std::size_t kMaxCandidates = 5000;

/// What is searched for when `text` stands in the field: a relative text is put below `searchBase`,
/// if there is one, without one leading backslash of its own.
std::wstring SearchText(std::wstring_view text, std::wstring_view searchBase);

/// The pattern for `text`: names that contain its last component, or, when that has less than two
/// units, names that begin with it.
std::wstring SearchPattern(std::wstring_view text);

/// The full paths of what completes `text`, folders with a backslash at their end, sorted without
/// regard to case. Files are left out with `foldersOnly`. None for a text shorter than
/// kMinSearchLength, and at most one more than kMaxCandidates.
std::vector<std::wstring> FindCandidates(files::FolderSearch& search, std::wstring_view text,
                                         bool foldersOnly);

}  // namespace ferry::completion
