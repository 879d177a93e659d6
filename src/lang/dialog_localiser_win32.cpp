#include "lang/dialog_localiser_win32.h"

#include <vector>

#include "lang/catalogue.h"
#include "lang/dialog_text.h"
#include "lang/text_file_win32.h"
#include "paths/folders_win32.h"

namespace ferry::lang {
namespace {

/// The most units of a class name that are written.
constexpr int kMaxClassName = 1024;

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::wstring ClassOf(HWND window) {
    std::wstring name(kMaxClassName + 1, L'\0');
    name.resize(static_cast<std::size_t>(GetClassNameW(window, name.data(), kMaxClassName + 1)));
    return name;
}

std::wstring ListEntry(HWND combo, WPARAM index) {
    const LRESULT length = SendMessageW(combo, CB_GETLBTEXTLEN, index, 0);
    if (length == CB_ERR) {
        return {};
    }
    std::wstring entry(static_cast<std::size_t>(length) + 1, L'\0');
    const LRESULT copied = SendMessageW(combo, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(entry.data()));
    entry.resize(copied == CB_ERR ? 0 : static_cast<std::size_t>(copied));
    return entry;
}

ControlText Describe(HWND control) {
    ControlText described{GetDlgCtrlID(control), ClassOf(control), TextOf(control), {}};
    if (described.ClassName == L"ComboBox") {
        const LRESULT count = SendMessageW(control, CB_GETCOUNT, 0, 0);
        for (LRESULT index = 0; index < count; ++index) {
            described.Items.push_back(ListEntry(control, static_cast<WPARAM>(index)));
        }
    }
    return described;
}

void Apply(const DialogTextEdit& edit, HWND dialog) {
    using Kind = DialogTextEdit::Kind;
    const HWND target = edit.What == Kind::SetTitle ? dialog : GetDlgItem(dialog, edit.ControlId);
    if (target == nullptr) {
        return;
    }
    switch (edit.What) {
        case Kind::SetTitle:
        case Kind::SetText:
            SetWindowTextW(target, edit.Text.c_str());
            break;
        case Kind::ClearList:
            SendMessageW(target, CB_RESETCONTENT, 0, 0);
            break;
        case Kind::AddItem:
            SendMessageW(target, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(edit.Text.c_str()));
            break;
    }
}

}  // namespace

void DialogLocaliser::Localise(int templateId, HWND dialog) {
    if (ChosenLanguage().UsesFiles && !Import(templateId, dialog)) {
        Export(templateId, dialog);
    }
}

const DialogLocaliser::Language& DialogLocaliser::ChosenLanguage() {
    if (!language_) {
        Language language{store_.ReadHostText(L"NLS", kBuiltInSuffix)};
        const int langOut = static_cast<int>(store_.ReadHostNumber(L"LangOut"));
        language.UsesFiles = UsesDialogTextFiles(language.Suffix, langOut);
        language_ = std::move(language);
    }
    return *language_;
}

bool DialogLocaliser::Import(int templateId, HWND dialog) {
    const auto text = ReadTextFile(DialogTextPath(modulePath_, ChosenLanguage().Suffix, templateId));
    if (!text) {
        return false;
    }
    for (const DialogTextEdit& edit : ParseDialogText(*text)) {
        Apply(edit, dialog);
    }
    return true;
}

void DialogLocaliser::Export(int templateId, HWND dialog) {
    const std::wstring& suffix = ChosenLanguage().Suffix;
    // Best effort: without the folder the file cannot be made either, and then nothing is.
    paths::MakeFolder(DialogTextFolder(modulePath_, suffix));
    std::vector<ControlText> controls;
    HWND control = nullptr;
    while ((control = FindWindowExW(dialog, control, nullptr, nullptr)) != nullptr) {
        controls.push_back(Describe(control));
    }
    WriteTextFile(DialogTextPath(modulePath_, suffix, templateId),
                  RenderDialogText(TextOf(dialog), controls));
}

}  // namespace ferry::lang
