// The clock of the model.
#include "core/transfer/model_ports.h"

namespace ferry::transfer::model {

std::optional<calendar::CalendarFields> ModelClock::LocalTime(std::uint64_t fileTime) {
    const Fault fault = world_.EnterPlain(L"LocalTime", std::to_wstring(fileTime));
    return Stops(fault) ? std::nullopt : StandingClock::LocalTime(fileTime);
}

double ModelClock::LocalDate(std::uint64_t fileTime) {
    const Fault fault = world_.EnterPlain(L"LocalDate", std::to_wstring(fileTime));
    if (!Stops(fault))
        return StandingClock::LocalDate(fileTime);
    world_.DatesDisturbed = true;
    return 0.0;
}

}  // namespace ferry::transfer::model
