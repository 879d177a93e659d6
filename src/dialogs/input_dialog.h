// The rename dialog: a new name for one file or folder, with tools to edit it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "dialogs/dialog_ex.h"
#include "dialogs/services.h"
#include "framework/controls.h"
#include "framework/fields.h"
#include "naming/name_fields.h"

namespace ferry::dialogs {

/// Asks for the new name of one item. DoModal answers IDOK when there is one.
class CDlgInput : public CDialogEx {
public:
    /// `caption` becomes the dialog's title; `itemPath` is the item's full path.
    CDlgInput(Services& services, HWND owner, std::wstring caption, std::wstring itemPath);

    /// The name as the user left it; what may be in a name is for the caller to judge. Empty
    /// until the dialog ended with IDOK.
    const std::wstring& Result() const noexcept { return result_; }

protected:
    bool OnInitDialog() override;
    void OnOK() override;
    std::span<const framework::Route> Routes() const override;

private:
    /// What the controls hold.
    struct Form {
        naming::NameFields Names;
        std::uint32_t SplitFiles = 1;
        std::uint32_t SplitFolders = 0;
        std::uint32_t DateSource = 0;
        std::uint32_t Undo = 0;
    };

    // Opening and layout.
    void PrepareControls();
    void LoadSettings();
    void SaveSettings();
    bool ExchangeNames(framework::Exchange way);
    void ExchangeOptions(framework::Exchange way);
    bool Pull();
    void Push();
    void ShowItemName();
    void LayOutFields();
    RECT NameFieldNow() const;
    bool IsFolder() const;

    // The editing tools.
    using TextEdit = std::wstring (*)(std::wstring_view);
    bool EditName(TextEdit edit);
    void EditNameAndGoToItsEnd(TextEdit edit);
    void EditBothNames(TextEdit editName, TextEdit editExtension);
    void InsertDate() { InsertFormatted(dateFormats_); }
    void InsertTime() { InsertFormatted(timeFormats_); }
    void InsertWeekday() { InsertFormatted(weekdayFormats_); }
    void InsertFormatted(const framework::CComboBox& formats);
    void RemoveCopyMarks();
    void RemoveTrailingDigits();
    void RemoveLeadingDigits();
    void MakeUpperCase();
    void MakeLowerCase();
    void CapitaliseWords();

    Services& services_;
    std::wstring caption_;
    std::wstring itemPath_;
    std::wstring result_;
    Form form_;
    bool splits_ = false;  ///< Whether the name and the extension of this item stand apart.
    RECT nameField_{};     ///< Where the name field stands beside the extension; client pixels.
    int openedWidth_ = 0;  ///< Of the client area, when nameField_ was taken.
    framework::CEdit newName_;
    framework::CComboBox dateFormats_;
    framework::CComboBox timeFormats_;
    framework::CComboBox weekdayFormats_;
    framework::CComboBox dateSources_;
};

}  // namespace ferry::dialogs
