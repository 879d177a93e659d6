#include "texts/dialog_check.h"

#include <algorithm>
#include <cwctype>
#include <map>
#include <set>
#include <span>
#include <utility>

#include "base/line_reader.h"
#include "base/text.h"
#include "ids.h"
#include "lang/message_line.h"
#include "texts/placeholders.h"
#include "texts/text_width.h"

namespace ferry::texts {

using lang::DialogTextEdit;

namespace {

/// Controls that the confirmation dialog shows in one of its two modes only; a letter may stand in both.
constexpr int kBatchOnly[] = {IDC_NO_ASK};
constexpr int kIndividualOnly[] = {IDC_POLICY_GROUP,
                                   IDC_POLICY_IF_SOURCE_IS_NEWER,
                                   IDC_POLICY_IF_SOURCE_IS_OLDER,
                                   IDC_POLICY_KEEP_EXISTING,
                                   IDC_POLICY_OVERWRITE,
                                   IDC_POLICY_RENAME_INCOMING,
                                   IDC_POLICY_RENAME_EXISTING,
                                   IDC_POLICY_RENAME_AUTOMATICALLY,
                                   IDC_POLICY_ASK_EACH,
                                   IDC_PRECISION_LABEL,
                                   IDC_PRECISION};

bool IsAmong(std::span<const int> numbers, int number) {
    return std::ranges::find(numbers, number) != numbers.end();
}

bool AreShownTogether(int dialog, int left, int right) {
    const bool isEither = (IsAmong(kBatchOnly, left) && IsAmong(kIndividualOnly, right)) ||
                          (IsAmong(kIndividualOnly, left) && IsAmong(kBatchOnly, right));
    return dialog != IDD_FERRY || !isEither;
}

/// The letter that leads to a control with `text`, as a capital; nothing when there is none.
wchar_t MnemonicOf(std::wstring_view text) {
    for (std::size_t at = 0; at + 1 < text.size(); ++at) {
        if (text[at] == L'&' && text[at + 1] == L'&') {
            ++at;
        } else if (text[at] == L'&') {
            return static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(text[at + 1])));
        }
    }
    return L'\0';
}

/// Whether a language other than the built-in one needs another text: Latin letters alone mean the same
/// everywhere.
bool NeedsTranslation(std::wstring_view text) {
    return std::ranges::any_of(text, [](wchar_t unit) { return unit > L'~'; });
}

std::wstring Quoted(std::wstring_view text) {
    return L"\"" + base::ReplaceAll(text, L"\n", L"\\n") + L"\"";
}

std::wstring Listed(const std::vector<std::wstring>& words) {
    std::wstring list;
    for (const std::wstring& word : words) {
        list.append(list.empty() ? L"" : L" ").append(word);
    }
    return list.empty() ? L"none" : list;
}

/// A text as a person meets it: of the translation, or the built-in one where there is none.
struct ShownText {
    const ControlSource* Control = nullptr;
    std::wstring Text;
    std::size_t Line = 0;
};

/// Checks one dialog in one language and gathers what is wrong.
class DialogCheck {
public:
    DialogCheck(const DialogSource& dialog, const std::wstring& file) : dialog_(dialog), file_(file) {}

    Findings OfBuiltInTexts() {
        JudgeTitle(dialog_.Title, dialog_.TitleLine);
        std::vector<ShownText> texts;
        for (const ControlSource& control : dialog_.Controls) {
            texts.push_back({&control, control.Texts.Text, control.Line});
            JudgeWidth(texts.back());
            for (const std::wstring& item : control.Texts.Items) {
                JudgeWidth({&control, item, control.Line});
            }
        }
        JudgeMnemonics(texts);
        return std::move(findings_);
    }

    Findings OfTranslation(std::wstring_view text) {
        ReadLines(text);
        if (!hasTitle_) {
            Note(1, L"the first line is no title");
        }
        std::vector<ShownText> texts;
        for (const ControlSource& control : dialog_.Controls) {
            const auto translated = translated_.find(control.Texts.ControlId);
            if (translated != translated_.end()) {
                texts.push_back(translated->second);
            } else {
                JudgeMissing(control);
                texts.push_back({&control, control.Texts.Text, 0});
            }
            JudgeItems(control);
        }
        JudgeMnemonics(texts);
        return std::move(findings_);
    }

private:
    void Note(std::size_t line, std::wstring what) { findings_.push_back({file_, line, std::move(what)}); }

    void ReadLines(std::wstring_view text) {
        base::LineReader reader(text);
        bool isFirst = true;
        for (std::wstring_view raw; reader.Next(raw);) {
            ++line_;
            const std::wstring cleaned = lang::WithoutMarks(raw);
            const std::wstring_view line = base::Trim(cleaned);
            if (lang::IsEndOfFile(line)) {
                return;
            }
            if (lang::IsComment(line) || (line.empty() && !isFirst)) {
                continue;
            }
            ReadLine(line, std::exchange(isFirst, false));
        }
    }

    /// One line, as the program itself understands it.
    void ReadLine(std::wstring_view line, bool isFirst) {
        const std::wstring before = isFirst ? L"" : L"title\n";
        const std::vector<DialogTextEdit> edits = lang::ParseDialogText(before + std::wstring(line));
        const std::size_t first = isFirst ? 0 : 1;
        if (edits.size() == first) {
            if (!line.starts_with(L"-1\t")) {
                Note(line_, L"this line has no effect: " + Quoted(line));
            }
            return;
        }
        const DialogTextEdit& edit = edits[first];
        if (edit.What == DialogTextEdit::Kind::SetTitle) {
            hasTitle_ = !edit.Text.empty();
            JudgeTitle(edit.Text, line_);
        } else {
            ReadEdit(edit, base::Split(line, L'\t')[1]);
        }
    }

    void ReadEdit(const DialogTextEdit& edit, std::wstring_view className) {
        const auto control = std::ranges::find_if(dialog_.Controls, [&](const ControlSource& candidate) {
            return candidate.Texts.ControlId == edit.ControlId;
        });
        if (control == dialog_.Controls.end()) {
            Note(line_, L"the dialog has no control " + std::to_wstring(edit.ControlId));
            return;
        }
        const bool isList = edit.What != DialogTextEdit::Kind::SetText;
        const std::wstring_view expected = control->Texts.ClassName;
        if (isList ? expected != L"ComboBox" : expected != className) {
            Note(line_, L"control " + std::to_wstring(edit.ControlId) + L" is a " + std::wstring(expected));
            return;
        }
        if (edit.What == DialogTextEdit::Kind::AddItem) {
            items_[edit.ControlId].push_back(edit.Text);
            JudgeWidth({&*control, edit.Text, line_});
        } else if (!seen_.insert(edit.ControlId).second) {
            Note(line_, L"control " + std::to_wstring(edit.ControlId) + L" stands here twice");
        } else if (!isList) {
            Take({&*control, edit.Text, line_});
        }
    }

    void Take(ShownText shown) {
        const std::wstring& original = shown.Control->Texts.Text;
        if (original.empty()) {
            Note(shown.Line, L"control " + std::to_wstring(shown.Control->Texts.ControlId) +
                                 L" shows no text of its own");
            return;
        }
        JudgeWidth(shown);
        const std::vector<std::wstring> wanted = PlaceholdersOf(original);
        const std::vector<std::wstring> found = PlaceholdersOf(shown.Text);
        if (wanted != found) {
            Note(shown.Line, L"the placeholders should be " + Listed(wanted) + L" and are " + Listed(found) +
                                 L": " + Quoted(shown.Text));
        }
        const bool hadMnemonic = shown.Control->HasMnemonics && MnemonicOf(original) != L'\0';
        if (hadMnemonic && MnemonicOf(shown.Text) == L'\0') {
            Note(shown.Line, L"there is no letter behind a \"&\": " + Quoted(shown.Text));
        }
        translated_.emplace(shown.Control->Texts.ControlId, std::move(shown));
    }

    void JudgeMissing(const ControlSource& control) {
        if (NeedsTranslation(control.Texts.Text)) {
            Note(0, L"there is no text for control " + std::to_wstring(control.Texts.ControlId) + L", " +
                        Quoted(control.Texts.Text));
        }
    }

    void JudgeItems(const ControlSource& control) {
        const std::vector<std::wstring>& items = control.Texts.Items;
        const int number = control.Texts.ControlId;
        if (seen_.contains(number) && control.Texts.ClassName == L"ComboBox") {
            if (items_[number].size() != items.size()) {
                Note(0, L"list " + std::to_wstring(number) + L" has " +
                            std::to_wstring(items_[number].size()) + L" entries instead of " +
                            std::to_wstring(items.size()));
            }
        } else if (std::ranges::any_of(items, &NeedsTranslation)) {
            Note(0, L"there are no entries for list " + std::to_wstring(number));
        }
    }

    void JudgeTitle(std::wstring_view title, std::size_t line) {
        if (TitleWidthBeyond(title, dialog_.Width) > 0) {
            Note(line, L"the title is too long: " + Quoted(title));
        }
    }

    void JudgeWidth(const ShownText& shown) {
        const int beyond = WidthBeyond(shown.Text, *shown.Control);
        if (beyond > 0) {
            Note(shown.Line, L"too long by about " + std::to_wstring((beyond + 9) / 10) + L" of " +
                                 std::to_wstring(shown.Control->Width) + L" dialog units: " +
                                 Quoted(shown.Text));
        }
    }

    void JudgeMnemonics(const std::vector<ShownText>& texts) {
        for (auto later = texts.begin(); later != texts.end(); ++later) {
            const wchar_t letter = LetterOf(*later);
            const auto earlier = std::find_if(texts.begin(), later, [&](const ShownText& other) {
                return letter != L'\0' && LetterOf(other) == letter &&
                       AreShownTogether(dialog_.Number, other.Control->Texts.ControlId,
                                        later->Control->Texts.ControlId);
            });
            if (earlier != later) {
                Note(later->Line, std::wstring(L"the letter ") + letter + L" leads to control " +
                                      std::to_wstring(earlier->Control->Texts.ControlId) + L" already: " +
                                      Quoted(later->Text));
            }
        }
    }

    static wchar_t LetterOf(const ShownText& shown) {
        const ControlSource& control = *shown.Control;
        return control.IsShown && control.HasMnemonics ? MnemonicOf(shown.Text) : L'\0';
    }

    const DialogSource& dialog_;
    const std::wstring& file_;
    Findings findings_;
    std::size_t line_ = 0;
    bool hasTitle_ = false;
    std::set<int> seen_;
    std::map<int, ShownText> translated_;
    std::map<int, std::vector<std::wstring>> items_;
};

}  // namespace

Findings CheckBuiltInTexts(const DialogSource& dialog, const std::wstring& file) {
    return DialogCheck(dialog, file).OfBuiltInTexts();
}

Findings CheckDialogText(const DialogSource& dialog, std::wstring_view text, const std::wstring& file) {
    return DialogCheck(dialog, file).OfTranslation(text);
}

}  // namespace ferry::texts
