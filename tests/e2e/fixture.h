// What every end-to-end test has: a fresh user, a folder of its own and a Ferry to start.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "e2e/driver/ferry_run.h"
#include "e2e/driver/file_op_log.h"
#include "e2e/driver/keys.h"
#include "e2e/driver/message_box.h"
#include "e2e/driver/poll.h"
#include "e2e/driver/settings_guard.h"
#include "e2e/driver/temp_tree.h"
#include "e2e/driver/tree_snapshot.h"

namespace ferry::e2e {

class FerryTest : public testing::Test {
protected:
    FerryTest();
    ~FerryTest() override;

    /// A plan for a start through the host with these items and tab folders.
    RunPlan Plan(std::vector<std::wstring> items, std::vector<std::wstring> tabs = {}) const;

    /// Starts Ferry and waits for its dialog, which Dialog() then is.
    testing::AssertionResult Open(const RunPlan& plan);

    FerryRun& Run() { return *run_; }
    const RemoteDialog& Dialog() const { return dialog_; }

    /// Writes the destination, clicks "開始" and waits for the end of the process.
    testing::AssertionResult Transfer(const std::wstring& destination);

    /// Clicks "開始", expects a message box with exactly this text, closes it and expects the
    /// dialog to be still there.
    testing::AssertionResult StartIsRefusedWith(const std::wstring& text);

    /// The lines of the file-operation service's log.
    std::vector<FileOpLine> FileOps() const { return ReadFileOpLog(fileOpLog_); }

    const TempTree& Tree() const { return tree_; }

private:
    SettingsGuard settings_;
    TempTree tree_;
    std::wstring fileOpLog_;
    std::unique_ptr<FerryRun> run_;
    RemoteDialog dialog_;
};

/// Whether the dialog answers, takes a destination and ends properly by Cancel.
testing::AssertionResult IsAliveAndUsable(FerryRun& run, const RemoteDialog& dialog);

}  // namespace ferry::e2e
