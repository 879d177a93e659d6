#include "controls/history_combo_box.h"

namespace ferry::controls {

using framework::Answer;
using framework::Route;

namespace {

// The command that loads the history.
constexpr int kLoadCommand = 55500;

}  // namespace

void CHistryComboBoxEx::LoadSoon() const noexcept {
    PostMessageW(Handle(), WM_COMMAND, kLoadCommand, 0);
}

std::span<const Route> CHistryComboBoxEx::Routes() const {
    static constexpr Route kRoutes[] = {
        framework::OnCommand<&CHistryComboBoxEx::OnLoad>(kLoadCommand, 0),
        framework::OnMessage<&CHistryComboBoxEx::OnClear>(kClearHistoryMessage),
        framework::OnMessage<&CHistryComboBoxEx::OnDestroy>(WM_DESTROY),
    };
    return kRoutes;
}

void CHistryComboBoxEx::OnLoad() {
    history_.Load(settings_);
    isLoaded_ = true;
    SetFixedItems(history_.Entries());
    ShowFixedItems();
}

Answer CHistryComboBoxEx::OnClear(WPARAM, LPARAM) {
    history_.Clear();
    history_.Save(settings_);
    isLoaded_ = true;
    SetFixedItems({});
    ShowFixedItems();
    return 0;
}

Answer CHistryComboBoxEx::OnDestroy(WPARAM, LPARAM) {
    if (saveOnClose_) {
        if (!isLoaded_) {
            // The dialog ended before the load was due; what is stored must not be lost.
            history_.Load(settings_);
        }
        if (IsListOpen()) {
            OpenList(false);
        }
        history_.Add(EditText());
        history_.Save(settings_);
    }
    return std::nullopt;
}

}  // namespace ferry::controls
