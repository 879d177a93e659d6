// What the program relies on when it speaks. Message boxes and the person who listens in tests are held
// against the same expectations.
#pragma once

#include <functional>
#include <string>

#include "lang/speaker.h"
#include "support/contract.h"

namespace ferry::lang::contract {

/// A speaker under test, and the person in front of it.
class SpeakerPlace {
public:
    virtual ~SpeakerPlace() = default;

    virtual Speaker& TheSpeaker() = 0;

    /// What the person reads while `speak` runs, who then says yes or no; a text without a question is
    /// dismissed.
    virtual std::wstring ReadDuring(const std::function<void()>& speak, bool saysYes) = 0;
};

class SpeakerContract : public test::ContractOf<SpeakerPlace> {};

}  // namespace ferry::lang::contract
