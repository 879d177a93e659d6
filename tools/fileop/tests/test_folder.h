// A folder of a test's own, and the few things that tests do with files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/disk_win32.h"

namespace ferry::fileop {

using test::Exists;

/// Makes a new empty folder and removes it with its content at the end.
class TestFolder {
public:
    /// Under the folder for temporary files.
    TestFolder();

    /// Under `parent`; Path() is empty when it cannot be made.
    explicit TestFolder(const std::wstring& parent);
    ~TestFolder();

    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    const std::wstring& Path() const noexcept { return path_; }

    /// The path of `name` inside the folder.
    std::wstring In(std::wstring_view name) const;

    /// Makes the folder `name` with its parents; gives its path.
    std::wstring MakeFolder(std::wstring_view name) const;

    /// Makes the file `name` with its parents; gives its path.
    std::wstring MakeFile(std::wstring_view name, std::string_view content) const;

private:
    std::wstring path_;
};

/// The content of a file; "<missing>" when it cannot be read.
std::string ContentOf(const std::wstring& path);
void WriteContent(const std::wstring& path, std::string_view content);

/// Every file and folder below `folder`, relative to it, sorted; a folder ends with a separator.
std::vector<std::wstring> TreeOf(const std::wstring& folder);

}  // namespace ferry::fileop
