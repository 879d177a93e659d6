// Links from one folder to another.
#pragma once

#include <string>

namespace ferry::e2e {

/// Makes `link` lead to the folder `target`: a junction, or under Wine a link of the system below it, since
/// Wine makes none itself. Waits until it can be listed; false when it cannot.
bool MakeFolderLink(const std::wstring& link, const std::wstring& target);

/// Removes the link and leaves the folder that it leads to. False when it stays.
bool RemoveFolderLink(const std::wstring& link);

}  // namespace ferry::e2e
