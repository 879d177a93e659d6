#include "script/checker.h"

#include <algorithm>
#include <deque>
#include <iterator>
#include <optional>
#include <set>
#include <string_view>
#include <tuple>

#include "base/text.h"
#include "paths/path_grammar.h"
#include "script/assignments.h"
#include "script/labels.h"
#include "script/limits.h"
#include "script/script_files.h"
#include "script/source.h"
#include "script/variables.h"

namespace ferry::script {

namespace {

struct KindText {
    const char* Name;
    const char* Meaning;
};

/// In the order of FindingKind.
constexpr KindText kKindTexts[] = {
    {"cannot-read", "this script cannot be read"},
    {"undefined-label", "there is no such label"},
    {"doubled-label", "there is a label of this name already"},
    {"unclosed-block", "this block is never closed"},
    {"unopened-block", "no block is open here that this word belongs to"},
    {"unknown-line", "this is no command, no option and no declared variable"},
    {"unknown-function", "there is no such function"},
    {"reserved-name", "a word of the language cannot be a variable"},
    {"doubled-name", "there is a variable of this name already"},
    {"overlapping-name", "one variable's name contains the other's"},
    {"argument-count", "too few or too many arguments"},
    {"wrong-form", "this statement is not written as it has to be"},
    {"leaves-branch", "this jump leaves an \"if\", which stays open"},
};

static_assert(std::size(kKindTexts) == static_cast<std::size_t>(FindingKind::LeavesBranch) + 1);

/// A script that is checked. Rewritten lines live in texts of their own.
struct CheckedScript {
    std::wstring Path;
    std::optional<Source> Text;
    std::deque<std::wstring> Rewritten;
    std::vector<Line> Lines;
};

/// How many texts with commas between them `text` is.
std::size_t CountFields(std::wstring_view text) noexcept {
    return text.empty() ? 0 : 1 + static_cast<std::size_t>(std::ranges::count(text, L','));
}

/// Whether the fields behind the last one that `command` takes are not looked at; of other commands they
/// belong to the last one.
bool IgnoresMoreFields(const CommandWord& command) noexcept {
    switch (command.Id) {
        case CommandId::PostToHost:
        case CommandId::PostToHost1:
        case CommandId::PostToHost2:
        case CommandId::PostToHostAll:
        case CommandId::PostToHostBar:
        case CommandId::PostWait:
        case CommandId::SendToHost:
        case CommandId::SendToHostAll:
            return true;
        default:
            return false;
    }
}

/// Checks one script after the other; they share their variables.
class Checker {
public:
    explicit Checker(ByteFiles& files) : files_(files) {}

    std::vector<Finding> Run(const std::wstring& path);

private:
    // --- the scripts
    void Load(const std::wstring& path, const Finding& origin);
    void TakeLines(CheckedScript& script);
    void TakeInclude(const CheckedScript& script, const Line& line);

    // --- declarations
    void Declare(const Line& line);
    void DeclareName(const Line& line, std::wstring_view name);

    // --- lines
    void CheckLines();
    void TakeLabels();
    void CheckLine(const Line& line);
    void CheckGoto(const Line& line);
    void CheckCondition(const Line& line);
    void CheckCommand(const Line& line);
    void CheckAssignment(const Line& line);
    void CheckCall(const Line& line, const CallParts& call);
    bool IsKnownVariable(std::wstring_view name) const;
    bool IsFixed(std::wstring_view text) const noexcept;

    // --- blocks
    struct Loop {
        const script::Line* Opener;
        std::size_t Branches;  ///< How many branches were open when it was.
    };
    struct Branch {
        const script::Line* Opener;
        bool HasElse;
        std::size_t Number;  ///< Its place in branchEnds_.
    };
    void FollowBlocks(const Line& line);
    void CloseLoop(const Line& line, LineKind opener);
    void CheckLeaving(const Line& line);
    void CheckUnclosed();
    void CheckJumpsOut();

    void Add(FindingKind kind, const Line& line, std::wstring_view text);

    ByteFiles& files_;
    std::deque<CheckedScript> scripts_;
    CheckedScript* script_ = nullptr;  ///< The one that is looked at.
    Variables variables_;
    bool mayHaveMoreVariables_ = false;  ///< An include could not be followed.
    Labels labels_;
    std::vector<Branch> branches_;
    std::vector<Loop> loops_;

    /// A jump, and the innermost branch that is open there.
    struct JumpPlace {
        const script::Line* Where;
        Branch Inside;
    };
    std::vector<JumpPlace> jumps_;
    std::vector<std::size_t> branchEnds_;  ///< The numbers of the lines that close the branches.
    std::set<std::wstring, std::less<>>
        arrays_;  ///< What the names of elements begin with, the bracket included.
    std::vector<Finding> findings_;
};

std::vector<Finding> Checker::Run(const std::wstring& path) {
    Load(path, {path, 1, 1, FindingKind::CannotRead, path});
    // Scripts that are included are loaded behind the present one while this goes on.
    std::size_t taken = 0;
    while (taken < scripts_.size()) {
        script_ = &scripts_[taken++];
        TakeLines(*script_);
    }
    for (CheckedScript& script : scripts_) {
        script_ = &script;
        CheckLines();
    }
    std::ranges::sort(findings_, {}, [this](const Finding& finding) {
        const auto script = std::ranges::find(scripts_, finding.File, &CheckedScript::Path);
        return std::tuple(script - scripts_.begin(), finding.Line, finding.Kind,
                          std::wstring_view(finding.Text));
    });
    return std::move(findings_);
}

void Checker::Load(const std::wstring& path, const Finding& origin) {
    if (std::ranges::find(scripts_, path, &CheckedScript::Path) != scripts_.end()) {
        return;
    }
    std::optional<std::wstring> text = ReadWhole(files_, path, kMaxScriptBytes);
    if (!text) {
        findings_.push_back(origin);
        return;
    }
    CheckedScript& script = scripts_.emplace_back();
    script.Path = path;
    script.Text.emplace(std::move(*text));
}

void Checker::TakeLines(CheckedScript& script) {
    for (const Line& read : script.Text->Lines()) {
        Line line = read;
        if (read.HasRunWords && read.Kind != LineKind::Label) {
            // Any number will do: lines are seldom made of it.
            std::wstring text = base::ReplaceAll(read.Text, kSelectedCountWord, L"1");
            text = base::ReplaceAll(text, kScriptNameWord, paths::LastComponent(script.Path));
            text = base::ReplaceAll(text, kScriptPathWord, paths::ParentWithSeparator(script.Path));
            script.Rewritten.push_back(std::move(text));
            line = ClassifyLine(base::Trim(script.Rewritten.back()), read.Number, read.Column);
        }
        script.Lines.push_back(line);
        if (line.Kind == LineKind::Declaration) {
            Declare(line);
        } else if (line.Kind == LineKind::Command && line.Command->Id == CommandId::Include) {
            TakeInclude(script, line);
        }
    }
}

void Checker::TakeInclude(const CheckedScript& script, const Line& line) {
    if (!IsFixed(line.Argument.Text)) {
        mayHaveMoreVariables_ = true;
    } else if (!line.Argument.Text.empty()) {
        const std::wstring path(line.Argument.Text);
        Load(path, {script.Path, line.Number, line.Column + 1, FindingKind::CannotRead, path});
    }
}

void Checker::Declare(const Line& line) {
    const std::optional<DeclarationParts> parts = SplitDeclaration(line.Name);
    if (!parts) {
        return Add(FindingKind::WrongForm, line, line.Text);
    }
    if (!parts->Bracket) {
        return DeclareName(line, parts->Name);
    }
    arrays_.insert(std::wstring(parts->Name) + L'[');
    const int count = base::ToInt(*parts->Bracket);
    if (count == 0) {
        return DeclareName(line, ElementName(parts->Name, *parts->Bracket));
    }
    if (count > 0 && static_cast<std::size_t>(count) > kMaxVariables - variables_.Count()) {
        return Add(FindingKind::WrongForm, line, line.Text);
    }
    const std::size_t before = findings_.size();
    for (int index = 0; index < count && findings_.size() == before; ++index) {
        DeclareName(line, ElementName(parts->Name, std::to_wstring(index)));
    }
}

void Checker::DeclareName(const Line& line, std::wstring_view name) {
    switch (variables_.Check(name).Fault) {
        case NameFault::None:
            return variables_.Declare(name);
        case NameFault::Reserved:
            return Add(FindingKind::ReservedName, line, name);
        case NameFault::Declared:
            return Add(FindingKind::DoubledName, line, name);
        case NameFault::TooMany:
            return Add(FindingKind::WrongForm, line, line.Text);
        default:
            return Add(FindingKind::OverlappingName, line, name);
    }
}

void Checker::CheckLines() {
    labels_ = Labels();
    jumps_.clear();
    branchEnds_.clear();
    TakeLabels();
    for (const Line& line : script_->Lines) {
        FollowBlocks(line);
        CheckLine(line);
    }
    CheckUnclosed();
    CheckJumpsOut();
}

void Checker::TakeLabels() {
    for (const Line& line : script_->Lines) {
        if (line.Kind == LineKind::Label && !labels_.Add(line.Name, {0, line.Number})) {
            Add(FindingKind::DoubledLabel, line, line.Name);
        }
    }
}

void Checker::CheckLine(const Line& line) {
    switch (line.Kind) {
        case LineKind::Goto:
            return CheckGoto(line);
        case LineKind::If:
        case LineKind::While:
            return CheckCondition(line);
        case LineKind::Command:
            return CheckCommand(line);
        case LineKind::Assignment:
            return CheckAssignment(line);
        case LineKind::Unknown:
            return Add(FindingKind::UnknownLine, line, line.Text);
        default:
            return;
    }
}

void Checker::CheckGoto(const Line& line) {
    if (line.Name.empty()) {
        Add(FindingKind::WrongForm, line, line.Text);
    } else if (labels_.Find(line.Name) == nullptr) {
        Add(FindingKind::UndefinedLabel, line, line.Name);
    }
}

void Checker::CheckCondition(const Line& line) {
    if (line.Compare == Operator::None) {
        Add(FindingKind::WrongForm, line, line.Text);
    }
}

void Checker::CheckCommand(const Line& line) {
    const CommandWord& command = *line.Command;
    const std::wstring_view argument = line.Argument.Text;
    if (!line.HasEquals || command.Id == CommandId::PostToHostTab) {
        return Add(FindingKind::WrongForm, line, line.Text);
    }
    if (command.Id == CommandId::GetSelectItems) {
        if (!IsKnownVariable(argument)) {
            Add(FindingKind::UnknownLine, line, line.Text);
        }
        return;
    }
    const std::size_t count = CountFields(argument);
    const std::size_t least =
        command.MayBeEmpty && count == 0 && command.MinFields < 2 ? 0 : command.MinFields;
    const bool isTooFew = count < least && (count == 0 || IsFixed(argument));
    if (isTooFew || (IgnoresMoreFields(command) && count > command.MaxFields)) {
        Add(FindingKind::ArgumentCount, line, line.Text);
    }
}

void Checker::CheckAssignment(const Line& line) {
    if (!IsKnownVariable(line.Name)) {
        return Add(FindingKind::UnknownLine, line, line.Text);
    }
    const std::optional<CallParts> call = SplitCall(line.Argument.Text);
    if (call && IsFixed(call->Name)) {
        CheckCall(line, *call);
    }
}

void Checker::CheckCall(const Line& line, const CallParts& call) {
    const FunctionWord* const function = FindFunction(call.Name);
    if (function == nullptr) {
        return Add(FindingKind::UnknownFunction, line, call.Name);
    }
    const std::size_t count = CountFields(call.Arguments);
    const bool isTooFew = count < function->MinArguments && (count == 0 || IsFixed(call.Arguments));
    if (isTooFew || (function->MaxArguments > 1 && count > function->MaxArguments)) {
        Add(FindingKind::ArgumentCount, line, call.Name);
    }
}

/// Whether `name` is declared, or may be: an element whose index is not fixed is one of those of its name.
bool Checker::IsKnownVariable(std::wstring_view name) const {
    if (mayHaveMoreVariables_ || variables_.Find(name) != NameIndex::kNone) {
        return true;
    }
    const std::size_t open = name.ends_with(L']') ? name.find(L'[') : std::wstring_view::npos;
    return open != std::wstring_view::npos && !IsFixed(name.substr(open + 1)) &&
           arrays_.contains(name.substr(0, open + 1));
}

/// Whether a run finds nothing to replace in `text`.
bool Checker::IsFixed(std::wstring_view text) const noexcept {
    PreparedText prepared;
    prepared.Text = text;
    variables_.Prepare(prepared);
    return prepared.Which == PreparedText::Names::None &&
           text.find_first_of(L"?%") == std::wstring_view::npos;
}

void Checker::FollowBlocks(const Line& line) {
    switch (line.Kind) {
        case LineKind::If:
            branches_.push_back({&line, false, branchEnds_.size()});
            return branchEnds_.push_back(static_cast<std::size_t>(-1));
        case LineKind::Else:
            if (branches_.empty() || branches_.back().HasElse) {
                return Add(FindingKind::UnopenedBlock, line, line.Text);
            }
            branches_.back().HasElse = true;
            return;
        case LineKind::EndIf:
            if (branches_.empty()) {
                return Add(FindingKind::UnopenedBlock, line, line.Text);
            }
            branchEnds_[branches_.back().Number] = line.Number;
            return branches_.pop_back();
        case LineKind::For:
        case LineKind::Do:
            return loops_.push_back({&line, branches_.size()});
        case LineKind::Next:
            return CloseLoop(line, LineKind::For);
        case LineKind::While:
            return CloseLoop(line, LineKind::Do);
        default:
            return CheckLeaving(line);
    }
}

void Checker::CloseLoop(const Line& line, LineKind opener) {
    const auto found = std::find_if(loops_.rbegin(), loops_.rend(),
                                    [opener](const Loop& loop) { return loop.Opener->Kind == opener; });
    if (found == loops_.rend()) {
        return Add(FindingKind::UnopenedBlock, line, line.Text);
    }
    loops_.erase(std::next(found).base());
}

void Checker::CheckLeaving(const Line& line) {
    const bool isLeaving = line.Kind == LineKind::Continue || line.Kind == LineKind::Break;
    if (isLeaving && loops_.empty()) {
        return Add(FindingKind::UnopenedBlock, line, line.Text);
    }
    if (line.Kind == LineKind::Continue && branches_.size() > loops_.back().Branches) {
        return Add(FindingKind::LeavesBranch, line, line.Text);
    }
    if (line.Kind == LineKind::Goto && !branches_.empty()) {
        jumps_.push_back({&line, branches_.back()});
    }
}

void Checker::CheckUnclosed() {
    for (const Branch& branch : branches_) {
        Add(FindingKind::UnclosedBlock, *branch.Opener, branch.Opener->Text);
    }
    for (const Loop& loop : loops_) {
        Add(FindingKind::UnclosedBlock, *loop.Opener, loop.Opener->Text);
    }
    branches_.clear();
    loops_.clear();
}

/// A jump leaves a branch when its label is not between the branch's lines.
void Checker::CheckJumpsOut() {
    for (const JumpPlace& jump : jumps_) {
        const LabelPlace* const label = labels_.Find(jump.Where->Name);
        if (label != nullptr &&
            (label->Number < jump.Inside.Opener->Number || label->Number > branchEnds_[jump.Inside.Number])) {
            Add(FindingKind::LeavesBranch, *jump.Where, jump.Where->Text);
        }
    }
}

void Checker::Add(FindingKind kind, const Line& line, std::wstring_view text) {
    findings_.push_back({script_->Path, line.Number, line.Column + 1, kind, std::wstring(text)});
}

}  // namespace

bool IsWarning(FindingKind kind) noexcept {
    return kind == FindingKind::LeavesBranch;
}

const char* NameOf(FindingKind kind) noexcept {
    return kKindTexts[static_cast<std::size_t>(kind)].Name;
}

const char* Describe(FindingKind kind) noexcept {
    return kKindTexts[static_cast<std::size_t>(kind)].Meaning;
}

std::vector<Finding> Check(ByteFiles& files, const std::wstring& path) {
    return Checker(files).Run(path);
}

}  // namespace ferry::script
