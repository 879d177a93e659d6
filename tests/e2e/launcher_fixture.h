// A Ferry that the launcher opens.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "e2e/driver/child_process.h"
#include "e2e/fixture.h"

namespace ferry::e2e {

/// The launcher inside the layout at `appFolder`.
std::wstring LauncherPath(const std::wstring& appFolder);

class Launcher : public FerryTest {
protected:
    using Words = std::vector<std::wstring>;

    /// Starts the launcher. `input`, when given, becomes its standard input.
    void Start(const Words& arguments, HANDLE input = nullptr);

    /// Waits for the Ferry that the launcher starts, and for its dialog, which Dialog() then is.
    testing::AssertionResult FerryOpens();

    testing::AssertionResult Opens(const Words& arguments, HANDLE input = nullptr) {
        Start(arguments, input);
        return FerryOpens();
    }

    const RemoteDialog& Dialog() const { return dialog_; }
    const base::ProcessHandle& Ferry() const { return ferry_; }
    DWORD LauncherId() const { return launcher_->Id(); }

    /// The names in the dialog's list.
    Words Items() const;

    /// All fields of the block that are not empty, as Ferry left it: counts, current folder, items, folders.
    Words BlockFields() const;

    /// Whether the launcher shows a message box with exactly this text; the button `id`, or the first one,
    /// closes it.
    testing::AssertionResult Says(const std::wstring& text, int id = 0);

    /// Whether the launcher ends with this code.
    testing::AssertionResult EndsWith(DWORD code);

    /// Presses Cancel in Ferry, and expects the launcher to end as Ferry does.
    testing::AssertionResult CancelEndsBoth();

private:
    std::unique_ptr<ChildProcess> launcher_;
    base::ProcessHandle ferry_;
    RemoteDialog dialog_;
};

}  // namespace ferry::e2e
