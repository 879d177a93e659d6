// What a dialog needs around it when a test opens it without the program.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "core/calendar/standing_clock.h"
#include "core/lang/heard_speech.h"
#include "core/lang/message_text.h"
#include "core/settings/memory_store.h"
#include "desktop/message_boxes_win32.h"
#include "dialogs/services.h"
#include "files/disk_win32.h"
#include "lang/text_files_win32.h"

namespace ferry::test {

/// The favourites of a dialog, as a test wants them.
struct PlannedFavourites {
    std::wstring Folder;  ///< Not there until a test names one.
    /// What running the script at `path` does; `dialog` is the window that it works for.
    std::function<void(const std::wstring& path, HWND dialog)> Run = [](const std::wstring&, HWND) {};
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
    MessageText Messages;  ///< Not there until a test puts its lines there.
    PlannedFavourites Favourites;

    /// The services with `clock` in the place of the standing one, or with `folders` in that of the disk's.
    dialogs::Services ServicesWith(calendar::Clock& clock);
    dialogs::Services ServicesWith(files::FolderSearch& folders);
    dialogs::Services& Services() { return services_; }

private:
    dialogs::Services ServicesWith(calendar::Clock& clock, files::FolderSearch& folders);

    hostlink::HostData host_;
    files::DiskInfo files_;
    files::DiskSearch folders_;
    files::DiskChanges changes_;
    lang::DiskTextFiles texts_;
    desktop::MessageBoxes speaker_;
    HeardSpeech complaints_;  ///< About a message file that is not there.
    lang::Catalogue messages_{Messages, L"Msg.txt", complaints_};
    dialogs::DialogLocaliser localiser_;
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
