#include "desktop/script_pace_win32.h"

#include <algorithm>
#include <utility>

#include "framework/messages.h"

namespace ferry::desktop {
namespace {

/// How often messages and the sign are seen to: as often as a person could notice.
constexpr ULONGLONG kLookEveryMs = 50;

/// The most that one statement counts as running. A longer one waits for somebody, as a rule for the person
/// in front of a message box, who needs no sign then.
constexpr ULONGLONG kLongestStatementMs = 200;

}  // namespace

ScriptPace::ScriptPace(SignMaker makeSign) : makeSign_(std::move(makeSign)), lookedAt_(GetTickCount64()) {}

void ScriptPace::Begin(SignMaker makeSign) {
    End();
    makeSign_ = std::move(makeSign);
    lookedAt_ = GetTickCount64();
    ranMs_ = 0;
    isStopped_ = false;
}

bool ScriptPace::GoesOn() {
    // The clock that is read here is a number in memory; everything else waits until it has moved on.
    const ULONGLONG now = GetTickCount64();
    if (now - lookedAt_ >= kLookEveryMs)
        Look(now);
    return !isStopped_;
}

void ScriptPace::Look(ULONGLONG now) {
    ranMs_ += std::min(now - lookedAt_, kLongestStatementMs);
    lookedAt_ = now;
    if (makeSign_ && !sign_ && ranMs_ >= kSignAfterMs)
        sign_ = makeSign_();
    if (!HandlesMessages())
        return;
    const bool goesOn =
        framework::HandleWaitingMessages([&](MSG& message) { return sign_ && sign_->TakesMessage(message); });
    if (!goesOn || (sign_ && sign_->IsStopped()))
        isStopped_ = true;
}

void ScriptPace::Sleep(std::uint32_t milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    while (GoesOn()) {
        const ULONGLONG now = GetTickCount64();
        if (now >= end)
            return;
        const auto step = static_cast<DWORD>(std::min(end - now, kLookEveryMs));
        ::Sleep(step);
    }
}

}  // namespace ferry::desktop
