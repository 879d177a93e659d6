// The progress window of an item-by-item run.
#pragma once

#include <cstdint>
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

    /// The name of the item that was just handled. It and the bar may be set as often as there are
    /// items: drawing them takes longer than moving a small file, so the window shows the newest of
    /// both at most every kShowDelayMs, from the messages that its thread takes.
    void SetSecondLine(std::wstring_view text);

    /// A bar of `count` steps, none of which is done.
    void StartSteps(std::uint32_t count);

    /// One step more is done. After the last one the bar starts over.
    void StepIt();

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
    void ShowSoon();
    void ShowState() const;
    void ShowLine(int control, const std::wstring& text) const;

    framework::CProgressCtrl bar_;
    std::wstring firstLine_;
    std::wstring secondLine_;
    std::uint32_t stepsDone_ = 0;
    std::uint32_t steps_ = 0;
    bool showsSoon_ = false;
    bool cancellable_ = false;
    bool cancelRequested_ = false;
};

}  // namespace ferry::dialogs
