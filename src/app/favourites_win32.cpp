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

/// The line and the file that a message is about, which most messages do not name. The line comes first: a
/// narrow box cuts its title, and a name is known by its beginning.
std::wstring ScriptFavourites::About() const {
    const std::optional<script::ScriptPlace> place = engine_.Place();
    if (!place) {
        return {};
    }
    const std::wstring_view name = paths::LastComponent(place->Script);
    if (place->Line == 0) {
        return std::wstring(name);
    }
    return std::to_wstring(place->Line).append(L": ").append(name);
}

}  // namespace ferry::app
