// Runs one script: its statements in order, its blocks and jumps.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "script/blocks.h"
#include "script/commands.h"
#include "script/engine.h"
#include "script/expansion.h"
#include "script/functions.h"
#include "script/host_folders.h"
#include "script/labels.h"
#include "script/options.h"
#include "script/ports.h"
#include "script/script_files.h"
#include "script/selection.h"
#include "script/source.h"
#include "script/variables.h"

namespace ferry::script {

class Executor;

/// What a run shares with the scripts that it includes.
struct SharedState {
    const script::World& World;
    script::Variables& Variables;
    script::Options& Options;
    script::Selection& Selection;
    HostFolders& Folders;
    std::wstring& Result;
    const Executor*& Running;  ///< The innermost run; null while there is none.
};

/// How a script was started.
struct ScriptStart {
    std::wstring Path;
    std::optional<std::wstring> Item;  ///< What the texts are about where no "for" runs; else the first item.
    bool IsTracing = false;
    int Depth = 0;  ///< How many scripts include it, one inside the other.
};

/// Why a run ended.
enum class Ending { None, Ended, EndedAll, Stopped };

/// One run of one script file. Lines are classified when it is loaded; jumps go to places among them.
class Executor final : private CommandRun {
public:
    /// `shared` must outlive this object.
    Executor(const SharedState& shared, ScriptStart start);
    Executor(const Executor&) = delete;
    Executor& operator=(const Executor&) = delete;
    ~Executor() override = default;

    /// Runs the script to its end.
    Ending Run();

    /// Where it is.
    ScriptPlace Place() const;

private:
    // --- the first walk over the lines
    bool Load();
    void TakeLabels();
    void FindTraceWindow();

    // --- the course of the run
    void RunLine();
    Line& Rewritten(const Line& line);
    bool IsToBeExecuted(Line& line);
    bool PassesBranches(Line& line);
    void EndSkip(LineKind kind);
    void Execute(Line& line);
    void Stop();

    // --- statements
    void If(Line& line);
    void For();
    void Next();
    void Do();
    void While(Line& line);
    void Continue();
    void Break();
    void Goto(const Line& line);
    void Jump(const LabelPlace& place);
    bool HasRoomFor(std::size_t openBlocks);
    void Declare(const Line& line);
    bool DeclareName(std::wstring_view name);
    void DeclareElements(std::wstring_view name, std::size_t count);
    void SetOption(Line& line);
    std::optional<std::wstring_view> GrammarValue(Line& line);
    void Command(Line& line);
    void Assignment(Line& line);
    std::optional<std::uint32_t> AssignedVariable(Line& line);
    bool AssignByNumbers(std::uint32_t variable, PreparedText& text);
    Outcome AssignText(std::uint32_t variable, std::wstring_view text);
    Outcome AssignResult(std::uint32_t variable, const CallParts& call);
    Outcome Append(std::uint32_t variable, std::wstring_view text);
    Outcome Store(std::uint32_t variable, std::wstring_view text);
    void EmptySelection();
    void Unknown();

    // --- conditions
    std::optional<bool> Judge(Line& line);
    std::optional<std::int64_t> NumberOf(PreparedText& text) const;
    std::optional<std::wstring_view> Expand(PreparedText& text);
    const std::wstring* Item() const noexcept;

    // --- what commands ask for
    void Include(std::wstring_view path) override;
    bool JumpTo(std::wstring_view name) override;
    Outcome Assign(std::wstring_view name, std::wstring_view value) override;

    // --- telling
    void Tell(const std::wstring& message) const;
    void TellSyntaxError() const;
    void TellTooLong() const;
    void TellNameFault(const NameCheck& check, std::wstring_view name) const;
    void TellOutcome(Outcome outcome);
    void Trace(std::uint32_t code, std::wstring text) const;
    void TraceStep() const;
    void TraceDeclaration() const;
    void TraceAssignment(std::uint32_t variable) const;
    void TraceValue(std::uint32_t code, std::uint32_t variable) const;

    const World& world_;
    SharedState shared_;
    Variables& variables_;
    ScriptStart start_;
    std::wstring scriptName_;
    std::wstring scriptFolder_;
    std::optional<Source> source_;
    Labels labels_;
    Branches branches_;
    Loops loops_;
    Expansion expansion_;
    Functions functions_;
    OutputFile output_;
    CommandScope scope_;

    /// A line whose run words were replaced, for one number of selected items.
    struct RewrittenLine {
        std::wstring Text;
        std::size_t Count = 0;
        script::Line Line;
    };
    std::map<std::size_t, RewrittenLine> rewritten_;

    std::size_t next_ = 0;           ///< The index of the line that comes next.
    const Line* current_ = nullptr;  ///< The line that is run, as it was read.
    Ending ending_ = Ending::None;
    int backwardJumps_ = 0;
    bool isTracing_ = false;
    std::wstring buffer_;  ///< For texts of statements; kept for their memory.
    std::wstring left_;    ///< The same for the sides of conditions.
    std::wstring right_;
    std::wstring result_;  ///< The same for results of functions.
};

}  // namespace ferry::script
