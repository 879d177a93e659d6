// How long a batch of 2,000 sources takes, against the same calls of the shell written by hand.
//
// Needs the file-operation service of the tests. Prints one line of JSON per comparison and ends
// with 1 when a goal is missed.
#include <windows.h>
// After windows.h, which the shell's headers build on.
#include <shobjidl.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "base/com_ptr_win32.h"
#include "base/text_list.h"
#include "comparison.h"
#include "e2e/driver/contents.h"
#include "e2e/driver/surroundings.h"
#include "e2e/driver/temp_tree.h"
#include "fileop/results.h"
#include "transfer/batch_run.h"
#include "transfer/shell_operations_win32.h"

namespace {

using ferry::base::ComPtr;
using ferry::base::TextList;
using ferry::bench::Comparison;
using ferry::e2e::TempTree;

constexpr std::size_t kSourceCount = 2000;
constexpr double kGoal = 1.05;

/// What of a batch is timed. The copying itself is the same for both sides and takes nearly all of
/// the time, so the calls before it are also timed alone: the file-operation service of the tests
/// then stops before the first item.
struct Stage {
    const char* Name;
    const wchar_t* Faults;  ///< The service's plan of faults.
    int Rounds;
    std::int32_t Result;  ///< What performing the operation has to answer.
    std::size_t Copied;   ///< How many files it has to leave in the destination.
};

constexpr Stage kStages[] = {
    {"queue 2000 sources, against bare shell calls", L"abort@*", 8, ferry::fileop::kCancelled, 0},
    {"batch of 2000 sources, against bare shell calls", L"", 3, S_OK, kSourceCount},
};

/// The calls that any program makes for a batch: one operation, two shell items per source.
HRESULT CopyByHand(const std::vector<std::wstring>& sources, const std::wstring& destination) {
    ComPtr<IFileOperation> operation;
    const HRESULT made =
        CoCreateInstance(CLSID_FileOperation, nullptr, CLSCTX_ALL, IID_PPV_ARGS(operation.Put()));
    if (FAILED(made))
        return made;
    for (const std::wstring& source : sources) {
        ComPtr<IShellItem> item;
        ComPtr<IShellItem> folder;
        if (SUCCEEDED(SHCreateItemFromParsingName(source.c_str(), nullptr, IID_PPV_ARGS(item.Put()))) &&
            SUCCEEDED(
                SHCreateItemFromParsingName(destination.c_str(), nullptr, IID_PPV_ARGS(folder.Put())))) {
            operation->CopyItems(item.Get(), folder.Get());
        }
    }
    operation->SetOwnerWindow(GetDesktopWindow());
    operation->SetOperationFlags(ferry::transfer::kFlagAllowUndo | ferry::transfer::kBatchFlags);
    return operation->PerformOperations();
}

std::int32_t CopyByFerry(const TextList& sources, const std::wstring& destination) {
    ferry::transfer::WindowsShellOperations shell(nullptr);
    return shell.TransferBatch(sources, destination, ferry::transfer::kFunctionCopy,
                               ferry::transfer::kBatchFlags);
}

/// Lets both sides do the same batch by turns, each time into a new folder.
class BatchRace {
public:
    BatchRace() {
        for (std::size_t i = 0; i < kSourceCount; ++i) {
            plain_.push_back(tree_.WriteFile(L"source\\file " + std::to_wstring(i) + L".txt", "bench"));
            list_.Append(plain_.back());
        }
    }

    /// Measures one stage and reports it. False when the goal is missed or a batch went wrong.
    bool Run(const Stage& stage) {
        ferry::e2e::SetVariable(L"FERRY_FILEOP_FAULTS", stage.Faults);
        Comparison comparison{stage.Name, kGoal, {}, {}};
        return Race(
                   comparison, {0, stage.Rounds}, [&] { return Time(stage, true); },
                   [&] { return Time(stage, false); }) &&
               Report(comparison);
    }

private:
    /// Nothing when the batch went wrong.
    std::optional<double> Time(const Stage& stage, bool byFerry) const {
        const std::wstring folder = tree_.MakeFolder(L"target") + L"\\";
        std::int32_t result = 0;
        const double spent = ferry::bench::MillisecondsOf([&] {
            result =
                byFerry ? CopyByFerry(list_, folder) : static_cast<std::int32_t>(CopyByHand(plain_, folder));
        });
        const std::size_t copied = ferry::e2e::FilesBelow(tree_.Path(L"target")).size();
        ferry::e2e::RemoveAll(tree_.Path(L"target"));
        if (result == stage.Result && copied == stage.Copied)
            return spent;
        std::fprintf(stderr, "%s: %s answered 0x%lx and left %zu files\n", stage.Name,
                     byFerry ? "the program" : "the bare calls", static_cast<unsigned long>(result), copied);
        return std::nullopt;
    }

    TempTree tree_;
    std::vector<std::wstring> plain_;
    TextList list_;
};

}  // namespace

int main() {
    const ferry::base::ComApartment apartment;
    BatchRace race;
    bool isGood = true;
    for (const Stage& stage : kStages) {
        isGood = race.Run(stage) && isGood;
    }
    return isGood ? 0 : 1;
}
