// The text files that translate a dialog's controls.
#include "lang/dialog_text.h"

#include <algorithm>
#include <array>

#include "base/line_reader.h"
#include "base/text.h"
#include "lang/catalogue.h"
#include "lang/message_line.h"
#include "paths/path_grammar.h"

namespace ferry::lang {

namespace {

constexpr std::wstring_view kComboBoxStart = L"ComboBoxStart";
constexpr std::wstring_view kComboBoxClass = L"ComboBox";
constexpr std::wstring_view kLineEnd = L"\r\n";

/// What such a file says for static texts, which share one number and so cannot be told apart.
constexpr int kUnnumberedControl = -1;

/// The room that the export has for a window's text and for its class name.
constexpr std::size_t kMaxWindowText = 32766;

/// Classes whose text is no wording: lists, tabs and what the user types.
constexpr std::array<std::wstring_view, 3> kSkippedClasses = {L"SysListView32", L"SysTabControl32", L"Edit"};

struct Escape {
    std::wstring_view Plain;
    std::wstring_view Written;
};
constexpr std::array<Escape, 3> kEscapes = {{{L"\n", L"\\n"}, {L"\r", L"\\r"}, {L"\t", L"\\t"}}};

std::wstring Escaped(std::wstring_view text) {
    std::wstring result(text);
    for (const Escape& escape : kEscapes) {
        result = base::ReplaceAll(result, escape.Plain, escape.Written);
    }
    return result;
}

std::wstring Unescaped(std::wstring_view text) {
    std::wstring result(text);
    for (const Escape& escape : kEscapes) {
        result = base::ReplaceAll(result, escape.Written, escape.Plain);
    }
    return result;
}

using Pieces = std::vector<std::wstring_view>;

/// Adds the change that a line about a control asks for.
void AddControlEdit(const Pieces& pieces, std::vector<DialogTextEdit>& edits) {
    using Kind = DialogTextEdit::Kind;
    if (pieces.size() != 2 && pieces.size() != 3) {
        return;
    }
    const int controlId = base::ToInt(pieces[0]);
    if (controlId == kUnnumberedControl) {
        return;
    }
    if (pieces.size() == 2) {
        if (pieces[1] == kComboBoxStart) {
            edits.push_back({Kind::ClearList, controlId, {}});
        }
    } else if (pieces[1] == kComboBoxClass) {
        edits.push_back({Kind::AddItem, controlId, std::wstring(pieces[2])});
    } else {
        edits.push_back({Kind::SetText, controlId, Unescaped(pieces[2])});
    }
}

std::wstring RenderComboBox(const std::wstring& number, const ControlText& control) {
    std::wstring lines = number + L"\t";
    lines.append(kComboBoxStart).append(kLineEnd);
    for (const std::wstring& item : control.Items) {
        lines.append(number).append(L"\t").append(control.ClassName).append(L"\t");
        lines.append(item).append(kLineEnd);
    }
    return lines;
}

std::wstring RenderControl(const ControlText& control) {
    if (std::find(kSkippedClasses.begin(), kSkippedClasses.end(), control.ClassName) !=
        kSkippedClasses.end()) {
        return {};
    }
    const std::wstring number = std::to_wstring(control.ControlId);
    if (control.ClassName == kComboBoxClass) {
        return RenderComboBox(number, control);
    }
    if (control.Text.empty()) {
        return {};
    }
    std::wstring line = number + L"\t";
    line.append(control.ClassName, 0, kMaxClassName).append(L"\t");
    line.append(Escaped(std::wstring_view(control.Text).substr(0, kMaxWindowText))).append(kLineEnd);
    return line;
}

}  // namespace

std::vector<DialogTextEdit> ParseDialogText(std::wstring_view fileText) {
    std::vector<DialogTextEdit> edits;
    base::LineReader reader(fileText);
    bool isFirstLine = true;
    for (std::wstring_view raw; reader.Next(raw);) {
        const std::wstring cleaned = WithoutMarks(raw);
        const std::wstring_view line = base::Trim(cleaned);
        if (IsComment(line)) {
            continue;
        }
        if (IsEndOfFile(line)) {
            break;
        }
        const Pieces pieces = base::Split(line, L'\t');
        if (isFirstLine && pieces.size() == 1) {
            edits.push_back({DialogTextEdit::Kind::SetTitle, 0, std::wstring(pieces[0])});
        } else {
            AddControlEdit(pieces, edits);
        }
        isFirstLine = false;
    }
    return edits;
}

std::wstring RenderDialogText(std::wstring_view title, std::span<const ControlText> controls) {
    std::wstring file = L"\xFEFF";
    file.append(title.substr(0, kMaxWindowText)).append(kLineEnd);
    for (const ControlText& control : controls) {
        file.append(RenderControl(control));
    }
    return file;
}

std::wstring DialogTextFolder(std::wstring_view modulePath, std::wstring_view suffix) {
    const paths::PathParts parts = paths::SplitPath(modulePath);
    return std::wstring(parts.Drive).append(parts.Folder).append(suffix).append(L"\\").append(parts.Name);
}

std::wstring DialogTextPath(std::wstring_view modulePath, std::wstring_view suffix, int templateId) {
    return DialogTextFolder(modulePath, suffix) + L"\\" + std::to_wstring(templateId) + L".txt";
}

bool UsesDialogTextFiles(std::wstring_view suffix, int langOut) noexcept {
    return suffix != kBuiltInSuffix || langOut != 0;
}

}  // namespace ferry::lang
