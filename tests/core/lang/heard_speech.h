// A person who listens, for the tests of whatever speaks. It keeps the speaker's contract.
#pragma once

#include <string>
#include <vector>

#include "lang/speaker.h"

namespace ferry::test {

/// Writes down what is said, and answers every question alike.
class HeardSpeech : public lang::Speaker {
public:
    void Tell(const std::wstring& text, lang::Tone tone) override { Heard.push_back({text, tone}); }
    bool Ask(const std::wstring& question, lang::Tone tone) override {
        Heard.push_back({question, tone});
        return SaysYes;
    }

    struct Said {
        std::wstring Text;
        lang::Tone Tone;

        bool operator==(const Said&) const = default;
    };

    std::vector<Said> Heard;
    bool SaysYes = false;
};

}  // namespace ferry::test
