#include "dialogs/dialog_localiser.h"

#include <vector>

#include "framework/controls.h"
#include "lang/catalogue.h"
#include "lang/dialog_text.h"

namespace ferry::dialogs {

using lang::ControlText;
using lang::DialogTextEdit;

namespace {

/// The most units of a class name that are written.

std::wstring ClassOf(HWND window) {
    std::wstring name(lang::kMaxClassName + 1, L'\0');
    name.resize(static_cast<std::size_t>(GetClassNameW(window, name.data(), static_cast<int>(name.size()))));
    return name;
}

ControlText Describe(HWND control) {
    ControlText described{GetDlgCtrlID(control), ClassOf(control), framework::WindowText(control), {}};
    if (described.ClassName == L"ComboBox") {
        const auto count = static_cast<int>(SendMessageW(control, CB_GETCOUNT, 0, 0));
        for (int index = 0; index < count; ++index) {
            described.Items.push_back(framework::ItemTextOf(control, index));
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
    if (!ChosenLanguage().UsesFiles) {
        return;
    }
    const std::wstring path = lang::DialogTextPath(modulePath_, ChosenLanguage().Suffix, templateId);
    // One that is there and could not be read is somebody's work, held by another program for a moment.
    if (!Import(path, dialog) && info_.Attributes(path) == files::kInvalidAttributes) {
        Export(path, dialog);
    }
}

const DialogLocaliser::Language& DialogLocaliser::ChosenLanguage() {
    if (!language_) {
        Language language{store_.ReadHostText(L"NLS", lang::kBuiltInSuffix)};
        const int langOut = static_cast<int>(store_.ReadHostNumber(L"LangOut"));
        language.UsesFiles = lang::UsesDialogTextFiles(language.Suffix, langOut);
        language_ = std::move(language);
    }
    return *language_;
}

bool DialogLocaliser::Import(const std::wstring& path, HWND dialog) {
    const auto text = texts_.Read(path);
    if (!text) {
        return false;
    }
    for (const DialogTextEdit& edit : lang::ParseDialogText(*text)) {
        Apply(edit, dialog);
    }
    return true;
}

void DialogLocaliser::Export(const std::wstring& path, HWND dialog) {
    // Best effort: without the folder the file cannot be made either, and then nothing is.
    changes_.MakeFolder(lang::DialogTextFolder(modulePath_, ChosenLanguage().Suffix));
    std::vector<ControlText> controls;
    HWND control = nullptr;
    while ((control = FindWindowExW(dialog, control, nullptr, nullptr)) != nullptr) {
        controls.push_back(Describe(control));
    }
    texts_.Write(path, lang::RenderDialogText(framework::WindowText(dialog), controls));
}

}  // namespace ferry::dialogs
