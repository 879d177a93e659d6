// The speech service of Windows.
#pragma once

#include <memory>

#include "script/ports.h"

namespace ferry::script {

/// Speaks with the voice that the user chose in the system. The voice is made, on the calling thread, for the
/// first call that needs it. What is still being spoken when this object goes is spoken to its end, but for
/// at most kLastWordsMs.
class SystemSpeech final : public Speech {
public:
    static constexpr unsigned long kLastWordsMs = 10'000;

    SystemSpeech();
    SystemSpeech(const SystemSpeech&) = delete;
    SystemSpeech& operator=(const SystemSpeech&) = delete;
    ~SystemSpeech() override;

    void Speak(const std::wstring& text) override;
    void SetFlags(int flags) override { flags_ = flags; }
    void SetVolume(int percent) override;
    void SetRate(int rate) override;
    void SetPitch(int pitch) override;

private:
    class Voice;
    Voice& TheVoice();

    std::unique_ptr<Voice> voice_;
    int flags_ = 0;
};

}  // namespace ferry::script
