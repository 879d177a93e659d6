// What a run relies on in its progress view. The view of the model and the progress window are held against
// the same tests.
#pragma once

#include <cstdint>
#include <string>

#include "support/contract.h"
#include "transfer/ports.h"

namespace ferry::transfer::contract {

/// A progress view under test and the person in front of it.
class ProgressPlace {
public:
    virtual ~ProgressPlace() = default;

    virtual Progress& View() = 0;

    /// The person asks for the end of the run.
    virtual void RequestCancel() = 0;

    /// Whether the person sees a bar at `position` of `range` and the name `line`, at the latest when the
    /// waiting messages have been handled for a while.
    virtual bool Shows(std::uint32_t position, std::uint32_t range, const std::wstring& line) = 0;
};

class ProgressContract : public test::ContractOf<ProgressPlace> {
protected:
    Progress& View() { return AtPlace().View(); }
};

}  // namespace ferry::transfer::contract
