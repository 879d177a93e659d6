// What the catalogue relies on in the source of its file. The message file in memory and the one on a disk
// are held against the same tests.
#pragma once

#include <string>
#include <string_view>

#include "lang/catalogue.h"
#include "support/contract.h"

namespace ferry::lang::contract {

/// A source under test, whose file is missing at first.
class Place {
public:
    virtual ~Place() = default;

    virtual CatalogueSource& Source() = 0;

    /// Puts a message file of these units in place, by other means than the source.
    virtual void Write(std::wstring_view units) = 0;

    /// Takes it away.
    virtual void Remove() = 0;

    /// Whether ReportCannotOpen tells the person; whoever has to answer has answered afterwards.
    virtual bool Reports() = 0;
};

class SourceContract : public test::ContractOf<Place> {
protected:
    CatalogueSource& Source() { return AtPlace().Source(); }
};

}  // namespace ferry::lang::contract
