// The texts of the trace window, in the languages that it speaks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "trace_model.h"

namespace ferry::tracewindow {

/// All texts in one language; "%1" stands for what is filled in.
struct Texts {
    const wchar_t* ScriptLabel;
    const wchar_t* LinesLabel;
    const wchar_t* VariablesLabel;
    const wchar_t* WholeLabel;
    const wchar_t* NumberLabel;
    const wchar_t* Toggle;
    const wchar_t* GoOn;
    const wchar_t* Step;
    const wchar_t* HoldNothing;
    const wchar_t* Clear;
    const wchar_t* Save;

    const wchar_t* MarkColumn;
    const wchar_t* NumberColumn;
    const wchar_t* LineColumn;
    const wchar_t* NameColumn;
    const wchar_t* ValueColumn;

    const wchar_t* Waiting;
    const wchar_t* HeldAt;
    const wchar_t* LastLine;
    const wchar_t* Started;
    const wchar_t* NextIsHeld;
    const wchar_t* Unreadable;
    const wchar_t* NotAFullPath;
    const wchar_t* NoSuchLine;
    const wchar_t* Records;
    const wchar_t* Malformed;
    const wchar_t* Dropped;

    const wchar_t* CutValue;      ///< Behind the beginning of a value with %1 characters.
    const wchar_t* DroppedLines;  ///< Stands in a file before the records that were kept.
    const wchar_t* NoLineNumber;
    const wchar_t* CannotSave;
    const wchar_t* FileKind;
};

extern const Texts kEnglish;
extern const Texts kJapanese;

/// `text` with `part` for its "%1".
std::wstring Fill(std::wstring_view text, std::wstring_view part);

/// A value as a table shows it: on one line, and with its length when only its beginning is there.
std::wstring ValueText(const TracedVariable& variable, const Texts& texts);

/// All that is kept, as the content of a file.
std::wstring FileText(const TraceModel& model, const Texts& texts);

/// What became of the file of the script that is shown.
enum class ScriptText : std::uint8_t { Read, Unreadable, NotAFullPath };

/// What a person is told below the tables.
struct Situation {
    std::optional<std::size_t> HeldAt = std::nullopt;  ///< The line at which a script is held.
    bool IsNextHeld = false;                           ///< Whether the next line will be held.
    ScriptText Text = ScriptText::Read;
    std::size_t LineCount = 0;  ///< Of the script that is shown.
};

/// The sentences that tell of `model` and `situation`.
std::wstring StatusText(const TraceModel& model, const Situation& situation, const Texts& texts);

}  // namespace ferry::tracewindow
