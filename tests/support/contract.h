// Tests that hold a port's fake and its real adapter against the same expectations.
#pragma once

#include <gtest/gtest.h>

#include <memory>

namespace ferry::test {

/// Makes the place in which a contract is tested: a port under test, and what looks at it by other means.
template <class Place>
using PlaceMaker = std::unique_ptr<Place> (*)();

/// The maker of `Concrete`, for the suites that hold a contract.
template <class Place, class Concrete>
std::unique_ptr<Place> Make() {
    return std::make_unique<Concrete>();
}

/// A contract, tested in a fresh place each time.
template <class Place>
class ContractOf : public testing::TestWithParam<PlaceMaker<Place>> {
protected:
    Place& AtPlace() const { return *place_; }

private:
    std::unique_ptr<Place> place_ = this->GetParam()();
};

}  // namespace ferry::test
