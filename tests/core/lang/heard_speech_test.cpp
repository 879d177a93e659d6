// The person who listens in tests keeps the contract that message boxes keep.
#include "core/lang/heard_speech.h"

#include "core/lang/speaker_contract.h"

namespace ferry::lang::contract {
namespace {

class Listening final : public SpeakerPlace {
public:
    Speaker& TheSpeaker() override { return speech_; }

    std::wstring ReadDuring(const std::function<void()>& speak, bool saysYes) override {
        speech_.SaysYes = saysYes;
        speak();
        return speech_.Heard.back().Text;
    }

private:
    test::HeardSpeech speech_;
};

INSTANTIATE_TEST_SUITE_P(Listening, SpeakerContract, testing::Values(&test::Make<SpeakerPlace, Listening>));

}  // namespace
}  // namespace ferry::lang::contract
