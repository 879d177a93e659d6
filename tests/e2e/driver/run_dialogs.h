// The dialogs that Ferry shows while a run goes on.
#pragma once

#include <windows.h>

#include <string>

#include "e2e/driver/remote_dialog.h"

namespace ferry::e2e {

/// Which dialog; each has a control that no other dialog of Ferry has.
enum class RunDialog { Collision, Rename, Progress, Report };

/// The buttons of the collision dialog beside OK and Cancel.
inline constexpr int kForAll = 5;
inline constexpr int kStopAll = 7;

/// The radio button of `policy` (0 to 6) in the collision dialog.
constexpr int ChoiceControl(int policy) {
    return 1220 + policy;
}

/// The controls of the rename dialog that tests touch.
inline constexpr int kCurrentName = 1000;
inline constexpr int kNewName = 1001;
inline constexpr int kExtension = 1002;
inline constexpr int kSplitFiles = 1030;
inline constexpr int kSplitFolders = 1031;
inline constexpr int kUpperCase = 1103;

/// The controls of the report.
inline constexpr int kReportSummary = 1900;
inline constexpr int kReportList = 1001;
inline constexpr int kReportCopy = 1103;

/// The controls of the progress window.
inline constexpr int kProgressTitle = 1350;
inline constexpr int kProgressItem = 1352;

/// The dialog of this kind that process `processId` shows now; a closed one when there is none.
RemoteDialog FindRunDialog(DWORD processId, RunDialog kind);

/// Waits for the dialog and, when it is a question, until the keyboard is its own. A closed one
/// when it did not come.
RemoteDialog WaitForRunDialog(DWORD processId, RunDialog kind);

/// Waits until the dialog is closed or hidden.
bool WaitUntilGone(const RemoteDialog& dialog);

/// The window that has the keyboard focus in the thread of `window`.
HWND FocusOf(HWND window);

/// Name and extension of an open rename dialog, parted by a bar.
std::wstring NamesIn(const RemoteDialog& rename);

/// Types `text` in place of the selected new name and presses Enter, with Shift when wanted; waits until the
/// dialog went.
bool TypeNewName(const RemoteDialog& rename, const std::wstring& text, bool withShift = false);

/// Presses Escape; waits until the dialog went.
bool PressEscapeIn(const RemoteDialog& dialog);

}  // namespace ferry::e2e
