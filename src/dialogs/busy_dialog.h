// The progress window of an item-by-item run.
#pragma once

#include <string>
#include <utility>

#include "dialogs/services.h"
#include "framework/controls.h"
#include "framework/dialog.h"

namespace ferry::dialogs {

/// Modeless; has no loop of its own. The run pushes its state in and drains the messages.
class CDlgBusy : public framework::CDialogEx {
public:
    explicit CDlgBusy(Services& services);

    /// Whether the user may stop the run; set before the window is created.
    void SetCancellable(bool cancellable) noexcept { cancellable_ = cancellable; }

    /// The operation's title.
    void SetFirstLine(std::wstring text);

    /// The name of the item that was just handled.
    void SetSecondLine(std::wstring text);

    framework::CProgressCtrl& Bar() noexcept { return bar_; }

    /// Whether the user asked to stop since the last call.
    bool TakeCancelRequest() noexcept { return std::exchange(cancelRequested_, false); }

    /// Ends the dialog, then destroys its window.
    void DestroyWindow() override;

protected:
    bool OnInitDialog() override;
    void OnOK() override {}
    void OnCancel() override;

private:
    void ShowLine(int control, const std::wstring& text) const;

    Services& services_;
    framework::CProgressCtrl bar_;
    std::wstring firstLine_;
    std::wstring secondLine_;
    bool cancellable_ = false;
    bool cancelRequested_ = false;
};

}  // namespace ferry::dialogs
