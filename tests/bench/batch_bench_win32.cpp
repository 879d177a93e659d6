// How long a batch of 500 sources takes, against the same calls of the shell with nothing kept.
//
// Needs the file-operation service of the tests. Prints one line of JSON per comparison and ends
// with 1 when one could not be measured.
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
#include "bench_ground_win32.h"
#include "comparison.h"
#include "desktop/shell_operations_win32.h"
#include "e2e/driver/surroundings.h"
#include "fileop/results.h"
#include "files/disk_win32.h"
#include "transfer/batch_run.h"

namespace {

using ferry::base::ComPtr;
using ferry::base::TextList;
using ferry::bench::TreeSum;

constexpr const ferry::bench::TreeShape& kSources = ferry::bench::kBatchTree;

/// What of a batch is timed. The copying itself is the same for both sides and takes nearly all of
/// the time, so the calls before it are also timed alone: the file-operation service of the tests
/// then stops before the first item.
struct Stage {
    const char* Name;
    const wchar_t* Faults;  ///< The service's plan of faults.
    std::int32_t Result;    ///< What performing the operation has to answer.
    TreeSum Copied;         ///< What it has to leave in the destination.
    double Goal;
};

const Stage kStages[] = {
    {"queue 500 sources, against naive calls", L"abort@*", ferry::fileop::kCancelled, {}, 0.75},
    {"batch of 500 sources, against naive calls", L"", S_OK, SumOf(kSources), 1.05},
};

/// The calls that a program makes for a batch without keeping anything: one operation, two shell items per
/// source.
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
    operation->SetOperationFlags(ferry::transfer::kBatchFlags);
    return operation->PerformOperations();
}

std::int32_t CopyByFerry(const TextList& sources, const std::wstring& destination) {
    ferry::files::DiskInfo info;
    ferry::desktop::WindowsShellOperations shell(nullptr, info);
    ferry::transfer::ShellTransfer batch;
    batch.TargetFolder = destination;
    batch.Flags = ferry::transfer::kBatchFlags;
    return shell.TransferAll(sources, batch).Code;
}

/// Lets both sides do the same batch by turns, each time into a new folder.
class BatchRace {
public:
    BatchRace() {
        const std::wstring top = ground_.Tree(kSources);
        for (std::size_t folder = 0; folder < kSources.Folders; ++folder) {
            for (std::size_t file = 0; file < kSources.FilesInFolder; ++file) {
                plain_.push_back(top + L'\\' + FilePath(kSources, folder, file));
                list_.Append(plain_.back());
            }
        }
    }

    /// Measures one stage. False when a batch went wrong.
    bool Run(const Stage& stage) {
        ferry::e2e::SetVariable(L"FERRY_FILEOP_FAULTS", stage.Faults);
        return ferry::bench::Compare({[&] { return Time(stage, true); }, [&] { return Time(stage, false); }},
                                     {{stage.Name, 0, 1, stage.Goal}}, {.WarmUpRounds = 0});
    }

private:
    /// Nothing when the batch went wrong.
    std::optional<double> Time(const Stage& stage, bool byFerry) {
        const std::wstring folder = ground_.NewFolder();
        std::int32_t result = 0;
        const double spent = ferry::bench::MillisecondsOf([&] {
            result =
                byFerry ? CopyByFerry(list_, folder) : static_cast<std::int32_t>(CopyByHand(plain_, folder));
        });
        const TreeSum copied = ferry::bench::SumBelow(folder);
        if (result == stage.Result && copied == stage.Copied)
            return spent;
        std::fprintf(stderr, "%s: %s answered 0x%lx and left %zu files of %llu bytes\n", stage.Name,
                     byFerry ? "the program" : "the bare calls", static_cast<unsigned long>(result),
                     copied.Files, static_cast<unsigned long long>(copied.Bytes));
        return std::nullopt;
    }

    ferry::bench::BenchGround ground_;
    std::vector<std::wstring> plain_;
    TextList list_;
};

bool MeasureStages() {
    const ferry::base::ComApartment apartment;
    BatchRace race;
    bool isMeasured = true;
    for (const Stage& stage : kStages) {
        isMeasured = race.Run(stage) && isMeasured;
    }
    return isMeasured;
}

}  // namespace

int main() {
    return ferry::bench::ResultOf(MeasureStages);
}
