// The tables of the trace window.
#pragma once

#include <windows.h>

#include <initializer_list>
#include <optional>
#include <string>

#include "framework/controls.h"
#include "script_lines.h"
#include "trace_model.h"
#include "trace_texts.h"

namespace ferry::tracewindow {

/// The columns of both tables: the marks, the number or the name, and the text.
inline constexpr int kMarkColumn = 0;
inline constexpr int kFirstTextColumn = 2;

/// A table that asks for its texts when it draws them, and in which one row can be marked.
class CMarkedList : public framework::CListCtrl {
public:
    static constexpr int kNone = -1;

    /// Adds a column behind the others.
    void AddColumn(const wchar_t* title);

    /// Gives the columns these widths, and the last one what is left of the table's own.
    void SetWidths(std::initializer_list<int> widths) const;

    /// Draws the row `index` as the marked one; kNone marks none.
    void Mark(int index);
    int Marked() const noexcept { return marked_; }

protected:
    framework::Answer OnOwnNotification(NMHDR& header) override;

    /// What stands in a cell.
    virtual std::wstring CellText(int row, int column) const = 0;

private:
    int columns_ = 0;
    int marked_ = kNone;
    std::wstring cell_;
};

/// The lines of a script, with the one that runs and those at which it is held.
class CLinesList : public CMarkedList {
public:
    explicit CLinesList(const TraceModel& model) noexcept : model_(model) {}

    void Show(std::wstring text);
    const ScriptLines& Script() const noexcept { return *script_; }

protected:
    std::wstring CellText(int row, int column) const override;

private:
    const TraceModel& model_;
    std::optional<ScriptLines> script_{std::in_place};
};

/// The variables with their values.
class CVariablesList : public CMarkedList {
public:
    CVariablesList(const TraceModel& model, const Texts& texts) noexcept : model_(model), texts_(texts) {}

protected:
    std::wstring CellText(int row, int column) const override;

private:
    const TraceModel& model_;
    const Texts& texts_;
};

}  // namespace ferry::tracewindow
