// The clock that stands still keeps the contract that the system's clock keeps.
#include "core/naming/standing_clock.h"

#include "core/naming/clock_contract.h"

namespace ferry::naming::contract {
namespace {

class StandingPlace final : public Place {
public:
    StandingPlace() {
        clock_.Times[DateSource::Modified] = kWritten;
        clock_.Times[DateSource::Accessed] = kRead;
        clock_.Vanished = {Nothing()};
    }

    Clock& TheClock() override { return clock_; }
    std::wstring File() override { return L"C:\\資料\\Memo.txt"; }
    std::wstring Folder() override { return L"C:\\資料"; }
    std::wstring DeepFile() override { return L"C:\\" + std::wstring(300, L'd') + L"\\file"; }
    std::wstring Nothing() override { return L"C:\\gone"; }

private:
    test::StandingClock clock_;
};

INSTANTIATE_TEST_SUITE_P(Standing, ClockContract, testing::Values(&test::Make<Place, StandingPlace>));

}  // namespace
}  // namespace ferry::naming::contract
