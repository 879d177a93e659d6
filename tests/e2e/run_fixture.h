// An item-by-item run that asks, and the answers.
#pragma once

#include "base/utf16.h"
#include "e2e/driver/run_dialogs.h"
#include "e2e/driver/surroundings.h"
#include "e2e/fixture.h"

namespace ferry::e2e {

constexpr int kRenameIncoming = 4;
constexpr int kRenameExisting = 5;
constexpr int kAskEach = 7;

/// Files under 元 collide with files under 先, or not, as a test wishes.
class AskingRun : public TransferTest {
protected:
    /// A run that still asks is told to stop asking, file by file, so that it ends by itself.
    void TearDown() override {
        if (HasRun()) {
            EXPECT_TRUE(WaitUntil([this] { return !SkipWhatIsAsked(); })) << "the run goes on";
        }
    }

    /// What the source file of this name holds, and what the file that it meets holds.
    static std::string Incoming(const std::wstring& name) { return "incoming " + base::ToUtf8(name); }
    static std::string Existing(const std::wstring& name) { return "existing " + base::ToUtf8(name); }

    /// A source file that meets a file of its name at the destination.
    std::wstring Colliding(const std::wstring& name) const {
        Tree().WriteFile(L"先\\" + name, Existing(name));
        return Free(name);
    }

    /// A source file whose name is free at the destination.
    std::wstring Free(const std::wstring& name) const {
        return Tree().WriteFile(L"元\\" + name, Incoming(name));
    }

    /// Starts the run into 先, or into another folder of the tree.
    testing::AssertionResult Start(const std::vector<std::wstring>& items, int policy,
                                   std::vector<std::wstring> switches = {},
                                   const std::wstring& destination = L"先") {
        WriteNumber(kProgramKey, L"Mode", 1);
        WriteNumber(kProgramKey, L"Name", static_cast<DWORD>(policy));
        RunPlan plan = Plan(items);
        plan.Switches = std::move(switches);
        if (const auto opened = Open(plan); !opened)
            return opened;
        Dialog().SetDestination(Tree().Path(destination));
        Dialog().Click(kStart);
        return testing::AssertionSuccess();
    }

    RemoteDialog Rename() { return WaitForRunDialog(Run().FerryId(), RunDialog::Rename); }
    RemoteDialog Collision() { return WaitForRunDialog(Run().FerryId(), RunDialog::Collision); }
    RemoteDialog ProgressWindow() { return WaitForRunDialog(Run().FerryId(), RunDialog::Progress); }

    /// Whether the run ended by itself, asking nothing more.
    testing::AssertionResult Ends() { return EndsWell(); }

    /// The file's content below 先; empty when it is not there.
    std::string At(const std::wstring& name) const { return ReadBytes(Tree().Path(L"先\\" + name)); }

    /// The names in a folder of the tree, one behind the other.
    std::wstring NamesBelow(const std::wstring& folder) const {
        std::wstring names;
        for (const auto& entry : ReadTree(Tree().Path(folder))) {
            names += (names.empty() ? L"" : L" ") + entry.first;
        }
        return names;
    }

private:
    /// Skips the file that is asked about. False when the run is over.
    bool SkipWhatIsAsked() {
        const DWORD ferry = Run().FerryId();
        for (const RunDialog kind : {RunDialog::Collision, RunDialog::Rename}) {
            if (const RemoteDialog question = FindRunDialog(ferry, kind); question.IsOpen())
                PostMessageW(question.Window(), WM_COMMAND, IDCANCEL, 0);
        }
        return Run().IsRunning() && !IsWindowVisible(Dialog().Window());
    }
};

}  // namespace ferry::e2e
