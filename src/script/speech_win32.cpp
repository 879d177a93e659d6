#include "script/speech_win32.h"

#include <windows.h>
// After windows.h, which it builds on.
#include <sapi.h>

#include <algorithm>

#include "base/com_ptr_win32.h"

namespace ferry::script {
namespace {

/// The least and the greatest rate and pitch of the service.
constexpr int kSlowest = -10;
constexpr int kFastest = 10;

}  // namespace

/// A voice of the system, or none where the service is missing: then nobody hears anything, and no call
/// fails.
class SystemSpeech::Voice {
public:
    Voice() {
        // A failure leaves the pointer empty, which says it all.
        CoCreateInstance(__uuidof(SpVoice), nullptr, CLSCTX_ALL, IID_PPV_ARGS(voice_.Put()));
    }
    Voice(const Voice&) = delete;
    Voice& operator=(const Voice&) = delete;
    ~Voice() {
        if (voice_)
            voice_->WaitUntilDone(kLastWordsMs);
    }

    template <class Call>
    void Do(Call call) const {
        if (voice_)
            call(*voice_.Get());
    }

private:
    base::ComApartment apartment_;  // Outlives the voice.
    base::ComPtr<ISpVoice> voice_;
};

SystemSpeech::SystemSpeech() = default;
SystemSpeech::~SystemSpeech() = default;

SystemSpeech::Voice& SystemSpeech::TheVoice() {
    if (!voice_)
        voice_ = std::make_unique<Voice>();
    return *voice_;
}

void SystemSpeech::Speak(const std::wstring& text) {
    TheVoice().Do([&](ISpVoice& voice) { voice.Speak(text.c_str(), static_cast<DWORD>(flags_), nullptr); });
}

void SystemSpeech::SetVolume(int percent) {
    const auto volume = static_cast<USHORT>(std::clamp(percent, 0, 100));
    TheVoice().Do([&](ISpVoice& voice) { voice.SetVolume(volume); });
}

void SystemSpeech::SetRate(int rate) {
    TheVoice().Do([&](ISpVoice& voice) { voice.SetRate(std::clamp(rate, kSlowest, kFastest)); });
}

void SystemSpeech::SetPitch(int pitch) {
    // The voice has no call for it, only markup, which holds for what is spoken later when it says so.
    const std::wstring markup =
        L"<pitch absmiddle=\"" + std::to_wstring(std::clamp(pitch, kSlowest, kFastest)) + L"\"/>";
    TheVoice().Do([&](ISpVoice& voice) {
        voice.Speak(markup.c_str(), SPF_ASYNC | SPF_IS_XML | SPF_PERSIST_XML, nullptr);
    });
}

}  // namespace ferry::script
