#include "script/executor.h"

#include <utility>

#include "base/text.h"
#include "base/text_search.h"
#include "paths/path_grammar.h"
#include "script/limits.h"
#include "script/messages.h"

namespace ferry::script {

namespace {

/// The titles of the windows that show what a script does; the second one is looked for without the first.
constexpr const wchar_t* kTraceTitle = L"Script trace Kiv";
constexpr const wchar_t* kDebuggerTitle = L"Kiv Script Debugger";

/// The codes of trace records; 10 and above show a variable with its value.
constexpr std::uint32_t kTraceStarted = 1;
constexpr std::uint32_t kTraceStep = 2;
constexpr std::uint32_t kTraceDeclared = 10;
constexpr std::uint32_t kTraceAssigned = 11;

/// Whether lines of `kind` are run. A person cannot stop a script at the others, which do nothing.
bool IsStatement(LineKind kind) noexcept {
    return kind != LineKind::Nothing && kind != LineKind::Debug && kind != LineKind::Label &&
           kind != LineKind::End;
}

std::wstring FullScriptPath(const World& world, const std::wstring& path) {
    return paths::StartsLikeFullPath(path) ? path : world.Surroundings.FullPath(path);
}

/// Makes a run the innermost one as long as it lives.
class InnermostRun {
public:
    InnermostRun(const Executor*& running, const Executor& run) noexcept
        : running_(running), outer_(std::exchange(running, &run)) {}
    InnermostRun(const InnermostRun&) = delete;
    InnermostRun& operator=(const InnermostRun&) = delete;
    ~InnermostRun() { running_ = outer_; }

private:
    const Executor*& running_;
    const Executor* outer_;
};

}  // namespace

Executor::Executor(const SharedState& shared, ScriptStart start)
    : world_(shared.World),
      shared_(shared),
      variables_(shared.Variables),
      start_(std::move(start)),
      expansion_(shared.World, shared.Folders, shared.Variables),
      functions_(shared.World),
      output_(shared.World.ByteFiles),
      scope_{shared.World, shared.Options, shared.Selection, output_, *this, shared.Result},
      isTracing_(start_.IsTracing) {
    const std::wstring full = FullScriptPath(world_, start_.Path);
    scriptName_ = paths::LastComponent(full);
    scriptFolder_ = paths::ParentWithSeparator(full);
}

Ending Executor::Run() {
    const InnermostRun innermost(shared_.Running, *this);
    if (!Load()) {
        Tell(UnreadableText(start_.Path));
        return Ending::Ended;
    }
    TakeLabels();
    if (isTracing_) {
        Trace(kTraceStarted, start_.Path);
    }
    while (ending_ == Ending::None && next_ < source_->Lines().size()) {
        RunLine();
    }
    return ending_ == Ending::None ? Ending::Ended : ending_;
}

ScriptPlace Executor::Place() const {
    return {scriptFolder_ + scriptName_, current_ != nullptr ? current_->Number : 0};
}

bool Executor::Load() {
    std::optional<std::wstring> text = ReadWhole(world_.ByteFiles, start_.Path, kMaxScriptBytes);
    if (!text || text->size() > kMaxScriptBytes / sizeof(char16_t)) {
        return false;
    }
    source_.emplace(std::move(*text));
    return true;
}

void Executor::TakeLabels() {
    const std::span<const Line> lines = std::as_const(*source_).Lines();
    for (std::size_t index = 0; index < lines.size(); ++index) {
        const Line& line = lines[index];
        current_ = &line;
        if (line.Kind == LineKind::Debug) {
            FindTraceWindow();
        } else if (line.Kind == LineKind::Label && !labels_.Add(line.Name, {index, line.Number})) {
            Tell(DoubledLabelText(line));
        }
    }
}

void Executor::FindTraceWindow() {
    isTracing_ = world_.Trace.Find(kTraceTitle) || world_.Trace.Find(kDebuggerTitle);
}

void Executor::RunLine() {
    Line& read = source_->Lines()[next_];
    ++next_;
    current_ = &read;
    Line& line = read.HasRunWords ? Rewritten(read) : read;
    if (!IsStatement(line.Kind)) {
        if (line.Kind == LineKind::End) {
            ending_ = Ending::Ended;
        }
        return;
    }
    if (!world_.Pace.GoesOn()) {
        return Stop();
    }
    if (IsToBeExecuted(line)) {
        if (isTracing_) {
            TraceStep();
        }
        Execute(line);
    }
}

Line& Executor::Rewritten(const Line& line) {
    RewrittenLine& rewritten = rewritten_[next_];
    const std::size_t count = shared_.Selection.Count();
    if (rewritten.Line.Number == 0 || rewritten.Count != count) {
        std::wstring text(line.Text);
        const bool fits =
            base::ReplaceAllWithin(text, kSelectedCountWord, std::to_wstring(count), kMaxValueUnits) &&
            base::ReplaceAllWithin(text, kScriptNameWord, scriptName_, kMaxValueUnits) &&
            base::ReplaceAllWithin(text, kScriptPathWord, scriptFolder_, kMaxValueUnits);
        if (!fits) {
            TellTooLong();
            text.clear();
        }
        rewritten.Text = std::move(text);
        rewritten.Count = count;
        rewritten.Line = ClassifyLine(base::Trim(rewritten.Text), line.Number, line.Column);
    }
    return rewritten.Line;
}

bool Executor::IsToBeExecuted(Line& line) {
    switch (line.Kind) {
        // These two act in every branch and in every loop that is being left.
        case LineKind::CloseFile:
            output_.Close();
            return false;
        case LineKind::EmptySelection:
            EmptySelection();
            return false;
        default:
            break;
    }
    if ((line.Kind == LineKind::If || !branches_.IsEmpty()) && !PassesBranches(line)) {
        return false;
    }
    if (loops_.Skip != SkipTo::Nothing) {
        EndSkip(line.Kind);
        return false;
    }
    return true;
}

bool Executor::PassesBranches(Line& line) {
    if (line.Kind == LineKind::If && !HasRoomFor(branches_.Count())) {
        return false;
    }
    const BranchStep step = branches_.Step(line.Kind);
    const bool isSeen = step == BranchStep::Judge || step == BranchStep::Turn;
    if (isSeen && isTracing_ && loops_.Skip == SkipTo::Nothing) {
        TraceStep();
    }
    if (step == BranchStep::Judge) {
        If(line);
    }
    return step == BranchStep::Execute;
}

void Executor::EndSkip(LineKind kind) {
    if (loops_.Skip == SkipTo::Next && kind == LineKind::Next) {
        loops_.Skip = SkipTo::Nothing;
        loops_.PopKind();
    } else if (loops_.Skip == SkipTo::While && kind == LineKind::While) {
        loops_.Skip = SkipTo::Nothing;
        loops_.PopKind();
        loops_.PopDo();
    }
}

void Executor::Execute(Line& line) {
    switch (line.Kind) {
        case LineKind::Else:
            // In the branch behind an "else" another one is a line that is not understood.
            return branches_.IsEmpty() ? Tell(UsedWithoutText(L"else", L"if")) : Unknown();
        case LineKind::EndIf:
            return Tell(UsedWithoutText(L"endif", L"if"));
        case LineKind::For:
            return For();
        case LineKind::Next:
            return Next();
        case LineKind::Do:
            return Do();
        case LineKind::While:
            return While(line);
        case LineKind::Continue:
            return Continue();
        case LineKind::Break:
            return Break();
        case LineKind::Goto:
            return Goto(line);
        case LineKind::Declaration:
            return Declare(line);
        case LineKind::Exit:
            ending_ = Ending::Ended;
            return;
        case LineKind::ExitAll:
            ending_ = Ending::EndedAll;
            return;
        case LineKind::Option:
            return SetOption(line);
        case LineKind::Command:
            return Command(line);
        case LineKind::Assignment:
            return Assignment(line);
        default:
            return Unknown();
    }
}

void Executor::Stop() {
    ending_ = Ending::Stopped;
    Tell(StoppedText(*current_));
}

// --- blocks

void Executor::If(Line& line) {
    const std::optional<bool> isTrue = Judge(line);
    if (isTrue) {
        branches_.Open(*isTrue);
    }
}

void Executor::For() {
    if (!HasRoomFor(loops_.Kinds.size())) {
        return;
    }
    loops_.Kinds.push_back(LoopKind::For);
    if (shared_.Selection.Count() == 0) {
        loops_.Skip = SkipTo::Next;
        return;
    }
    loops_.Item = 0;
    loops_.ForLine = next_ - 1;
}

void Executor::Next() {
    if (loops_.Item == Loops::kNoItem) {
        return Tell(UsedWithoutText(L"next", L"for"));
    }
    ++loops_.Item;
    if (loops_.Item < std::ssize(shared_.Selection.Items())) {
        next_ = loops_.ForLine + 1;
        return;
    }
    loops_.PopKind();
    loops_.Item = Loops::kNoItem;
}

void Executor::Do() {
    if (HasRoomFor(loops_.Kinds.size()) && HasRoomFor(loops_.DoLines.size())) {
        loops_.Kinds.push_back(LoopKind::Do);
        loops_.DoLines.push_back(next_ - 1);
    }
}

void Executor::While(Line& line) {
    if (line.Compare == Operator::None && line.Argument.Text.empty()) {
        return TellSyntaxError();
    }
    if (loops_.DoLines.empty()) {
        return Tell(UsedWithoutText(L"while", L"do"));
    }
    const std::optional<bool> isTrue = Judge(line);
    if (!isTrue) {
        return;
    }
    if (*isTrue) {
        next_ = loops_.DoLines.back() + 1;
        return;
    }
    loops_.PopKind();
    loops_.PopDo();
}

void Executor::Continue() {
    if (loops_.Kinds.empty() || (loops_.Kinds.back() == LoopKind::Do && loops_.DoLines.empty())) {
        return Tell(UsedWithoutText(L"continue", L"do' or 'for"));
    }
    if (loops_.Kinds.back() == LoopKind::Do) {
        next_ = loops_.DoLines.back() + 1;
        return;
    }
    ++loops_.Item;
    if (loops_.Item < std::ssize(shared_.Selection.Items())) {
        next_ = loops_.ForLine + 1;
        return;
    }
    loops_.Item = Loops::kNoItem;
    loops_.Skip = SkipTo::Next;
}

void Executor::Break() {
    if (loops_.Kinds.empty()) {
        return Tell(UsedWithoutText(L"break", L"do' or 'for"));
    }
    if (loops_.Kinds.back() == LoopKind::Do) {
        loops_.Skip = SkipTo::While;
        return;
    }
    loops_.Item = Loops::kNoItem;
    loops_.Skip = SkipTo::Next;
}

void Executor::Goto(const Line& line) {
    if (line.Name.empty()) {
        return TellSyntaxError();
    }
    if (!JumpTo(line.Name)) {
        Tell(UndefinedLabelText(line.Name));
    }
}

bool Executor::JumpTo(std::wstring_view name) {
    const LabelPlace* const place = labels_.Find(name);
    if (place != nullptr) {
        Jump(*place);
    }
    return place != nullptr;
}

void Executor::Jump(const LabelPlace& place) {
    if (place.Number < current_->Number) {
        const int limit = shared_.Options.Number(OptionId::ExitLoopCount);
        if (backwardJumps_ >= limit) {
            Tell(TooManyRepetitionsText(limit));
            ending_ = Ending::Ended;
            return;
        }
        ++backwardJumps_;
    }
    next_ = place.Index + 1;
}

void Executor::EmptySelection() {
    if (loops_.Item != Loops::kNoItem) {
        Tell(EmptiedInLoopText());
        ending_ = Ending::Ended;
        return;
    }
    shared_.Selection.Clear();
}

/// Whether one more block may be opened; else the run ends, since nothing closes them any more.
bool Executor::HasRoomFor(std::size_t openBlocks) {
    if (openBlocks < kMaxOpenBlocks) {
        return true;
    }
    Tell(TooManyBlocksText(*current_));
    ending_ = Ending::Ended;
    return false;
}

// --- tracing

void Executor::Trace(std::uint32_t code, std::wstring text) const {
    world_.Trace.Send({code, std::move(text)});
}

void Executor::TraceStep() const {
    Trace(kTraceStep, std::to_wstring(current_->Number));
}

void Executor::TraceDeclaration() const {
    TraceValue(kTraceDeclared, static_cast<std::uint32_t>(variables_.Count() - 1));
}

void Executor::TraceAssignment(std::uint32_t variable) const {
    TraceValue(kTraceAssigned, variable);
}

void Executor::TraceValue(std::uint32_t code, std::uint32_t variable) const {
    Trace(code, variables_.Name(variable) + L'\t' + variables_.Text(variable));
}

}  // namespace ferry::script
