// What every end-to-end test has: a fresh user, a folder of its own and a Ferry to start.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "e2e/driver/ask.h"
#include "e2e/driver/ferry_run.h"
#include "e2e/driver/file_op_log.h"
#include "e2e/driver/keys.h"
#include "e2e/driver/message_box.h"
#include "e2e/driver/settings_guard.h"
#include "e2e/driver/temp_tree.h"
#include "e2e/driver/tree_snapshot.h"
#include "support/poll_win32.h"

namespace ferry::e2e {

using test::kPatienceMs;
using test::WaitUntil;

class FerryTest : public testing::Test {
protected:
    FerryTest();
    ~FerryTest() override;

    /// A plan for a start through the host with these items and tab folders.
    RunPlan Plan(std::vector<std::wstring> items, std::vector<std::wstring> tabs = {}) const;

    /// A plan for a Ferry that no host starts.
    RunPlan PlanWithoutHost(std::vector<std::wstring> switches = {}) const;

    /// Starts Ferry and waits for its dialog, which Dialog() then is.
    testing::AssertionResult Open(const RunPlan& plan);

    /// The same for one item, which is not there, and these switches and tab folders.
    testing::AssertionResult OpenWith(std::vector<std::wstring> switches,
                                      std::vector<std::wstring> tabs = {L"D:\\a", L"D:\\b", L"D:\\c"});

    /// The same for a Ferry that no host starts.
    testing::AssertionResult OpenWithoutHost(std::vector<std::wstring> switches = {});

    bool HasRun() const { return run_ != nullptr; }
    FerryRun& Run() { return *run_; }
    const RemoteDialog& Dialog() const { return dialog_; }

    /// Sends WM_COPYDATA to the dialog, as a host does. False when no answer came.
    bool Send(std::uint64_t tag, std::span<const std::byte> bytes) const;

    /// What the dialog answers to it; nothing when no answer came.
    std::optional<LRESULT> AnswerTo(std::uint64_t tag, std::span<const std::byte> bytes) const;

    /// Sends a block with these items and tab folders.
    bool SendBlock(std::vector<std::wstring> items, std::vector<std::wstring> tabs) const;

    /// The bytes of such a block.
    static std::vector<std::byte> BlockBytes(std::vector<std::wstring> items, std::vector<std::wstring> tabs);

    /// Drops `paths` on the dialog.
    bool Drop(const std::vector<std::wstring>& paths) const;

    /// Waits until the destination field shows `text`.
    bool DestinationBecomes(const std::wstring& text) const {
        return WaitUntil([&] { return dialog_.Destination() == text; });
    }

    /// Whether Ferry ends by itself within `timeoutMs`, with exit code 0. When a test is over, a Ferry that
    /// still runs is cancelled, and every Ferry of the test must have ended so, but for those that the test
    /// ended hard.
    testing::AssertionResult EndsWell(int timeoutMs = kPatienceMs);

    /// The same for a run that left something behind: its report is closed, and `list` is what it named.
    testing::AssertionResult EndsWithReport(std::wstring& list);

    /// The same once Cancel is pressed.
    testing::AssertionResult CancelEndsWell();

    /// Whether `condition` still holds once the dialog has handled all keys and messages.
    template <class Condition>
    bool StillHolds(Condition condition) const {
        return HasHandledAll(dialog_.Window()) && condition();
    }

    /// Writes the destination, clicks "開始" and waits for the end of the process.
    testing::AssertionResult Transfer(const std::wstring& destination);

    /// Clicks "開始", expects a message box with exactly this text, closes it and expects the
    /// dialog to be still there.
    testing::AssertionResult StartIsRefusedWith(const std::wstring& text);

    /// The lines of the file-operation service's log.
    std::vector<FileOpLine> FileOps() const { return ReadFileOpLog(fileOpLog_); }

    const TempTree& Tree() const { return tree_; }

private:
    void StartRun(const RunPlan& plan);

    SettingsGuard settings_;
    TempTree tree_;
    std::wstring fileOpLog_;
    std::unique_ptr<FerryRun> run_;
    RemoteDialog dialog_;
};

/// The collision policy "overwrite unconditionally".
inline constexpr DWORD kOverwrite = 3;

/// The name of a case that says whether it moves.
inline std::string NameOfOperation(const testing::TestParamInfo<bool>& isMove) {
    return isMove.param ? "Move" : "Copy";
}

/// Tests that read the file-operation service's log, plan its faults or know its windows. They are skipped
/// where it is not registered.
class TransferTest : public FerryTest {
protected:
    void SetUp() override;
};

/// Whether the dialog answers, takes a destination and ends properly by Cancel.
testing::AssertionResult IsAliveAndUsable(FerryRun& run, const RemoteDialog& dialog);

}  // namespace ferry::e2e
