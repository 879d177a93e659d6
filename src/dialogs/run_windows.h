// The windows of an item-by-item run behind the ports of the engine.
#pragma once

#include "dialogs/busy_dialog.h"
#include "dialogs/services.h"
#include "transfer/ports.h"

namespace ferry::dialogs {

/// What a run does, in the person's language.
std::wstring RunTitle(lang::Catalogue& messages, transfer::Operation operation);

/// Shows a run's progress in the progress dialog, which it makes and destroys.
class ProgressWindow : public transfer::Progress {
public:
    /// `confirmation` is disabled as long as the window stands.
    ProgressWindow(Services& services, HWND confirmation, transfer::Operation operation);
    ProgressWindow(const ProgressWindow&) = delete;
    ProgressWindow& operator=(const ProgressWindow&) = delete;
    ~ProgressWindow() override;

    void SetRange(std::uint32_t count) override;
    bool DrainAndTakeCancel(transfer::Pause at) override;
    void Step() override;
    void ShowItem(std::wstring_view name) override;
    void ShowNow() override;

    HWND Window() const noexcept { return dialog_.Handle(); }

    /// Shows `question` and waits for its answer. While it is open the run can be stopped here, which ends it
    /// with `stopped`.
    int Ask(framework::CDialog& question, int stopped);

private:
    HWND confirmation_;
    CDlgBusy dialog_;
    ULONGLONG lastDrain_ = 0;  ///< When a listing last handled messages (GetTickCount64).
};

/// Asks the questions of a run in dialogs beside the progress window, where the run can be stopped meanwhile.
class QuestionWindows : public transfer::Questions {
public:
    /// `confirmation` owns the dialogs, and its labels caption the rename dialog.
    QuestionWindows(Services& services, ProgressWindow& progress, HWND confirmation) noexcept
        : services_(services), progress_(progress), confirmation_(confirmation) {}

    transfer::CollisionAnswer AskCollision(std::wstring_view name) override;
    transfer::NameAnswer AskNewName(transfer::RenameKind kind, std::wstring_view path) override;
    void ShowError(std::uint16_t message) override;

private:
    std::wstring RenameCaption(transfer::RenameKind kind) const;

    Services& services_;
    ProgressWindow& progress_;
    HWND confirmation_;
};

}  // namespace ferry::dialogs
