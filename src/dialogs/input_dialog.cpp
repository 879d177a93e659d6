#include "dialogs/input_dialog.h"

#include <optional>
#include <span>
#include <tuple>
#include <utility>

#include "dialogs/list_items.h"
#include "framework/fields.h"
#include "ids.h"
#include "paths/path_grammar.h"

namespace ferry::dialogs {

using framework::Exchange;

namespace {

constexpr int kMaxNameLength = 512;

constexpr wchar_t kSplitFiles[] = L"FileNameSep";
constexpr wchar_t kSplitFolders[] = L"DirNameSep";
constexpr wchar_t kDateFormat[] = L"DateTime";
constexpr wchar_t kTimeFormat[] = L"Time";
constexpr wchar_t kWeekdayFormat[] = L"Week";
constexpr wchar_t kDateSource[] = L"DateType";
constexpr wchar_t kUndo[] = L"RenameUndo";

// Only while name and extension stand apart.
constexpr int kSplitOnly[] = {IDC_EXTENSION_LABEL, IDC_EXTENSION_HINT, IDC_EXTENSION};

RECT RectInParent(HWND control) {
    RECT rect{};
    GetWindowRect(control, &rect);
    MapWindowPoints(HWND_DESKTOP, GetParent(control), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

int ClientWidth(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return client.right;
}

void Prepare(framework::CComboBox& list, HWND control, std::span<const wchar_t* const> items) {
    list.Attach(control);
    for (const wchar_t* item : items) {
        list.Append(item);
    }
}

}  // namespace

CDlgInput::CDlgInput(Services& services, HWND owner, std::wstring caption, std::wstring itemPath)
    : CDialogEx(IDD_INPUT, services.Localiser, owner),
      services_(services),
      caption_(std::move(caption)),
      itemPath_(std::move(itemPath)) {}

bool CDlgInput::OnInitDialog() {
    PrepareControls();
    Localise();
    SetText(caption_);
    nameField_ = RectInParent(newName_.Handle());
    openedWidth_ = ClientWidth(Handle());
    LoadSettings();
    Push();
    ShowItemName();
    return true;
}

void CDlgInput::PrepareControls() {
    newName_.Attach(Item(IDC_NEW_NAME));
    Prepare(dateFormats_, Item(IDC_DATE_FORMATS), kDateFormats);
    Prepare(timeFormats_, Item(IDC_TIME_FORMATS), kTimeFormats);
    Prepare(weekdayFormats_, Item(IDC_WEEKDAY_FORMATS), kWeekdayFormats);
    Prepare(dateSources_, Item(IDC_DATE_SOURCES), kDateSources);
}

void CDlgInput::LoadSettings() {
    settings::SettingsStore& settings = services_.Settings;
    // The undo box is hidden and never ticked; its value is kept for the settings' sake only.
    form_.Undo = 0;
    form_.SplitFiles = settings.ReadNumber(kSplitFiles, 1);
    form_.SplitFolders = settings.ReadNumber(kSplitFolders, 0);
    splits_ = false;
    dateFormats_.SelectItem(settings.ReadText(kDateFormat, kDateFormats[0]));
    timeFormats_.SelectItemByPrefix(settings.ReadText(kTimeFormat, kTimeFormats[0]));
    weekdayFormats_.SelectItem(settings.ReadText(kWeekdayFormat, kWeekdayFormats[0]));
    form_.DateSource = settings.ReadNumber(kDateSource, 0);
}

void CDlgInput::SaveSettings() {
    settings::SettingsStore& settings = services_.Settings;
    settings.WriteNumber(kUndo, form_.Undo);
    settings.WriteNumber(kSplitFiles, form_.SplitFiles);
    settings.WriteNumber(kSplitFolders, form_.SplitFolders);
    const std::pair<const wchar_t*, const framework::CComboBox&> formats[] = {
        {kDateFormat, dateFormats_}, {kTimeFormat, timeFormats_}, {kWeekdayFormat, weekdayFormats_}};
    for (const auto& [name, list] : formats) {
        if (const std::optional<std::wstring> format = list.SelectedText()) {
            settings.WriteText(name, *format);
        }
    }
    settings.WriteNumber(kDateSource, form_.DateSource);
}

bool CDlgInput::ExchangeNames(Exchange way) {
    using naming::NameFields;
    static constexpr auto kFields = std::tuple{
        framework::TextField<NameFields>{IDC_NEW_NAME, &NameFields::Name, kMaxNameLength},
        framework::TextField<NameFields>{IDC_EXTENSION, &NameFields::Extension, kMaxNameLength},
    };
    return framework::ExchangeFields(Handle(), form_.Names, kFields, way);
}

void CDlgInput::ExchangeOptions(Exchange way) {
    static constexpr auto kFields = std::tuple{
        framework::CheckField<Form>{IDC_SPLIT_FILES, &Form::SplitFiles},
        framework::CheckField<Form>{IDC_SPLIT_FOLDERS, &Form::SplitFolders},
        framework::IndexField<Form>{IDC_DATE_SOURCES, &Form::DateSource},
        framework::CheckField<Form>{IDC_RENAME_UNDO, &Form::Undo},
    };
    framework::ExchangeFields(Handle(), form_, kFields, way);
}

bool CDlgInput::Pull() {
    ExchangeOptions(Exchange::FromControls);
    return ExchangeNames(Exchange::FromControls);
}

void CDlgInput::Push() {
    ExchangeOptions(Exchange::ToControls);
    ExchangeNames(Exchange::ToControls);
}

// Starts over from the item: whatever was typed is gone. So the names are not read first, and a
// path too long for the name field does not lock the check boxes.
void CDlgInput::ShowItemName() {
    ExchangeOptions(Exchange::FromControls);
    splits_ = (IsFolder() ? form_.SplitFolders : form_.SplitFiles) != 0;
    LayOutFields();
    const std::wstring_view currentName = paths::LastComponent(itemPath_);
    form_.Names = naming::FieldsOfName(itemPath_, splits_);
    SetDlgItemTextW(Handle(), IDC_CURRENT_NAME, std::wstring(currentName).c_str());
    Push();
    newName_.SelectAll();
    newName_.ScrollCaretIntoView();
}

// An item whose attributes cannot be read has all bits set, and so counts as a folder.
bool CDlgInput::IsFolder() const {
    return (services_.Files.Attributes(itemPath_) & files::kAttributeDirectory) != 0;
}

// On a monitor of another scaling the dialog and all that is in it have grown or shrunk alike.
RECT CDlgInput::NameFieldNow() const {
    const int width = ClientWidth(Handle());
    const auto scaled = [&](LONG at) { return static_cast<LONG>(MulDiv(at, width, openedWidth_)); };
    return {scaled(nameField_.left), scaled(nameField_.top), scaled(nameField_.right),
            scaled(nameField_.bottom)};
}

void CDlgInput::LayOutFields() {
    RECT field = NameFieldNow();
    if (!splits_) {
        field.right = RectInParent(Item(IDC_EXTENSION)).right;
    }
    MoveWindow(newName_.Handle(), field.left, field.top, field.right - field.left, field.bottom - field.top,
               TRUE);
    for (const int id : kSplitOnly) {
        ShowWindow(Item(id), splits_ ? SW_SHOW : SW_HIDE);
    }
}

void CDlgInput::OnOK() {
    if (!Pull()) {
        return;
    }
    result_ = naming::NameOfFields(form_.Names);
    ShowItemName();
    if (!IsToBeForgotten()) {
        SaveSettings();
    }
    EndDialog(IDOK);
}

std::span<const framework::Route> CDlgInput::Routes() const {
    static constexpr framework::Route kRoutes[] = {
        framework::OnClick<&CDlgInput::InsertDate>(IDC_INSERT_DATE),
        framework::OnClick<&CDlgInput::InsertTime>(IDC_INSERT_TIME),
        framework::OnClick<&CDlgInput::InsertWeekday>(IDC_INSERT_WEEKDAY),
        framework::OnClick<&CDlgInput::RemoveCopyMarks>(IDC_REMOVE_COPY_MARKS),
        framework::OnClick<&CDlgInput::RemoveTrailingDigits>(IDC_REMOVE_TRAILING_DIGITS),
        framework::OnClick<&CDlgInput::RemoveLeadingDigits>(IDC_REMOVE_LEADING_DIGITS),
        framework::OnClick<&CDlgInput::MakeUpperCase>(IDC_UPPER_CASE),
        framework::OnClick<&CDlgInput::MakeLowerCase>(IDC_LOWER_CASE),
        framework::OnClick<&CDlgInput::CapitaliseWords>(IDC_CAPITALISE),
        framework::OnClick<&CDlgInput::ShowItemName>(IDC_SPLIT_FILES),
        framework::OnClick<&CDlgInput::ShowItemName>(IDC_SPLIT_FOLDERS),
    };
    return kRoutes;
}

}  // namespace ferry::dialogs
