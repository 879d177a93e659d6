// What completion relies on in its lookup. The made-up file system and the real one are held against the
// same tests.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "completion/folder_lookup.h"
#include "support/contract.h"

namespace ferry::completion::contract {

/// A lookup under test, with a folder for it to look into.
class Place {
public:
    virtual ~Place() = default;

    virtual FolderLookup& Lookup() = 0;

    /// The folder: empty at first, with its separator.
    virtual std::wstring Folder() = 0;

    /// Adds an entry to the folder, by other means than the lookup.
    virtual void AddFolder(const std::wstring& name) = 0;
    virtual void AddFile(const std::wstring& name) = 0;
};

class LookupContract : public test::ContractOf<Place> {
protected:
    using Names = std::vector<std::wstring>;

    /// The names that fit `mask` in the folder, sorted; those of folders with a backslash.
    Names Find(const std::wstring& mask);

    FolderLookup& Lookup() { return AtPlace().Lookup(); }
    std::wstring Folder() { return AtPlace().Folder(); }
};

}  // namespace ferry::completion::contract
