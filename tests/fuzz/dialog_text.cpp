// A dialog text file of any units, and the export's way back through the import.
#include "lang/dialog_text.h"

#include "base/line_reader.h"
#include "base/text.h"
#include "fuzz_input.h"

namespace {

using namespace ferry;
using Edit = lang::DialogTextEdit;

bool Same(const Edit& left, const Edit& right) {
    return left.What == right.What && left.ControlId == right.ControlId && left.Text == right.Text;
}

void CheckEdits(const std::vector<Edit>& edits) {
    for (std::size_t i = 0; i < edits.size(); ++i) {
        const Edit& edit = edits[i];
        fuzz::Require(edit.What != Edit::Kind::SetTitle || i == 0, "only the first change sets the title");
        fuzz::Require(edit.What == Edit::Kind::SetTitle || edit.ControlId != -1, "control -1 is left out");
        fuzz::Require(edit.What != Edit::Kind::ClearList || edit.Text.empty(), "clearing has no text");
        fuzz::Require(edit.Text.find(L'\xFEFF') == std::wstring::npos, "no mark is left");
        if (edit.What == Edit::Kind::SetText) {
            fuzz::Require(edit.Text.find(L"\\t") == std::wstring::npos, "no escape is left");
        }
    }
}

/// `text` as a text that a line of the file can carry: what the import takes away is gone already.
std::wstring Carried(std::wstring_view text, bool escapes) {
    std::wstring result;
    for (const wchar_t unit : text.substr(0, 200)) {
        const bool isLost = unit == L'\0' || unit == L'\xFEFF' || (escapes && unit == L'\\') ||
                            (!escapes && (unit == L'\t' || unit == L'\r' || unit == L'\n'));
        if (!isLost) {
            result.push_back(unit);
        }
    }
    return L"<" + result + L">";  // neither end is white space, a comment or the end line
}

/// What the import makes of a dialog must be what the dialog had.
void CheckWayBack(std::wstring_view text) {
    const std::wstring title = Carried(text, false);
    const std::wstring wording = Carried(text, true);
    const std::vector<lang::ControlText> controls = {
        {7, L"Button", wording, {}},
        {-1, L"Static", wording, {}},
        {8, L"ComboBox", L"", {title, L"x"}},
        {9, L"Edit", wording, {}},
    };
    const Edit expected[] = {{Edit::Kind::SetTitle, 0, title},
                             {Edit::Kind::SetText, 7, wording},
                             {Edit::Kind::ClearList, 8, L""},
                             {Edit::Kind::AddItem, 8, title},
                             {Edit::Kind::AddItem, 8, L"x"}};
    const std::vector<Edit> edits = lang::ParseDialogText(lang::RenderDialogText(title, controls));
    fuzz::Require(edits.size() == std::size(expected), "every change came back");
    for (std::size_t i = 0; i < edits.size(); ++i) {
        fuzz::Require(Same(edits[i], expected[i]), "each change came back as it was");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::ExactUnits text(fuzz::UnitsOf(data, size));
    const std::vector<Edit> edits = lang::ParseDialogText(text.View());
    CheckEdits(edits);
    CheckWayBack(text.View());

    const std::vector<lang::ControlText> any = {
        {1, std::wstring(text.View()), std::wstring(text.View()), {}}};
    CheckEdits(lang::ParseDialogText(lang::RenderDialogText(text.View(), any)));
    return 0;
}
