// What scripts tell of themselves while they run, gathered for a person to look at.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ferry::tracewindow {

/// The most records that are kept, and the most units of their texts; the oldest go first.
inline constexpr std::size_t kMaxRecords = 100000;
inline constexpr std::size_t kMaxKeptUnits = 33554432;

/// The most units of a record's text: more than the longest name with the longest value. The rest is dropped.
inline constexpr std::size_t kMaxTextUnits = 4194304;

/// How much of a value is shown.
inline constexpr std::size_t kShownValueUnits = 1000;

/// The most scripts that can be chosen from; the one that was named first goes first.
inline constexpr std::size_t kMaxScripts = 100;

/// What a record tells.
enum class RecordKind : std::uint8_t {
    Script,     ///< A script starts; the text is its path.
    Line,       ///< The line with this number is about to be executed.
    Variable,   ///< A variable has a value: name, TAB, value.
    Malformed,  ///< Nothing that a script sends.
};

/// One message about a script.
struct TraceRecord {
    std::uint64_t Code = 0;
    RecordKind Kind = RecordKind::Malformed;
    std::wstring Text;

    bool operator==(const TraceRecord&) const = default;
};

/// The record that came with `code` and `bytes`, from whomever: UTF-16 text, little end first, that a NUL
/// ends; what follows the NUL is nothing.
TraceRecord ReadRecord(std::uint64_t code, std::span<const std::byte> bytes);

/// The number of a line, or nothing when `text` is none: 1 to 9 digits, and not zero.
std::optional<std::size_t> ReadLineNumber(std::wstring_view text);

/// A variable with its value, the beginning of it when it is long.
struct TracedVariable {
    std::wstring Name;
    std::wstring Value;
    std::size_t Units = 0;  ///< Of the whole value.

    bool IsCut() const noexcept { return Units != Value.size(); }
};

/// All that is known of the scripts, and where they are to be held.
///
/// A script that another one includes tells that it starts, and nobody tells that it has ended: the lines
/// that follow may be those of the one that included it. So a hold is at a number, in whichever script.
class TraceModel {
public:
    /// Takes `record`. Whether the script is to be held before the line that it tells of.
    bool Take(TraceRecord record);

    /// Forgets all that was taken; the holds stay.
    void Clear();

    /// Sets a hold at the line `number`, or removes it.
    void ToggleHold(std::size_t number);
    bool HasHold(std::size_t number) const { return holds_.contains(number); }

    /// Holds at whichever line comes next.
    void HoldNextLine() noexcept { holdsNextLine_ = true; }
    bool HoldsNextLine() const noexcept { return holdsNextLine_; }

    /// Removes every hold, that of the next line too.
    void HoldNothing() noexcept;

    /// The paths of the scripts that have started, each once, in the order of their first starts.
    const std::deque<std::wstring>& Scripts() const noexcept { return scripts_; }

    /// Which of them started last; nothing before the first.
    std::optional<std::size_t> LastStarted() const noexcept { return lastStarted_; }

    /// Changes whenever a script starts and when all is forgotten.
    std::uint64_t Starts() const noexcept { return starts_; }

    /// The line that was told of last, if any was since the last start.
    std::optional<std::size_t> Line() const noexcept { return line_; }

    /// The variables in the order in which they were first told of.
    const std::vector<TracedVariable>& Variables() const noexcept { return variables_; }

    /// The one that was told of last.
    std::optional<std::size_t> LastChanged() const noexcept { return lastChanged_; }

    /// How many records came, how many of them were malformed, and how many are not kept any more.
    std::uint64_t Count() const noexcept { return count_; }
    std::uint64_t MalformedCount() const noexcept { return malformedCount_; }
    std::uint64_t DroppedCount() const noexcept { return count_ - records_.size(); }

    /// The records that are kept, a line each that CR LF ends: code, TAB, text, with signs for what would
    /// break the line. A malformed one has "?" and a TAB before it.
    std::wstring RecordLines() const;

private:
    void Keep(TraceRecord record);
    void TakeScript(const std::wstring& path);
    void TakeVariable(std::wstring_view text);
    std::optional<std::size_t> VariableCalled(std::wstring_view name);

    std::deque<TraceRecord> records_;
    std::size_t keptUnits_ = 0;
    std::uint64_t count_ = 0;
    std::uint64_t malformedCount_ = 0;

    std::deque<std::wstring> scripts_;
    std::optional<std::size_t> lastStarted_;
    std::uint64_t starts_ = 0;
    std::optional<std::size_t> line_;

    std::vector<TracedVariable> variables_;
    std::unordered_map<std::wstring, std::size_t> byName_;
    std::size_t namesUnits_ = 0;
    std::optional<std::size_t> lastChanged_;

    std::set<std::size_t> holds_;
    bool holdsNextLine_ = false;
};

}  // namespace ferry::tracewindow
