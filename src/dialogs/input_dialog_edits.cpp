// The one-click editing tools of the rename dialog.
#include "dialogs/input_dialog.h"
#include "naming/inserted_date.h"
#include "naming/name_edits.h"

namespace ferry::dialogs {

void CDlgInput::InsertFormatted(const framework::CComboBox& formats) {
    if (!Pull()) {
        return;
    }
    if (const std::optional<std::wstring> format = formats.SelectedText()) {
        const naming::DateSource source = naming::ToDateSource(static_cast<int>(form_.DateSource));
        newName_.ReplaceSelection(
            naming::InsertedText(services_.Clock, services_.Folders, source, itemPath_, *format));
        newName_.FocusInDialog();
    }
}

bool CDlgInput::EditName(TextEdit edit) {
    if (!Pull()) {
        return false;
    }
    newName_.SetText(edit(newName_.Text()));
    return true;
}

void CDlgInput::EditNameAndGoToItsEnd(TextEdit edit) {
    if (EditName(edit)) {
        newName_.PlaceCaretAtEnd();
        newName_.FocusInDialog();
    }
}

void CDlgInput::RemoveCopyMarks() {
    EditNameAndGoToItsEnd(&naming::RemoveCopyMarkers);
}

void CDlgInput::RemoveTrailingDigits() {
    EditNameAndGoToItsEnd(&naming::RemoveTrailingDigits);
}

void CDlgInput::RemoveLeadingDigits() {
    if (EditName(&naming::RemoveLeadingDigits)) {
        // The caret is at the start, where the digits were.
        newName_.FocusInDialog();
    }
}

void CDlgInput::EditBothNames(TextEdit editName, TextEdit editExtension) {
    if (Pull()) {
        form_.Names.Name = editName(form_.Names.Name);
        form_.Names.Extension = editExtension(form_.Names.Extension);
        Push();
    }
}

void CDlgInput::MakeUpperCase() {
    EditBothNames(&naming::ToUpper, &naming::ToUpper);
}

void CDlgInput::MakeLowerCase() {
    EditBothNames(&naming::ToLower, &naming::ToLower);
}

void CDlgInput::CapitaliseWords() {
    EditBothNames(&naming::CapitaliseWords, &naming::ToLower);
}

}  // namespace ferry::dialogs
