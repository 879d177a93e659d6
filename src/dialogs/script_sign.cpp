#include "dialogs/script_sign.h"

#include <utility>

#include "dialogs/busy_dialog.h"
#include "ids.h"

namespace ferry::dialogs {
namespace {

class BusySign final : public desktop::ScriptSign {
public:
    BusySign(DialogLocaliser& localiser, HWND owner, std::wstring scriptName)
        : owner_(owner), dialog_(localiser) {
        dialog_.SetCancellable(true);
        dialog_.SetFirstLine(std::move(scriptName));
        // The window hides itself when it is stopped. If its owner were disabled then, the foreground would
        // go to another program.
        dialog_.OnStop([owner] { EnableWindow(owner, TRUE); });
        // An owner that is disabled without a sign over it could not be used, and the script not be stopped.
        if (!dialog_.Create(owner)) {
            return;
        }
        // Nobody knows how far a script has come.
        ShowWindow(dialog_.Item(IDC_BUSY_BAR), SW_HIDE);
        EnableWindow(owner_, FALSE);
    }
    BusySign(const BusySign&) = delete;
    BusySign& operator=(const BusySign&) = delete;
    ~BusySign() override {
        // First, since else the foreground would go to another program.
        EnableWindow(owner_, TRUE);
        dialog_.DestroyWindow();
    }

    bool TakesMessage(MSG& message) override { return dialog_.HandleDialogMessage(message); }
    bool IsStopped() override { return dialog_.TakeCancelRequest(); }

private:
    HWND owner_;
    CDlgBusy dialog_;
};

}  // namespace

desktop::SignMaker ScriptSigns(DialogLocaliser& localiser, HWND owner, std::wstring scriptName) {
    return [&localiser, owner, name = std::move(scriptName)] {
        return std::make_unique<BusySign>(localiser, owner, name);
    };
}

}  // namespace ferry::dialogs
