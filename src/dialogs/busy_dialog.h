// The progress window of an item-by-item run.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "dialogs/dialog_ex.h"
#include "framework/controls.h"

namespace ferry::dialogs {

/// How long a name or a step may wait until it is shown: ten names a second are more than one reads.
inline constexpr UINT kShowDelayMs = 100;

/// Modeless; has no loop of its own. The run pushes its state in and drains the messages.
class CDlgBusy : public CDialogEx {
public:
    explicit CDlgBusy(DialogLocaliser& localiser);

    /// Whether the user may stop the run; set before the window is created.
    void SetCancellable(bool cancellable) noexcept { cancellable_ = cancellable; }

    /// The operation's title.
    void SetFirstLine(std::wstring text);

    /// The name of the item that was just handled. It and the bar may be set as often as there are items:
    /// drawing them takes longer than moving a small file. So they are drawn at once when kShowDelayMs have
    /// passed since they were last drawn; else the newest of both is, from the messages that its thread
    /// takes.
    void SetSecondLine(std::wstring_view text);

    /// A bar of `count` steps, none of which is done.
    void StartSteps(std::uint32_t count);

    /// One step more. After the last one the bar starts over. It is drawn at once, too, when the step before
    /// took longer than kShowDelayMs.
    void StepIt();

    /// Draws the newest of both, whenever that was done last.
    void ShowNow();

    /// What is told when the user asks to stop, before the dialog ends, besides TakeCancelRequest. It may be
    /// empty.
    void OnStop(std::function<void()> tell) { tellStop_ = std::move(tell); }

    bool PreTranslateMessage(MSG& message) override;

    /// Whether the user asked to stop since the last call.
    bool TakeCancelRequest() noexcept { return std::exchange(cancelRequested_, false); }

    /// Ends the dialog, then destroys its window.
    void DestroyWindow() override;

protected:
    bool OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override;

    std::span<const framework::Route> Routes() const override;

private:
    framework::Answer OnShowTimer(WPARAM id, LPARAM);
    framework::Answer OnSessionEnds(WPARAM, LPARAM) { return FALSE; }
    void ShowSoon();
    void ShowState();
    void ShowLine(int control, const std::wstring& text) const;

    framework::CProgressCtrl bar_;
    std::wstring firstLine_;
    std::wstring secondLine_;
    std::uint32_t stepsDone_ = 0;
    std::uint32_t steps_ = 0;
    std::function<void()> tellStop_;
    ULONGLONG shownAt_ = 0;    ///< When bar and line were last drawn (GetTickCount64).
    ULONGLONG steppedAt_ = 0;  ///< When the last step came.
    bool showsSoon_ = false;
    bool cancellable_ = false;
    bool cancelRequested_ = false;
};

}  // namespace ferry::dialogs
