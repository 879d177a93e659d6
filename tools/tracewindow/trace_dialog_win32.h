// The window in which a person watches scripts run, and holds them.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

#include "framework/controls.h"
#include "framework/dialog.h"
#include "trace_lists_win32.h"
#include "trace_model.h"
#include "trace_texts.h"

namespace ferry::tracewindow {

/// By this title scripts find the window. No other window of the program may bear it.
inline constexpr wchar_t kTraceTitle[] = L"Script trace Kiv";

/// The class of the window.
inline constexpr wchar_t kTraceClass[] = L"FerryTraceWindow";

/// The trace window. While it holds a script, it does not answer the script's message, and runs a loop of its
/// own in the meantime.
class CTraceDialog : public framework::CDialog {
public:
    /// `texts` must outlive the dialog.
    explicit CTraceDialog(const Texts& texts) noexcept;

    /// Registers the window's class, once in a process. False when Windows refuses.
    static bool Register();

    bool IsHolding() const noexcept { return heldAt_.has_value(); }

    /// Writes all records that are kept into the file at `path`, as UTF-16 with a byte-order mark. What the
    /// system says against it, 0 for nothing.
    DWORD SaveTo(const std::wstring& path) const;

    bool PreTranslateMessage(MSG& message) override;

protected:
    bool OnInitDialog() override;
    void OnOK() override { ToggleHold(); }
    // Escape leaves the window open; what closes it is WM_CLOSE.
    void OnCancel() override {}
    std::span<const framework::Route> Routes() const override;

private:
    framework::Answer OnCopyData(WPARAM wParam, LPARAM lParam);
    framework::Answer OnTimer(WPARAM wParam, LPARAM lParam);
    framework::Answer OnNotify(WPARAM wParam, LPARAM lParam);
    framework::Answer OnSize(WPARAM wParam, LPARAM lParam);
    framework::Answer OnLimits(WPARAM wParam, LPARAM lParam);
    framework::Answer OnClose(WPARAM wParam, LPARAM lParam);
    framework::Answer OnEndSession(WPARAM wParam, LPARAM lParam);

    void Hold(std::size_t line);
    void EndHold() noexcept;
    void GoOn();
    void Step();
    void HoldNothing();
    void Clear();
    void Save();
    void ToggleHold();
    void ToggleHoldAt(std::size_t line);
    std::optional<std::size_t> ChosenLine() const;

    void ShowSoon();
    void Show();
    void ShowScripts();
    void ShowScript(const std::wstring& path);
    void ShowChosenScript();
    void ShowLine();
    void ShowVariables();
    void ShowStatus();
    void ShowWhole();
    void LayOut();

    const Texts& texts_;
    TraceModel model_;
    framework::CComboBox scripts_;
    CLinesList lines_{model_};
    CVariablesList variables_{model_, texts_};
    int wholeOf_ = 0;  ///< The table whose selected row is shown in full.
    ScriptText scriptText_ = ScriptText::Read;
    std::uint64_t shownStarts_ = 0;
    std::optional<std::size_t> heldAt_;
    bool isShowDue_ = false;
    bool isSaving_ = false;
    bool isClosed_ = false;
};

}  // namespace ferry::tracewindow
