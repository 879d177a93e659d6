#include "texts/dialog_source.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/line_reader.h"
#include "base/text.h"

namespace ferry::texts {

namespace {

/// Takes a statement apart, at the commas and blanks outside of quotes; a text comes without its quotes.
class WordSplitter {
public:
    explicit WordSplitter(std::wstring_view line) : line_(line) {}

    std::vector<std::wstring> Take() {
        while (at_ < line_.size() && !IsAtComment()) {
            if (isOpen_) {
                TakeQuoted();
            } else {
                TakePlain();
            }
            ++at_;
        }
        EndWord();
        return std::move(words_);
    }

private:
    wchar_t Next() const { return at_ + 1 < line_.size() ? line_[at_ + 1] : L'\0'; }

    bool IsAtComment() const { return !isOpen_ && line_[at_] == L'/' && Next() == L'/'; }

    void TakeQuoted() {
        const wchar_t unit = line_[at_];
        if (unit == L'\\' && Next() != L'\0') {
            word_ += Unescaped(Next());
            ++at_;
        } else if (unit == L'"' && Next() == L'"') {
            word_ += unit;
            ++at_;
        } else if (unit == L'"') {
            isOpen_ = false;
        } else {
            word_ += unit;
        }
    }

    void TakePlain() {
        const wchar_t unit = line_[at_];
        if (unit == L',' || base::IsSpace(unit)) {
            EndWord();
            return;
        }
        hasWord_ = true;
        isOpen_ = unit == L'"';
        if (!isOpen_) {
            word_ += unit;
        }
    }

    void EndWord() {
        if (hasWord_) {
            words_.push_back(std::exchange(word_, {}));
        }
        hasWord_ = false;
    }

    /// What a letter behind a backslash stands for.
    static wchar_t Unescaped(wchar_t letter) {
        switch (letter) {
            case L'n':
                return L'\n';
            case L'r':
                return L'\r';
            case L't':
                return L'\t';
            default:
                return letter;
        }
    }

    std::wstring_view line_;
    std::vector<std::wstring> words_;
    std::wstring word_;
    std::size_t at_ = 0;
    bool isOpen_ = false;
    bool hasWord_ = false;
};

std::vector<std::wstring> Words(std::wstring_view line) {
    return WordSplitter(line).Take();
}

/// Walks over the words of a statement.
class Statement {
public:
    Statement(std::vector<std::wstring> words, const ResourceNumbers& numbers)
        : words_(std::move(words)), numbers_(numbers) {}

    bool IsAtEnd() const noexcept { return next_ == words_.size(); }

    std::wstring Text() { return IsAtEnd() ? Missing() : words_[next_++]; }

    /// A number, or a name for one.
    int Number() {
        const std::wstring word = Text();
        const auto named = numbers_.find(word);
        if (named != numbers_.end()) {
            return named->second;
        }
        const std::wstring_view digits = std::wstring_view(word).substr(word.starts_with(L'-') ? 1 : 0);
        isGood_ = isGood_ && !digits.empty() && std::all_of(digits.begin(), digits.end(), &base::IsDigit);
        return base::ToInt(word);
    }

    /// Whether the rest has `flag`.
    bool Has(std::wstring_view flag) const { return Find(flag) != words_.end(); }

    /// Whether the rest has `flag` behind "NOT".
    bool HasNot(std::wstring_view flag) const {
        const auto found = Find(flag);
        return found != words_.end() && found != words_.begin() && *std::prev(found) == L"NOT";
    }

    bool IsGood() const noexcept { return isGood_; }

private:
    std::vector<std::wstring>::const_iterator Find(std::wstring_view flag) const {
        return std::find(words_.begin() + static_cast<std::ptrdiff_t>(next_), words_.end(), flag);
    }

    std::wstring Missing() {
        isGood_ = false;
        return {};
    }

    std::vector<std::wstring> words_;
    const ResourceNumbers& numbers_;
    std::size_t next_ = 0;
    bool isGood_ = true;
};

/// A statement that makes a control of one class.
struct Kind {
    std::wstring_view Statement;
    std::wstring_view ClassName;
    Shape Looks;
    bool HasText;
};
constexpr Kind kKinds[] = {
    {L"LTEXT", L"Static", Shape::Label, true},          {L"CTEXT", L"Static", Shape::Label, true},
    {L"RTEXT", L"Static", Shape::Label, true},          {L"PUSHBUTTON", L"Button", Shape::Button, true},
    {L"DEFPUSHBUTTON", L"Button", Shape::Button, true}, {L"GROUPBOX", L"Button", Shape::Frame, true},
    {L"EDITTEXT", L"Edit", Shape::NotMeasured, false},  {L"LISTBOX", L"ListBox", Shape::NotMeasured, false},
    {L"COMBOBOX", L"ComboBox", Shape::List, false},
};

/// Classes whose names the headers of Windows define.
constexpr std::pair<std::wstring_view, std::wstring_view> kNamedClasses[] = {
    {L"WC_LISTVIEWW", L"SysListView32"}, {L"PROGRESS_CLASSW", L"msctls_progress32"}};

std::wstring ClassNamed(const std::wstring& name) {
    for (const auto& [symbol, className] : kNamedClasses) {
        if (name == symbol) {
            return std::wstring(className);
        }
    }
    return name;
}

Shape ShapeOf(const std::wstring& className, const Statement& style) {
    if (className == L"Button") {
        constexpr std::wstring_view kChoices[] = {L"BS_AUTORADIOBUTTON", L"BS_AUTOCHECKBOX"};
        const bool isChoice = std::any_of(std::begin(kChoices), std::end(kChoices),
                                          [&](std::wstring_view flag) { return style.Has(flag); });
        return isChoice ? Shape::Choice : Shape::Button;
    }
    return className == L"Static" ? Shape::Label : Shape::NotMeasured;
}

/// A length; templates hold 16 bits of it.
int LengthOf(Statement& statement) {
    return std::clamp(statement.Number(), 0, 32767);
}

void ReadPlace(Statement& statement, ControlSource& control) {
    statement.Number();
    statement.Number();
    control.Width = LengthOf(statement);
    control.Height = LengthOf(statement);
}

void ReadStyle(const Statement& style, ControlSource& control) {
    control.IsShown = !style.HasNot(L"WS_VISIBLE");
    control.HasMnemonics = !style.Has(L"SS_NOPREFIX");
    if (!control.IsShown || style.Has(L"SS_ENDELLIPSIS") || control.Width == 0) {
        control.Looks = Shape::NotMeasured;
    }
}

/// `CONTROL text, number, class, style, place`.
ControlSource ReadGeneralControl(Statement& statement) {
    ControlSource control;
    control.Texts.Text = statement.Text();
    control.Texts.ControlId = statement.Number();
    control.Texts.ClassName = ClassNamed(statement.Text());
    control.Looks = ShapeOf(control.Texts.ClassName, statement);
    const Statement style = statement;
    while (!statement.IsAtEnd() && (statement.Has(L"|") || statement.Has(L"NOT"))) {
        statement.Text();
    }
    statement.Text();  // the last flag
    ReadPlace(statement, control);
    ReadStyle(style, control);
    return control;
}

ControlSource ReadControl(const Kind& kind, Statement& statement) {
    ControlSource control;
    control.Texts.ClassName = kind.ClassName;
    control.Looks = kind.Looks;
    if (kind.HasText) {
        control.Texts.Text = statement.Text();
    }
    control.Texts.ControlId = statement.Number();
    ReadPlace(statement, control);
    ReadStyle(statement, control);
    return control;
}

/// The control of a line that begins with `name`; nothing when it is no statement that makes one.
std::optional<ControlSource> ControlOf(const std::wstring& name, Statement& statement) {
    if (name == L"CONTROL") {
        return ReadGeneralControl(statement);
    }
    for (const Kind& kind : kKinds) {
        if (name == kind.Statement) {
            return ReadControl(kind, statement);
        }
    }
    return std::nullopt;
}

/// Gathers the dialogs of a source line by line.
class Reader {
public:
    explicit Reader(const ResourceNumbers& numbers) : numbers_(numbers) {}

    void Read(std::wstring_view line) {
        ++line_;
        std::vector<std::wstring> words = Words(line);
        if (words.empty() || words[0].starts_with(L'#')) {
            return;
        }
        if (words.size() > 1 && (words[1] == L"DIALOGEX" || words[1] == L"DIALOG")) {
            Begin(std::move(words));
        } else if (!sources_.Dialogs.empty()) {
            ReadStatement(std::move(words));
        }
    }

    DialogSources Take() { return std::move(sources_); }

private:
    void Begin(std::vector<std::wstring> words) {
        Statement statement(std::move(words), numbers_);
        DialogSource dialog;
        dialog.Number = statement.Number();
        statement.Text();
        statement.Number();
        statement.Number();
        dialog.Width = LengthOf(statement);
        Note(statement);
        sources_.Dialogs.push_back(std::move(dialog));
        isWithin_ = false;
    }

    void ReadStatement(std::vector<std::wstring> words) {
        DialogSource& dialog = sources_.Dialogs.back();
        const std::wstring name = words[0];
        if (name == L"BEGIN" || name == L"END") {
            isWithin_ = name == L"BEGIN";
            return;
        }
        Statement statement(std::move(words), numbers_);
        statement.Text();
        if (name == L"CAPTION" && !isWithin_) {
            dialog.Title = statement.Text();
            dialog.TitleLine = line_;
        } else if (isWithin_) {
            std::optional<ControlSource> control = ControlOf(name, statement);
            if (!control) {
                sources_.BadLines.push_back(line_);
                return;
            }
            control->Line = line_;
            dialog.Controls.push_back(*std::move(control));
        }
        Note(statement);
    }

    void Note(const Statement& statement) {
        if (!statement.IsGood()) {
            sources_.BadLines.push_back(line_);
        }
    }

    const ResourceNumbers& numbers_;
    DialogSources sources_;
    std::size_t line_ = 0;
    bool isWithin_ = false;
};

}  // namespace

ResourceNumbers ParseResourceNumbers(std::wstring_view header) {
    ResourceNumbers numbers = {{L"IDOK", 1}, {L"IDCANCEL", 2}};
    base::LineReader reader(header);
    for (std::wstring_view line; reader.Next(line);) {
        const std::vector<std::wstring> words = Words(line);
        if (words.size() == 3 && words[0] == L"#define") {
            numbers[words[1]] = base::ToInt(words[2]);
        }
    }
    return numbers;
}

DialogSources ParseDialogSource(std::wstring_view source, const ResourceNumbers& numbers) {
    Reader reader(numbers);
    base::LineReader lines(source);
    for (std::wstring_view line; lines.Next(line);) {
        reader.Read(line);
    }
    return reader.Take();
}

}  // namespace ferry::texts
