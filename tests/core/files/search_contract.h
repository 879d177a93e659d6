// What the program relies on when it searches folders. The made-up ones, those of the model and the real ones
// are held against the same tests.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "files/ports.h"
#include "support/contract.h"

namespace ferry::files::contract {

/// A search under test, with a folder for it to look into.
class SearchPlace {
public:
    virtual ~SearchPlace() = default;

    virtual FolderSearch& Search() = 0;

    /// The folder: empty at first, with its separator.
    virtual std::wstring Folder() = 0;

    /// Adds an entry to the folder, by other means than the search.
    virtual void AddFolder(const std::wstring& name) = 0;
    virtual void AddFile(const std::wstring& name) = 0;

    /// Sets when an entry was last written and last used, by other means than the search.
    virtual void SetTimes(const std::wstring& name, const ItemTimes& times) = 0;
};

class SearchContract : public test::ContractOf<SearchPlace> {
protected:
    using Names = std::vector<std::wstring>;

    /// The names that fit `mask` in the folder, sorted; those of folders with a backslash.
    Names Find(const std::wstring& mask);

    FolderSearch& Search() { return AtPlace().Search(); }
    std::wstring Folder() { return AtPlace().Folder(); }
};

}  // namespace ferry::files::contract
