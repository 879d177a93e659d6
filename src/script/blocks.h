// The blocks of a running script that are open: branches and loops.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "script/source.h"

namespace ferry::script {

/// What a line is to the branches that are open.
enum class BranchStep : std::uint8_t {
    Execute,  ///< It is executed.
    Judge,    ///< It is an "if" whose condition decides.
    Turn,     ///< It was an "else" or "endif" of a branch that executes.
    Skip,     ///< It is not executed.
};

/// The branches of "if" that are open, the innermost on top. Jumps out of a branch leave it open.
class Branches {
public:
    /// Takes note of a line of `kind`.
    BranchStep Step(LineKind kind);

    /// Opens the branch of an "if".
    void Open(bool isTrue) { states_.push_back(isTrue ? State::Taken : State::Waiting); }

    /// Whether none is open, so that every line is executed.
    bool IsEmpty() const noexcept { return states_.empty(); }

    std::size_t Count() const noexcept { return states_.size(); }

private:
    enum class State : std::uint8_t {
        Else,     ///< In the branch behind "else".
        Taken,    ///< In the branch of a true condition.
        Waiting,  ///< The condition was false; "else" is waited for.
        Done,     ///< Behind the "else" of a branch that was taken.
        Inside,   ///< In an "if" that lies in a branch that is waited through.
    };

    BranchStep StepExecuting(LineKind kind);
    BranchStep StepSkipping(LineKind kind);

    std::vector<State> states_;
};

/// The kinds of loops.
enum class LoopKind : std::uint8_t { For = 1, Do = 2 };

/// What a script waits for when it leaves a loop.
enum class SkipTo : std::uint8_t { Nothing, Next, While };

/// The loops that are open. The stacks of kinds and of returns of "do" are apart, and lines that close a loop
/// take from the top of them whatever is there.
struct Loops {
    static constexpr std::ptrdiff_t kNoItem = -1;

    std::vector<LoopKind> Kinds;
    std::vector<std::size_t> DoLines;  ///< The indexes of the "do" lines.
    std::ptrdiff_t Item = kNoItem;     ///< Of the running "for" through the selected items.
    std::size_t ForLine = 0;           ///< The index of its line.
    SkipTo Skip = SkipTo::Nothing;

    void PopKind() noexcept;
    void PopDo() noexcept;
};

}  // namespace ferry::script
