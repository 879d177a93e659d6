#include "app/favourites_win32.h"

#include <vector>

#include "dialogs/script_sign.h"
#include "paths/path_grammar.h"

namespace ferry::app {
namespace {

/// The place of the favourites in the user's folder.
constexpr wchar_t kBarFolder[] = L"Bar\\Favorite";

/// One run's time, and the window that it may have.
class RunInProgress {
public:
    RunInProgress(desktop::ScriptPace& pace, desktop::SignMaker makeSign) : pace_(pace) {
        pace_.Begin(std::move(makeSign));
    }
    RunInProgress(const RunInProgress&) = delete;
    RunInProgress& operator=(const RunInProgress&) = delete;
    ~RunInProgress() { pace_.End(); }

private:
    desktop::ScriptPace& pace_;
};

}  // namespace

ScriptFavourites::ScriptFavourites(dialogs::DialogLocaliser& localiser, HWND dialog)
    : localiser_(localiser),
      dialog_(dialog),
      world_(dialog),
      speaker_(dialog, [this] { return About(); }),
      engine_(world_.Ports(speaker_)) {}

std::wstring ScriptFavourites::Folder() {
    return paths::WithTrailingSeparator(engine_.Folders().User()) + kBarFolder;
}

void ScriptFavourites::Run(const std::wstring& path) {
    const RunInProgress run(
        world_.Pace(), dialogs::ScriptSigns(localiser_, dialog_, std::wstring(paths::LastComponent(path))));
    std::vector<std::wstring> nothing;
    engine_.Run(path, nothing);
}

/// The file and the line that a message is about; the messages themselves name neither.
std::wstring ScriptFavourites::About() const {
    const std::optional<script::ScriptPlace> place = engine_.Place();
    if (!place) {
        return {};
    }
    std::wstring about(paths::LastComponent(place->Script));
    if (place->Line > 0) {
        about.append(L" (").append(std::to_wstring(place->Line)).append(L")");
    }
    return about;
}

}  // namespace ferry::app
