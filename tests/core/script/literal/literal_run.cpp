// The two passes over one script file, its blocks and its labels.
#include "core/script/literal/literal_run.h"

#include "paths/path_grammar.h"

namespace ferry::script::literal {
namespace {

// The states of an if.
constexpr unsigned kInElse = 0;        ///< The condition was false; its else runs.
constexpr unsigned kInTaken = 1;       ///< The condition was true.
constexpr unsigned kWaitsForElse = 2;  ///< The condition was false.
constexpr unsigned kBehindTaken = 3;   ///< The else of a condition that was true, and ifs in it.
constexpr unsigned kInSkipped = 4;     ///< An if within what waits for an else.

constexpr int kFor = 1;
constexpr int kDo = 2;

constexpr const wchar_t* kTraceTitles[] = {L"Script trace Kiv", L"Kiv Script Debugger"};

bool IsLabel(const std::wstring& line) {
    return line.ends_with(L':') && Small(FirstWord(line)) != L"goto";
}

std::wstring WithoutColon(std::wstring label) {
    if (label.ends_with(L':'))
        label.pop_back();
    return Trimmed(label);
}

Failure UsedWithout(const std::wstring& closing, const std::wstring& opener) {
    return {L"'" + closing + L"' was used without '" + opener + L"'\n"};
}

}  // namespace

std::wstring* TextOf(Table& table, const std::wstring& name) {
    for (auto& [known, text] : table) {
        if (known == name)
            return &text;
    }
    return nullptr;
}

LiteralRun::LiteralRun(Together& together, std::wstring path, int depth, bool isTraced,
                       std::optional<std::wstring> item)
    : together_(together),
      world_(together.World),
      path_(std::move(path)),
      depth_(depth),
      isTraced_(isTraced),
      outerItem_(std::move(item)) {}

Course LiteralRun::Run() {
    std::unique_ptr<InFile> file = world_.ByteFiles.OpenToRead(path_);
    if (file == nullptr) {
        Tell(L"Cannot read " + path_);
        return Course::GoesOn;
    }
    lines_ = ScriptLines(std::move(file));
    CollectLabels();
    Trace(1, path_);
    while (next_ <= lines_.size()) {
        now_ = next_++;
        const Course course = RunLine();
        if (course != Course::GoesOn)
            return course;
    }
    return Course::GoesOn;
}

void LiteralRun::CollectLabels() {
    for (now_ = 1; now_ <= lines_.size(); ++now_) {
        const std::wstring line = Normalised(lines_[now_ - 1]);
        if (Small(line) == L"eof")
            return;
        if (line.starts_with(L"//"))
            continue;
        if (Small(line) == L"debug")
            isTraced_ = world_.Trace.Find(kTraceTitles[0]) || world_.Trace.Find(kTraceTitles[1]);
        if (IsLabel(line))
            CollectLabel(line);
    }
}

void LiteralRun::CollectLabel(const std::wstring& line) {
    const std::wstring label = WithoutColon(line);
    if (LineOf(label))
        Tell(L"This label is already in use.\n" + line);
    else
        labels_.emplace_back(label, now_);
}

Course LiteralRun::RunLine() {
    const std::wstring& written = lines_[now_ - 1];
    raw_ = Normalised(written);
    line_ = Replaced(written, L"?SelectedCount?", std::to_wstring(together_.Selection.size()));
    line_ = Replaced(line_, L"?ScriptName?", std::wstring(paths::LastComponent(path_)));
    const std::wstring fullPath = world_.Surroundings.FullPath(path_);
    line_ = Replaced(line_, L"?ScriptPath?", std::wstring(paths::ParentWithSeparator(fullPath)));
    line_ = Normalised(line_);
    word_ = Small(FirstWord(line_));
    if (line_.empty() || line_.starts_with(L"//"))
        return Course::GoesOn;
    if (Small(line_) == L"eof")
        return Course::RunEnds;
    if (Small(line_) == L"debug" || IsWord(L"updatestate") || IsLabel(line_))
        return Course::GoesOn;
    if (!world_.Pace.GoesOn()) {
        Tell(L"The script was stopped.\n" + NumberedText());
        return Course::Stopped;
    }
    return RunStatement();
}

Course LiteralRun::RunStatement() {
    // These two do what they do wherever they stand.
    if (IsWord(L"fileclose")) {
        file_.reset();
        return Course::GoesOn;
    }
    if (IsWord(L"removeselectitems"))
        return RemoveSelectItems();
    const bool runs = ifs_.empty() || ifs_.back() == kInElse || ifs_.back() == kInTaken;
    // Judging a condition may tell of a mistake, and the trace is of what is about to be done.
    if (runs && !skipsToNext_ && !skipsToWhile_)
        Trace(2, std::to_wstring(now_));
    const bool isJudged = JudgeBlock();
    if (!runs || IsSkipped() || isJudged)
        return Course::GoesOn;
    try {
        return Dispatch();
    } catch (const Failure& failure) {
        Tell(failure.Text);
        return Course::GoesOn;
    }
}

Course LiteralRun::RemoveSelectItems() {
    if (index_ != -1) {
        Tell(L"RemoveSelectItems can not be executed within the loop.");
        return Course::RunEnds;
    }
    together_.Selection.clear();
    return Course::GoesOn;
}

/// Whether the line belongs to the ifs and has been dealt with.
bool LiteralRun::JudgeBlock() {
    if (!ifs_.empty())
        return JudgeOpenBlock();
    if (IsWord(L"if"))
        PushIf();
    return IsWord(L"if");
}

bool LiteralRun::JudgeOpenBlock() {
    unsigned& state = ifs_.back();
    if (IsWord(L"endif")) {
        ifs_.pop_back();
        return true;
    }
    if (IsWord(L"if")) {
        if (state == kInTaken || state == kInElse)
            PushIf();
        else
            ifs_.push_back(state == kBehindTaken ? kBehindTaken : kInSkipped);
        return true;
    }
    if (!IsWord(L"else"))
        return false;
    if (state == kInTaken)
        state = kBehindTaken;
    else if (state == kWaitsForElse)
        state = kInElse;
    else
        return false;
    return true;
}

void LiteralRun::PushIf() {
    try {
        const bool isTrue = Condition(BehindFirstWord(line_));
        ifs_.push_back(isTrue ? kInTaken : kWaitsForElse);
    } catch (const Failure& failure) {
        Tell(failure.Text);
    }
}

/// Whether a loop that has ended reads over this line, and whether it ends with it.
bool LiteralRun::IsSkipped() {
    if (skipsToNext_) {
        if (IsWord(L"next")) {
            skipsToNext_ = false;
            PopKind();
        }
        return true;
    }
    if (skipsToWhile_) {
        if (IsWord(L"while")) {
            skipsToWhile_ = false;
            PopKind();
            PopDo();
        }
        return true;
    }
    return false;
}

Course LiteralRun::Dispatch() {
    if (IsWord(L"exitall"))
        return Course::AllEnd;
    if (IsWord(L"exit"))
        return Course::RunEnds;
    if (RunBlockWord())
        return Course::GoesOn;
    if (IsWord(L"else"))
        return Unknown();
    if (IsWord(L"goto"))
        return Goto();
    if (IsWord(L"var")) {
        DeclareAll();
        return Course::GoesOn;
    }
    if (SetOption())
        return Course::GoesOn;
    const std::size_t sign = line_.find(L'=');
    const std::wstring name = sign == std::wstring::npos ? word_ : Small(Trimmed(line_.substr(0, sign)));
    return Command(name);
}

bool LiteralRun::RunBlockWord() {
    if ((IsWord(L"else") || IsWord(L"endif")) && ifs_.empty())
        throw UsedWithout(word_, L"if");
    if (IsWord(L"for"))
        For();
    else if (IsWord(L"next"))
        Next();
    else if (Small(line_) == L"do") {
        kinds_.push_back(kDo);
        dos_.push_back(now_);
    } else if (IsWord(L"while"))
        While();
    else if (IsWord(L"continue"))
        Continue();
    else if (IsWord(L"break"))
        Break();
    else
        return false;
    return true;
}

void LiteralRun::For() {
    kinds_.push_back(kFor);
    if (together_.Selection.empty()) {
        skipsToNext_ = true;
        return;
    }
    index_ = 0;
    forLine_ = now_;
}

void LiteralRun::Next() {
    if (index_ == -1)
        throw UsedWithout(L"next", L"for");
    ++index_;
    if (static_cast<std::size_t>(index_) < together_.Selection.size()) {
        JumpBehind(forLine_);
    } else {
        PopKind();
        index_ = -1;
    }
}

void LiteralRun::While() {
    const std::wstring condition = BehindFirstWord(line_);
    if (condition.empty())
        throw SyntaxError();
    if (dos_.empty())
        throw UsedWithout(L"while", L"do");
    if (Condition(condition)) {
        JumpBehind(dos_.back());
    } else {
        PopKind();
        PopDo();
    }
}

void LiteralRun::Continue() {
    if (!kinds_.empty() && kinds_.back() == kFor)
        ContinueFor();
    else if (!kinds_.empty() && !dos_.empty())
        JumpBehind(dos_.back());
    else
        throw UsedWithout(L"continue", L"do' or 'for");
}

void LiteralRun::ContinueFor() {
    ++index_;
    if (static_cast<std::size_t>(index_) < together_.Selection.size()) {
        JumpBehind(forLine_);
    } else {
        index_ = -1;
        skipsToNext_ = true;
    }
}

void LiteralRun::Break() {
    if (kinds_.empty())
        throw UsedWithout(L"break", L"do' or 'for");
    if (kinds_.back() == kFor) {
        index_ = -1;
        skipsToNext_ = true;
    } else {
        skipsToWhile_ = true;
    }
}

void LiteralRun::PopKind() {
    if (!kinds_.empty())
        kinds_.pop_back();
}

void LiteralRun::PopDo() {
    if (!dos_.empty())
        dos_.pop_back();
}

Course LiteralRun::Goto() {
    const std::wstring label = WithoutColon(BehindFirstWord(line_));
    if (label.empty())
        throw SyntaxError();
    const std::optional<std::size_t> line = LineOf(label);
    if (!line)
        throw Failure{L"Undefined label.\n" + label};
    return JumpTo(*line);
}

Course LiteralRun::JumpTo(std::size_t line) {
    const std::int32_t limit = Number(Option(L"exitloopcount"));
    if (line < now_ && ++jumps_ > limit) {
        Tell(L"The number of repetitions of up too many.(" + std::to_wstring(limit) + L" times)");
        return Course::RunEnds;
    }
    JumpBehind(line);
    return Course::GoesOn;
}

std::optional<std::size_t> LiteralRun::LineOf(const std::wstring& label) const {
    for (const auto& [known, line] : labels_) {
        if (known == label)
            return line;
    }
    return std::nullopt;
}

std::optional<std::wstring> LiteralRun::ItemOfLoop() const {
    if (index_ == -1)
        return outerItem_;
    if (static_cast<std::size_t>(index_) < together_.Selection.size())
        return together_.Selection[static_cast<std::size_t>(index_)];
    return std::nullopt;
}

std::optional<std::wstring> LiteralRun::Item() const {
    std::optional<std::wstring> item = ItemOfLoop();
    if (!item && index_ == -1 && !together_.Selection.empty())
        item = together_.Selection.front();
    return item;
}

void LiteralRun::Tell(const std::wstring& text) {
    world_.Speaker.Tell(text, lang::Tone::Plain);
}

void LiteralRun::Trace(std::uint32_t code, const std::wstring& text) {
    if (isTraced_)
        world_.Trace.Send({code, text});
}

void LiteralRun::TraceValue(std::uint32_t code, const std::wstring& name, const std::wstring& value) {
    Trace(code, name + L"\t" + value);
}

std::wstring LiteralRun::Option(const wchar_t* name) {
    return *TextOf(together_.Options, name);
}

/// The line with its number before it.
std::wstring LiteralRun::NumberedText() const {
    return std::to_wstring(now_) + L":" + raw_;
}

Failure LiteralRun::SyntaxError() const {
    return {L"Syntax error!\n" + raw_};
}

Failure LiteralRun::IllegalCall() const {
    return {L"Illegal Function Call!\n" + raw_};
}

void LiteralRun::RequireLength(std::size_t size) const {
    if (size > kLongestText)
        throw Failure{L"The value is too long.(1048576 characters)\n" + raw_};
}

bool LiteralRun::IsWord(const wchar_t* word) const {
    return word_ == word;
}

}  // namespace ferry::script::literal
