#include "script/blocks.h"

namespace ferry::script {

BranchStep Branches::Step(LineKind kind) {
    if (states_.empty()) {
        return kind == LineKind::If ? BranchStep::Judge : BranchStep::Execute;
    }
    const State top = states_.back();
    return top == State::Taken || top == State::Else ? StepExecuting(kind) : StepSkipping(kind);
}

BranchStep Branches::StepExecuting(LineKind kind) {
    if (kind == LineKind::If) {
        return BranchStep::Judge;
    }
    if (kind == LineKind::EndIf) {
        states_.pop_back();
        return BranchStep::Turn;
    }
    // A second "else" is no word of the block any more: it is executed, and nobody understands it.
    if (kind == LineKind::Else && states_.back() == State::Taken) {
        states_.back() = State::Done;
        return BranchStep::Turn;
    }
    return BranchStep::Execute;
}

BranchStep Branches::StepSkipping(LineKind kind) {
    const State top = states_.back();
    if (kind == LineKind::If) {
        states_.push_back(top == State::Done ? State::Done : State::Inside);
    } else if (kind == LineKind::EndIf) {
        states_.pop_back();
    } else if (kind == LineKind::Else && top == State::Waiting) {
        states_.back() = State::Else;
    }
    return BranchStep::Skip;
}

void Loops::PopKind() noexcept {
    if (!Kinds.empty()) {
        Kinds.pop_back();
    }
}

void Loops::PopDo() noexcept {
    if (!DoLines.empty()) {
        DoLines.pop_back();
    }
}

}  // namespace ferry::script
