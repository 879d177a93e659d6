// The contract of whoever speaks to the person.
#include "core/lang/speaker_contract.h"

namespace ferry::lang::contract {
namespace {

constexpr Tone kTones[] = {Tone::Plain, Tone::Warning, Tone::Error, Tone::Question};

TEST_P(SpeakerContract, ATextIsReadAsItWasSaid) {
    const std::wstring text = L"資料\tfirst\nsecond & third";
    for (const Tone tone : kTones)
        EXPECT_EQ(AtPlace().ReadDuring([&] { AtPlace().TheSpeaker().Tell(text, tone); }, false), text);
}

TEST_P(SpeakerContract, AQuestionBringsTheAnswerOfThePerson) {
    for (const bool saysYes : {true, false}) {
        for (const Tone tone : kTones) {
            bool answer = !saysYes;
            const auto ask = [&] { answer = AtPlace().TheSpeaker().Ask(L"Really?", tone); };
            EXPECT_EQ(AtPlace().ReadDuring(ask, saysYes), L"Really?");
            EXPECT_EQ(answer, saysYes);
        }
    }
}

}  // namespace
}  // namespace ferry::lang::contract
