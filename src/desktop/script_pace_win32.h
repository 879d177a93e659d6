// The pace of a script's run: a person sees that it runs, and can stop it.
#pragma once

#include <windows.h>

#include <memory>

#include "desktop/script_sign.h"
#include "script/ports.h"

namespace ferry::desktop {

/// The pace of one run at a time. A run that takes longer than kSignAfterMs gets a sign, and from then on the
/// messages of the thread are handled between statements. Until then they are not: no window of the thread
/// could start something else in the middle of a run. Without a sign they always are, since there is no such
/// window.
class ScriptPace final : public script::Pace {
public:
    static constexpr ULONGLONG kSignAfterMs = 1000;

    /// An empty `makeSign` makes none.
    explicit ScriptPace(SignMaker makeSign = {});

    /// Another run begins: nobody has stopped it, and it has run for no time. The sign of the last one goes.
    void Begin(SignMaker makeSign);

    /// The run is over, and its sign goes.
    void End() noexcept { sign_.reset(); }

    void Sleep(std::uint32_t milliseconds) override;
    bool GoesOn() override;

private:
    void Look(ULONGLONG now);
    bool HandlesMessages() const noexcept { return sign_ != nullptr || !makeSign_; }

    SignMaker makeSign_;
    std::unique_ptr<ScriptSign> sign_;
    ULONGLONG lookedAt_;   ///< When messages and the sign were last seen to (GetTickCount64).
    ULONGLONG ranMs_ = 0;  ///< How long the script ran so far.
    bool isStopped_ = false;
};

}  // namespace ferry::desktop
