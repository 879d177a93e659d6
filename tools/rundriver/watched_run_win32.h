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
    int Policy = -1;          ///< The collision policy, 0 to 7; -1 leaves it.
    bool PausesAt = false;    ///< Says "PAUSE name" for each window and waits for a line on the input.
    int PatienceMs = 600000;  ///< How long the transfer may take.
};

/// Starts Ferry through the sample host, fills its dialog in, presses "開始", and answers every
/// question so that no file that is already there is touched.
class WatchedRun {
public:
    explicit WatchedRun(const Wishes& wishes);

    /// False, after a line on the error output, when something did not happen in time.
    bool Perform();

private:
    bool ShowCandidates();
    bool FillIn();
    bool WaitForEnd();
    bool AnswerWhatIsAsked();
    void Pause(const char* name) const;

    Wishes wishes_;
    e2e::FerryRun run_;
    e2e::RemoteDialog dialog_;
};

}  // namespace ferry::rundriver
