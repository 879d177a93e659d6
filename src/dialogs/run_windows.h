// The windows of an item-by-item run behind the ports of the engine.
#pragma once

#include "dialogs/busy_dialog.h"
#include "dialogs/services.h"
#include "transfer/ports.h"

namespace ferry::dialogs {

/// Shows a run's progress in the progress dialog, which it makes and destroys.
class ProgressWindow : public transfer::Progress {
public:
    /// `confirmation` is disabled as long as the window stands.
    ProgressWindow(Services& services, HWND confirmation, transfer::Operation operation);
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;
    ~ProgressWindow() override;

    void SetRange(std::uint32_t count) override;
    bool DrainAndTakeCancel() override;
    void Step() override;
    void ShowItem(std::wstring_view name) override;

    HWND Window() const noexcept { return dialog_.Handle(); }

private:
    HWND confirmation_;
    CDlgBusy dialog_;
};

/// Asks the questions of a run in dialogs over the progress window.
class QuestionWindows : public transfer::Questions {
public:
    /// The progress window may be gone when a question comes; then the dialogs have no owner.
    /// The labels of `confirmation` caption the rename dialog.
    QuestionWindows(Services& services, const ProgressWindow& progress, HWND confirmation) noexcept
        : services_(services), progress_(progress), confirmation_(confirmation) {}

    transfer::CollisionAnswer AskCollision(std::wstring_view name) override;
    transfer::NameAnswer AskNewName(transfer::RenameKind kind, std::wstring_view path) override;
    void ShowError(std::uint16_t message) override;

private:
    std::wstring RenameCaption(transfer::RenameKind kind) const;

    Services& services_;
    const ProgressWindow& progress_;
    HWND confirmation_;
};

}  // namespace ferry::dialogs
