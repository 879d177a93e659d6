// What a dialog needs around it when a test opens it without the program.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/settings/memory_store.h"
#include "dialogs/services.h"

namespace ferry::test {

/// It is always the same moment, and every item has the same times.
class StandingClock : public naming::Clock {
public:
    naming::CalendarFields Now() override { return {2024, 5, 1, 12, 34, 56}; }
    std::optional<naming::CalendarFields> ItemTime(std::wstring_view path,
                                                   naming::DateSource source) override;

    std::wstring AskedPath;  ///< The item of the last question.
};

/// A message file with the lines that a test puts there before the first text is asked for.
class WorldMessages : public lang::CatalogueSource {
public:
    std::optional<std::wstring> ReadMessageFile() override { return Lines; }
    void ReportCannotOpen() override {}

    std::wstring Lines;
};

/// The program's services, as a dialog meets them on a fresh machine: in Japanese until a language is put
/// among the host's texts.
class DialogWorld {
public:
    DialogWorld();

    /// For a program at the path `program`, beside which its dialog texts lie.
    explicit DialogWorld(std::wstring program);
    ~DialogWorld();
    DialogWorld(const DialogWorld&) = delete;
    DialogWorld& operator=(const DialogWorld&) = delete;

    MemoryStore Store;
    StandingClock Clock;
    WorldMessages Messages;

    /// The services with `clock` in the place of the standing one.
    dialogs::Services ServicesWith(naming::Clock& clock);
    dialogs::Services& Services() { return services_; }

private:
    hostlink::HostData host_;
    lang::Catalogue messages_{Messages};
    lang::DialogLocaliser localiser_;
    framework::CShellManager shell_;
    dialogs::Services services_;
};

/// Clicks a button or a check box of `dialog`, as the mouse would, and waits for the effect.
void Click(HWND dialog, int id);

/// The text of control `id`.
std::wstring TextOfControl(HWND dialog, int id);

bool IsShown(HWND dialog, int id);

/// Answers a modal dialog from inside its own loop: `Dialog` is one of the program's classes.
template <class Dialog>
class SelfAnswering : public Dialog {
public:
    using Dialog::Dialog;

    /// Posted as a click on this button when the dialog has opened.
    int Button = IDCANCEL;

protected:
    bool OnInitDialog() override {
        const bool choosesFocus = Dialog::OnInitDialog();
        PostMessageW(this->Handle(), WM_COMMAND, MAKEWPARAM(Button, BN_CLICKED), 0);
        return choosesFocus;
    }
};

}  // namespace ferry::test
