// What the file-operation service wrote down about the operations it was asked for.
#pragma once

#include <string>
#include <vector>

namespace ferry::e2e {

/// One line, split at its TABs: the method, then its arguments.
using FileOpLine = std::vector<std::wstring>;

/// The lines of the log at `path`; none when there is no file.
std::vector<FileOpLine> ReadFileOpLog(const std::wstring& path);

/// The lines whose method is `method`.
std::vector<FileOpLine> LinesOf(const std::vector<FileOpLine>& log, const std::wstring& method);

/// The values given to SetOperationFlags, in order.
std::vector<unsigned long> FlagsIn(const std::vector<FileOpLine>& log);

}  // namespace ferry::e2e
