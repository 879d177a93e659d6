// What texts rely on in their files. The one in memory and those on a disk are held against the same tests.
#pragma once

#include <string>
#include <string_view>

#include "lang/text_files.h"
#include "support/contract.h"

namespace ferry::lang::contract {

/// Text files under test, with the path of one that is missing at first.
class Place {
public:
    virtual ~Place() = default;

    virtual TextFiles& Files() = 0;
    virtual std::wstring Path() = 0;

    /// Puts a file of these units in place, by other means than the port.
    virtual void Write(std::wstring_view units) = 0;

    /// Takes it away.
    virtual void Remove() = 0;
};

class TextFilesContract : public test::ContractOf<Place> {
protected:
    TextFiles& Files() { return AtPlace().Files(); }
    std::wstring Path() { return AtPlace().Path(); }
};

}  // namespace ferry::lang::contract
