// What single statements do: declarations, options, commands, assignments, conditions.
#include <utility>

#include "base/text.h"
#include "script/assignments.h"
#include "script/conditions.h"
#include "script/executor.h"
#include "script/limits.h"
#include "script/messages.h"
#include "script/numbers.h"

namespace ferry::script {

// --- declarations and options

void Executor::Declare(const Line& line) {
    const std::optional<DeclarationParts> parts = SplitDeclaration(line.Name);
    if (!parts) {
        return TellSyntaxError();
    }
    if (!parts->Bracket) {
        DeclareName(parts->Name);
        return;
    }
    const int count = base::ToInt(*parts->Bracket);
    if (count == 0) {
        DeclareName(ElementName(parts->Name, *parts->Bracket));
    } else if (count > 0) {
        DeclareElements(parts->Name, static_cast<std::size_t>(count));
    }
}

void Executor::DeclareElements(std::wstring_view name, std::size_t count) {
    if (count > kMaxVariables - variables_.Count()) {
        return TellNameFault({NameFault::TooMany, NameIndex::kNone}, name);
    }
    for (std::size_t index = 0; index < count; ++index) {
        if (!DeclareName(ElementName(name, std::to_wstring(index)))) {
            return;
        }
    }
}

bool Executor::DeclareName(std::wstring_view name) {
    const NameCheck check = variables_.Check(name);
    if (check.Fault != NameFault::None) {
        TellNameFault(check, name);
        return false;
    }
    variables_.Declare(name);
    if (isTracing_) {
        TraceDeclaration();
    }
    return true;
}

void Executor::SetOption(Line& line) {
    const OptionId id = line.Option->Id;
    const std::optional<std::wstring_view> value =
        id == OptionId::CheckGrammar ? GrammarValue(line) : Expand(line.Argument);
    if (value) {
        shared_.Options.Set(id, *value);
    }
}

std::optional<std::wstring_view> Executor::GrammarValue(Line& line) {
    const std::wstring_view text = line.Argument.Text;
    if (text.empty()) {
        return L"0";
    }
    if (text == L"0" || text == L"1") {
        return text;
    }
    const std::optional<std::wstring_view> value = Expand(line.Argument);
    return value && value->empty() ? L"0" : value;
}

// --- commands and lines that are none

void Executor::Command(Line& line) {
    if (!line.HasEquals) {
        return TellSyntaxError();
    }
    const CommandWord& command = *line.Command;
    // The one argument that is a variable's name, not its value.
    const bool isName = command.Id == CommandId::GetSelectItems;
    // Blanks and line ends of values stay: scripts have no other way to write or show them.
    const std::optional<std::wstring_view> argument = isName ? line.Argument.Text : Expand(line.Argument);
    if (!argument) {
        return;
    }
    const bool isMissing = argument->empty() && !command.MayBeEmpty;
    TellOutcome(isMissing ? Outcome::SyntaxError : RunCommand(scope_, command.Id, *argument));
}

void Executor::Include(std::wstring_view path) {
    if (start_.Depth >= kMaxIncludeDepth) {
        return Tell(TooDeepText(path));
    }
    const std::wstring* const item = loops_.Item != Loops::kNoItem || start_.Item ? Item() : nullptr;
    ScriptStart start{std::wstring(path), item != nullptr ? std::optional(*item) : std::nullopt, isTracing_,
                      start_.Depth + 1};
    const Ending ending = Executor(shared_, std::move(start)).Run();
    if (ending != Ending::Ended) {
        ending_ = ending;
    }
}

void Executor::Unknown() {
    const std::wstring& grammar = shared_.Options[OptionId::CheckGrammar];
    if (grammar == L"0") {
        return;
    }
    if (world_.Speaker.Ask(UnknownLineText(*current_), lang::Tone::Question)) {
        return;
    }
    ending_ = Ending::Ended;
    if (grammar != L"1") {
        // best effort: the run has ended, and nobody waits for this program
        world_.Programs.StartHelper(
            base::ReplaceAll(grammar, L"?ErrorLine?", std::to_wstring(current_->Number)));
    }
}

// --- assignments

void Executor::Assignment(Line& line) {
    const std::optional<std::uint32_t> variable = line.Variable ? line.Variable : AssignedVariable(line);
    if (!variable) {
        return;
    }
    if (*variable == NameIndex::kNone) {
        return Unknown();
    }
    if (!AssignByNumbers(*variable, line.Argument)) {
        const std::optional<std::wstring_view> text = Expand(line.Argument);
        if (!text) {
            return;
        }
        const Outcome outcome = AssignText(*variable, *text);
        if (outcome != Outcome::Done) {
            return TellOutcome(outcome);
        }
    }
    if (isTracing_) {
        TraceAssignment(*variable);
    }
}

std::optional<std::uint32_t> Executor::AssignedVariable(Line& line) {
    const std::size_t open = line.Name.ends_with(L']') ? line.Name.find(L'[') : std::wstring_view::npos;
    if (open == std::wstring_view::npos) {
        const std::uint32_t variable = variables_.Find(line.Name);
        // Variables are never taken back, so what was found stays.
        line.Variable = variable != NameIndex::kNone ? std::optional(variable) : std::nullopt;
        return variable;
    }
    buffer_.assign(line.Name, open + 1, line.Name.size() - open - 2);
    if (!expansion_.ExpandAll(buffer_, Item())) {
        TellTooLong();
        return std::nullopt;
    }
    buffer_.insert(0, line.Name, 0, open + 1).append(1, L']');
    return variables_.Find(buffer_);
}

/// Carries out an operation on numbers that are known as such; false when texts are needed.
bool Executor::AssignByNumbers(std::uint32_t variable, PreparedText& text) {
    variables_.Prepare(text);
    std::optional<std::int64_t> operand;
    if (text.Which == PreparedText::Names::None) {
        operand = text.Number;
    } else if (text.Which == PreparedText::Names::Last && IsNumberOperator(text.Text.front()) &&
               !variables_.HasNumberLikeName()) {
        operand = variables_.Number(text.Variable);
    }
    const std::optional<std::int64_t> current = variables_.Number(variable);
    if (!operand || !current) {
        return false;
    }
    variables_.SetNumber(variable, Compute(*current, text.Text.front(), *operand));
    return true;
}

Outcome Executor::AssignText(std::uint32_t variable, std::wstring_view text) {
    const wchar_t sign = text.empty() ? L'\0' : text.front();
    if (IsNumberOperator(sign)) {
        const std::int64_t current = ToOperand(variables_.Text(variable));
        variables_.SetNumber(variable, Compute(current, sign, ToOperand(text.substr(1))));
        return Outcome::Done;
    }
    if (sign == L'&') {
        return Append(variable, text.substr(1));
    }
    const std::optional<CallParts> call = SplitCall(text);
    return call ? AssignResult(variable, *call) : Store(variable, text);
}

Outcome Executor::AssignResult(std::uint32_t variable, const CallParts& call) {
    const Outcome outcome = functions_.Call(call, result_);
    return outcome == Outcome::Done ? Store(variable, result_) : outcome;
}

Outcome Executor::Append(std::uint32_t variable, std::wstring_view text) {
    if (variables_.Text(variable).size() + text.size() > kMaxValueUnits) {
        return Outcome::TooLong;
    }
    return variables_.Append(variable, text) ? Outcome::Done : Outcome::TooMuch;
}

Outcome Executor::Store(std::uint32_t variable, std::wstring_view text) {
    return variables_.SetText(variable, text) ? Outcome::Done : Outcome::TooMuch;
}

Outcome Executor::Assign(std::wstring_view name, std::wstring_view value) {
    const std::uint32_t variable = variables_.Find(name);
    if (variable == NameIndex::kNone) {
        return Outcome::SyntaxError;
    }
    const Outcome outcome = Store(variable, value);
    if (outcome == Outcome::Done && isTracing_) {
        TraceAssignment(variable);
    }
    return outcome;
}

// --- conditions and texts

std::optional<bool> Executor::Judge(Line& line) {
    if (line.Compare == Operator::None) {
        TellSyntaxError();
        return std::nullopt;
    }
    if (line.Compare != Operator::Like && line.Compare != Operator::NotLike) {
        const std::optional<std::int64_t> left = NumberOf(line.Argument);
        const std::optional<std::int64_t> right = left ? NumberOf(line.RightSide) : std::nullopt;
        if (right) {
            return IsTrueOfNumbers(*left, line.Compare, *right);
        }
    }
    const std::optional<std::wstring_view> left = Expand(line.Argument);
    if (!left) {
        return std::nullopt;
    }
    left_ = *left;
    const std::optional<std::wstring_view> right = Expand(line.RightSide);
    if (!right) {
        return std::nullopt;
    }
    right_ = *right;
    const std::optional<bool> isTrue = IsTrue(left_, line.Compare, right_);
    if (!isTrue) {
        // Whichever branch went on would be the wrong one half of the time.
        Tell(TooManyStepsText(*current_));
        ending_ = Ending::Ended;
    }
    return isTrue;
}

std::optional<std::int64_t> Executor::NumberOf(PreparedText& text) const {
    variables_.Prepare(text);
    if (text.Which == PreparedText::Names::None) {
        return text.Number;
    }
    if (text.Which == PreparedText::Names::One && !variables_.HasNumberLikeName()) {
        return variables_.Number(text.Variable);
    }
    return std::nullopt;
}

/// `text` with everything replaced, in the buffer or as it is. Nothing, and the person is told, when it gets
/// too long.
std::optional<std::wstring_view> Executor::Expand(PreparedText& text) {
    const std::optional<std::wstring_view> expanded = expansion_.Expand(text, Item(), buffer_);
    if (!expanded) {
        TellTooLong();
    }
    return expanded;
}

const std::wstring* Executor::Item() const noexcept {
    const std::vector<std::wstring>& items = shared_.Selection.Items();
    if (loops_.Item != Loops::kNoItem) {
        // An included script may have emptied the selection; then the loop has no item any more.
        return loops_.Item < std::ssize(items) ? &items[static_cast<std::size_t>(loops_.Item)] : nullptr;
    }
    if (start_.Item) {
        return &*start_.Item;
    }
    return items.empty() ? nullptr : items.data();
}

// --- telling

void Executor::Tell(const std::wstring& message) const {
    world_.Speaker.Tell(message, lang::Tone::Plain);
}

void Executor::TellSyntaxError() const {
    Tell(SyntaxErrorText(*current_));
}

void Executor::TellTooLong() const {
    Tell(TooLongText(*current_));
}

void Executor::TellNameFault(const NameCheck& check, std::wstring_view name) const {
    const std::wstring other =
        check.Other != NameIndex::kNone ? variables_.Name(check.Other) : std::wstring();
    Tell(NameFaultText(check.Fault, name, other, *current_));
}

void Executor::TellOutcome(Outcome outcome) {
    if (outcome == Outcome::EndRun) {
        ending_ = Ending::Ended;
    } else if (outcome != Outcome::Done) {
        Tell(OutcomeText(outcome, *current_));
    }
}

}  // namespace ferry::script
