// One run of one script file.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/script/literal/literal_placeholders.h"
#include "core/script/literal/literal_text.h"
#include "script/ports.h"

namespace ferry::script::literal {

/// Scripts in scripts, at most; the outermost one does not count.
inline constexpr int kDeepestInclude = 32;

/// A name and its text, in the order in which they came.
using Table = std::vector<std::pair<std::wstring, std::wstring>>;

/// The text of `name` in `table`; null when it is not there.
std::wstring* TextOf(Table& table, const std::wstring& name);

/// What a run and the runs of the scripts that it includes have together.
struct Together {
    script::World& World;
    HostFolders& Folders;
    std::vector<std::wstring>& Selection;
    Table Variables;
    Table Options;
};

/// How a run or one of its statements goes on.
enum class Course { GoesOn, RunEnds, AllEnd, Stopped };

/// What a statement that failed tells; it has no effect then.
struct Failure {
    std::wstring Text;
};

/// A file that "fileread" reads, line by line. It is open until another one is read or the run ends.
struct FileBeingRead {
    std::wstring Path;
    UnitFile Units;
    bool HasEnded = false;
};

class LiteralRun {
public:
    /// `item` is the item of the text that included this script, where one is being run through.
    LiteralRun(Together& together, std::wstring path, int depth, bool isTraced,
               std::optional<std::wstring> item);

    Course Run();

private:
    // The two passes.
    void CollectLabels();
    void CollectLabel(const std::wstring& line);
    Course RunLine();
    Course RunStatement();
    bool RunsAtOnce();
    Course RemoveSelectItems();

    // The blocks.
    bool JudgeBlock();
    bool JudgeOpenBlock();
    void PushIf();
    bool IsSkipped();
    Course Dispatch();
    bool RunBlockWord();
    void For();
    void Next();
    void While();
    void Continue();
    void Break();
    void ContinueFor();
    void PopKind();
    void PopDo();
    void JumpBehind(std::size_t line) { next_ = line + 1; }

    // Labels.
    Course Goto();
    Course JumpTo(std::size_t line);
    std::optional<std::size_t> LineOf(const std::wstring& label) const;

    // Variables and values.
    void DeclareAll();
    void RequireRoom(std::size_t count) const;
    void Declare(const std::wstring& name);
    void CheckName(const std::wstring& name);
    bool Assign();
    std::wstring TargetName(const std::wstring& written);
    void Store(const std::wstring& name, const std::wstring& value);
    std::wstring Operated(const std::wstring& value, const std::wstring& text) const;
    std::optional<std::wstring> ValueOf(const std::wstring& text);
    bool Condition(const std::wstring& text);
    std::wstring Side(const std::wstring& text);

    // Functions. Nothing is a value that stays.
    std::optional<std::wstring> Call(const std::wstring& name, const std::wstring& written);
    std::optional<std::wstring> CallOnPath(const std::wstring& name, const std::wstring& path);
    std::optional<std::wstring> CallOnPieces(const std::wstring& name,
                                             const std::vector<std::wstring>& pieces);
    std::optional<std::wstring> ReadLine(const std::wstring& path);
    std::optional<std::wstring> ReadAll(const std::wstring& path);
    std::wstring Random(const std::wstring& text);
    std::vector<std::wstring> FilesIn(const std::wstring& folder);
    std::wstring Position();

    // Options and commands.
    bool SetOption();
    Course Command(const std::wstring& name);
    Course CommandOfText(const std::wstring& name, const std::wstring& text);
    bool CommandOfSpeech(const std::wstring& name, const std::wstring& text);
    Course CommandOfFields(const std::wstring& name, const std::wstring& text);
    void ShowBox(const std::wstring& text);
    void StartProgram(const std::wstring& text, bool isWaitedFor);
    void Open(const std::wstring& text);
    Course Include(const std::wstring& path);
    Course ExRun(const std::wstring& text);
    void FileOpen(const std::wstring& path);
    void Write(std::vector<std::byte> bytes);
    void ToWindow(const std::wstring& name, const std::wstring& text);
    void Registry(bool isNumber, const std::wstring& text);
    void PaneJump(bool isFile, const std::wstring& text);
    void NumberedJump(std::uint32_t code, const std::wstring& text);
    void FullStateOpen(const std::wstring& text);
    void AppendItems(const std::vector<std::wstring>& items);
    void GetSelectItems();
    Course Unknown();

    // What they all use.
    std::wstring Expanded(const std::wstring& text);
    std::wstring Substituted(std::wstring text);
    std::optional<std::wstring> Item() const;
    std::optional<std::wstring> ItemOfLoop() const;
    std::wstring CommandLine(const std::wstring& text);
    ProgramStart StartOf(const std::wstring& text, bool isWaitedFor);
    void HandOver(std::uint32_t code, const std::wstring& text);
    void Tell(const std::wstring& text);
    void Trace(std::uint32_t code, const std::wstring& text);
    void TraceValue(std::uint32_t code, const std::wstring& name, const std::wstring& value);
    std::wstring Option(const wchar_t* name);
    std::wstring NumberedText() const;
    Failure SyntaxError() const;
    Failure IllegalCall() const;
    void RequireLength(std::size_t size) const;
    bool IsWord(const wchar_t* word) const;

    Together& together_;
    World& world_;
    std::wstring path_;
    int depth_;
    bool isTraced_;
    std::optional<std::wstring> outerItem_;

    std::vector<std::wstring> lines_;
    std::vector<std::pair<std::wstring, std::size_t>> labels_;
    std::size_t now_ = 0;   ///< The line that runs, from 1.
    std::size_t next_ = 1;  ///< The line that runs then.
    std::wstring raw_;      ///< The line as messages show it.
    std::wstring line_;     ///< The line as it runs.
    std::wstring word_;     ///< Its first word in small letters.

    std::vector<unsigned> ifs_;
    std::vector<int> kinds_;  ///< 1 a for-loop, 2 a do-loop.
    std::vector<std::size_t> dos_;
    std::ptrdiff_t index_ = -1;
    std::size_t forLine_ = 0;
    bool skipsToNext_ = false;
    bool skipsToWhile_ = false;
    int jumps_ = 0;

    std::unique_ptr<OutFile> file_;
    bool overwrites_ = false;
    bool writesMark_ = false;
    std::optional<FileBeingRead> fileRead_;
};

}  // namespace ferry::script::literal
