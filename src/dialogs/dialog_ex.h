// Dialogs in the user's language.
#pragma once

#include <windows.h>

#include "dialogs/dialog_localiser.h"
#include "framework/dialog.h"

namespace ferry::dialogs {

/// A dialog whose texts are put in once its controls have all that is translated.
class CDialogEx : public framework::CDialog {
public:
    /// The localiser must outlive this object; `owner` may be null.
    CDialogEx(UINT templateId, DialogLocaliser& localiser, HWND owner = nullptr) noexcept
        : CDialog(templateId, owner), localiser_(localiser) {}

protected:
    /// Replaces the texts of the controls, and the entries that boxes hold by now.
    void Localise() { localiser_.Localise(TemplateId(), Handle()); }

private:
    DialogLocaliser& localiser_;
};

}  // namespace ferry::dialogs
