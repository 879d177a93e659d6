// Whole UTF-16 text files.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ferry::lang {

/// Reads and writes text files as the host does. Paths have any length.
class TextFiles {
public:
    virtual ~TextFiles() = default;

    /// The units of the file at `path`, or nothing when it cannot be opened. While it is read nobody
    /// else may write to it.
    virtual std::optional<std::wstring> Read(std::wstring_view path) = 0;

    /// Writes `units` as the file at `path`, whose folder must exist. False when that failed; then no
    /// part of the file is left behind.
    virtual bool Write(std::wstring_view path, std::wstring_view units) = 0;
};

}  // namespace ferry::lang
