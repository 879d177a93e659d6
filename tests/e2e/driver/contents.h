// What the files of a tree hold, whatever they are called: nothing of it may be lost.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace ferry::e2e {

/// Every content below a folder, and in how many files it stands.
using Contents = std::map<std::string, std::size_t>;

/// The contents of all files below `root`.
Contents ContentsBelow(const std::wstring& root);

/// The full paths of all files below `root`, a folder's own where a search meets it.
std::vector<std::wstring> FilesBelow(const std::wstring& root);

}  // namespace ferry::e2e
