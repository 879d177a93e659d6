#include "texts/new_language.h"

#include <algorithm>

#include "base/line_reader.h"
#include "base/text.h"
#include "lang/message_line.h"

namespace ferry::texts {

using lang::ControlText;
using lang::DialogTextEdit;

namespace {

void Apply(const DialogTextEdit& edit, std::wstring& title, std::vector<ControlText>& controls) {
    if (edit.What == DialogTextEdit::Kind::SetTitle) {
        title = edit.Text;
        return;
    }
    const auto control = std::ranges::find(controls, edit.ControlId, &ControlText::ControlId);
    if (control == controls.end()) {
        return;
    }
    if (edit.What == DialogTextEdit::Kind::ClearList) {
        control->Items.clear();
    } else if (edit.What == DialogTextEdit::Kind::AddItem) {
        control->Items.push_back(edit.Text);
    } else {
        control->Text = edit.Text;
    }
}

bool IsLetterOrDigit(wchar_t unit) {
    const wchar_t small = base::LowerAscii(unit);
    return (small >= L'a' && small <= L'z') || base::IsDigit(unit);
}

}  // namespace

LanguageFile StartDialogText(const DialogSource& dialog, std::wstring_view translation) {
    std::wstring title = dialog.Title;
    std::vector<ControlText> controls;
    controls.reserve(dialog.Controls.size());
    for (const ControlSource& control : dialog.Controls) {
        controls.push_back(control.Texts);
    }
    for (const DialogTextEdit& edit : lang::ParseDialogText(translation)) {
        Apply(edit, title, controls);
    }
    return {std::to_wstring(dialog.Number) + L".txt", lang::RenderDialogText(title, controls)};
}

LanguageFile StartMessages(const std::wstring& language, std::wstring_view original) {
    LanguageFile file{L"Msg." + language + L".txt", L"\xFEFF"};
    base::LineReader reader(original);
    for (std::wstring_view raw; reader.Next(raw);) {
        const std::wstring line = lang::WithoutMarks(raw);
        file.Units.append(base::TrimRight(line)).append(L"\r\n");
    }
    return file;
}

bool IsLanguageName(std::wstring_view name) {
    const bool hasLetters =
        std::ranges::all_of(name, [](wchar_t unit) { return IsLetterOrDigit(unit) || unit == L'-'; });
    return hasLetters && !name.empty() && name.front() != L'-' && name.back() != L'-';
}

}  // namespace ferry::texts
