// A path field that remembers what was entered last.
#pragma once

#include "completion/history.h"
#include "controls/complement_combo_box.h"

namespace ferry::controls {

/// The completing path field with the history as its fixed items. The history is loaded just after
/// the owner's initialisation and stored when the control is destroyed.
class CHistryComboBoxEx : public CComplementComboBox {
public:
    /// All must outlive the control.
    CHistryComboBoxEx(files::FileInfo& info, files::FolderSearch& search, lang::Catalogue& messages,
                      lang::Speaker& speaker, settings::SettingsStore& settings) noexcept
        : CComplementComboBox(info, search, messages, speaker), settings_(settings) {}

    /// Asks for the history to be loaded once the owner's messages are handled. Call after Prepare.
    void LoadSoon() const noexcept;

    /// Whether the text and the history are stored when the control is destroyed.
    void SetSaveOnClose(bool on) noexcept { saveOnClose_ = on; }

protected:
    std::span<const framework::Route> Routes() const override;

private:
    void OnLoad();
    framework::Answer OnClear(WPARAM, LPARAM);
    framework::Answer OnDestroy(WPARAM, LPARAM);

    settings::SettingsStore& settings_;
    completion::History history_;
    bool isLoaded_ = false;
    bool saveOnClose_ = false;
};

}  // namespace ferry::controls
