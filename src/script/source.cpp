#include "script/source.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "paths/placeholders.h"
#include "script/limits.h"
#include "script/numbers.h"

namespace ferry::script {

namespace {

/// Lines that begin with a word of the language, whatever stands behind it.
constexpr std::pair<std::wstring_view, LineKind> kFirstWords[] = {
    {L"if", LineKind::If},
    {L"else", LineKind::Else},
    {L"endif", LineKind::EndIf},
    {L"for", LineKind::For},
    {L"next", LineKind::Next},
    {L"while", LineKind::While},
    {L"continue", LineKind::Continue},
    {L"break", LineKind::Break},
    {L"goto", LineKind::Goto},
    {L"var", LineKind::Declaration},
    {L"exit", LineKind::Exit},
    {L"exitall", LineKind::ExitAll},
    {L"fileclose", LineKind::CloseFile},
    {L"removeselectitems", LineKind::EmptySelection},
    {L"updatestate", LineKind::Nothing},
};

/// Lines that are one word of the language and nothing else.
constexpr std::pair<std::wstring_view, LineKind> kWholeLines[] = {
    {L"eof", LineKind::End},
    {L"debug", LineKind::Debug},
    {L"do", LineKind::Do},
};

template <std::size_t kCount>
LineKind KindOf(const std::pair<std::wstring_view, LineKind> (&words)[kCount],
                std::wstring_view text) noexcept {
    const auto* row = std::ranges::find_if(
        words, [text](const auto& word) { return base::EqualsIgnoringAsciiCase(word.first, text); });
    return row != std::end(words) ? row->second : LineKind::Unknown;
}

bool HasMarks(std::wstring_view text) noexcept {
    return text.find_first_of(L"?%") != std::wstring_view::npos;
}

PreparedText Prepare(std::wstring_view text) noexcept {
    PreparedText prepared;
    prepared.Text = text;
    prepared.HasMarks = HasMarks(text);
    return prepared;
}

void PrepareCondition(Line& line, std::wstring_view text) {
    const ConditionParts parts = SplitCondition(text);
    line.Compare = parts.Compare;
    line.Argument = Prepare(parts.Compare == Operator::None ? text : parts.Left);
    line.RightSide = Prepare(parts.Right);
    line.Argument.Number = ExactNumber(base::Trim(line.Argument.Text));
    line.RightSide.Number = ExactNumber(base::Trim(parts.Right));
}

/// Fills in what a line that begins with a word of the language has behind that word.
void TakeRest(Line& line, std::wstring_view rest) {
    switch (line.Kind) {
        case LineKind::If:
        case LineKind::While:
            PrepareCondition(line, rest);
            break;
        case LineKind::Goto:
            line.Name = LabelName(rest);
            break;
        case LineKind::Declaration:
            line.Name = rest;
            break;
        default:
            break;
    }
}

/// A line of the form NAME=TEXT.
void ClassifySetting(Line& line, std::size_t equals) {
    line.Name = base::TrimRight(line.Text.substr(0, equals));
    const std::wstring_view text = line.Text.substr(equals + 1);
    line.Option = FindOption(line.Name);
    line.Command = FindCommand(line.Name);
    line.HasEquals = true;
    const bool isAssignment = line.Option == nullptr && line.Command == nullptr;
    line.Kind =
        isAssignment ? LineKind::Assignment : (line.Option != nullptr ? LineKind::Option : LineKind::Command);
    line.Argument = Prepare(isAssignment ? text : base::Trim(text));
    if (isAssignment && !text.empty() && IsNumberOperator(text.front())) {
        line.Argument.Number = ExactNumber(text.substr(1));
    }
}

void ClassifyOther(Line& line, std::wstring_view firstWord) {
    const std::size_t equals = line.Text.find(L'=');
    if (equals != std::wstring_view::npos) {
        return ClassifySetting(line, equals);
    }
    line.Command = FindCommand(firstWord);
    line.Kind = line.Command != nullptr ? LineKind::Command : LineKind::Unknown;
}

void ClassifyByWords(Line& line) {
    const std::size_t blank = line.Text.find(L' ');
    const std::wstring_view firstWord = line.Text.substr(0, blank);
    const LineKind whole = KindOf(kWholeLines, line.Text);
    line.Kind = whole != LineKind::Unknown ? whole : KindOf(kFirstWords, firstWord);
    if (line.Text.ends_with(L':') && line.Kind != LineKind::Goto) {
        line.Kind = LineKind::Label;
        line.Name = LabelName(line.Text);
    } else if (line.Kind == LineKind::Unknown) {
        ClassifyOther(line, firstWord);
    } else {
        TakeRest(line, blank == std::wstring_view::npos ? std::wstring_view()
                                                        : base::Trim(line.Text.substr(blank)));
    }
}

bool HasRunWord(std::wstring_view text) noexcept {
    constexpr std::wstring_view kWords[] = {kSelectedCountWord, kScriptNameWord, kScriptPathWord};
    return text.find(L'?') != std::wstring_view::npos &&
           std::ranges::any_of(
               kWords, [text](std::wstring_view word) { return text.find(word) != std::wstring_view::npos; });
}

}  // namespace

std::wstring_view TakeRawLine(std::wstring_view& rest) noexcept {
    const std::size_t feed = rest.find(L'\n');
    std::wstring_view line = rest.substr(0, feed);
    rest.remove_prefix(feed == std::wstring_view::npos ? rest.size() : feed + 1);
    if (feed != std::wstring_view::npos && line.ends_with(L'\r')) {
        line.remove_suffix(1);
    }
    line = line.substr(0, kMaxLineUnits);
    return line.substr(0, line.find(L'\0'));
}

std::wstring_view LabelName(std::wstring_view text) noexcept {
    return base::Trim(text.ends_with(L':') ? text.substr(0, text.size() - 1) : text);
}

Line ClassifyLine(std::wstring_view text, std::size_t number, std::size_t column) {
    Line line;
    line.Number = number;
    line.Column = column;
    line.Text = text;
    if (!text.empty() && !text.starts_with(L"//")) {
        line.HasRunWords = HasRunWord(text);
        ClassifyByWords(line);
    }
    return line;
}

Source::Source(std::wstring text) : text_(std::move(text)) {
    std::ranges::replace(text_, L'\t', L' ');
    std::wstring_view rest = text_;
    while (!rest.empty() && TakeLine(TakeRawLine(rest))) {
    }
}

bool Source::TakeLine(std::wstring_view text) {
    ++count_;
    const std::wstring_view trimmed = base::Trim(text);
    const Line line = ClassifyLine(trimmed, count_, static_cast<std::size_t>(trimmed.data() - text.data()));
    worksOnSelection_ = worksOnSelection_ || paths::HasItemWord(trimmed);
    if (line.Kind != LineKind::Nothing && line.Kind != LineKind::End) {
        lines_.push_back(line);
    }
    return line.Kind != LineKind::End;
}

}  // namespace ferry::script
