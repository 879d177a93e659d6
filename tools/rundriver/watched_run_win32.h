// One run of Ferry with a person's part played by this program.
#pragma once

#include <string>
#include <vector>

#include "e2e/driver/ferry_run.h"

namespace ferry::rundriver {

/// What the person wants.
struct Wishes {
    std::vector<std::wstring> Items;
    std::vector<std::wstring> Tabs;  ///< The folders of the host's other tabs.
    bool ListsTabs = false;          ///< They stand in a list instead of a menu.
    std::wstring Destination;
    std::wstring LogFile;  ///< Where the sample host logs.
    bool Moves = false;
    bool IsIndividual = false;
    int Policy = -1;  ///< The collision policy, 0 to 7; -1 leaves it.
    int Choice = -1;  ///< What the collision question is answered with for all later, 0 to 6; -1 skips.
    bool OpensFavourites =
        false;  ///< Opens the menu of favourites and the first submenu in it, and closes both.
    bool RunsLastFavourite = false;  ///< Runs the last entry of that menu, and stops it once it shows itself.
    bool WatchesProgress = false;    ///< Pauses again and again while the progress window is there.
    bool PausesAt = false;  ///< Says "PAUSE name FRAME..." for each window and waits for a line on the input.
    bool ShowsProgram = false;  ///< Instead of all this: shows the window of Items[0], given the others.
    std::wstring Beside;  ///< A command line without quotes that runs to its end while that window is open.
    int PatienceMs = 600000;  ///< How long the transfer may take.
};

/// Starts Ferry through the sample host, fills its dialog in, presses "開始", and answers every
/// question so that no file that is already there is touched, unless a choice is wished for.
class WatchedRun {
public:
    explicit WatchedRun(const Wishes& wishes);

    /// False, after a line on the error output, when something did not happen in time.
    bool Perform();

private:
    bool ShowCandidates();
    bool FillIn();
    bool OpenFavourites();
    bool ShowSubmenu();
    bool StopLastFavourite();
    bool WaitForEnd();
    bool AnswerWhatIsAsked();
    void ChooseForAll(HWND question);
    void WatchProgress();
    void Pause(const char* name) const;

    Wishes wishes_;
    e2e::FerryRun run_;
    e2e::RemoteDialog dialog_;
    int pictures_ = 0;  ///< Of the progress window.
    ULONGLONG nextPicture_ = 0;
};

}  // namespace ferry::rundriver
