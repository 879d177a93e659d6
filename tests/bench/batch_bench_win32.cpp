// How long a batch of 2,000 sources takes, against the same calls of the shell written by hand.
//
// Each round copies into a folder of its own. Prints one line of JSON and ends with 1 when the goal
// is missed.
#include <windows.h>
// After windows.h, which the shell's headers build on.
#include <shobjidl.h>

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

#include "base/com_ptr_win32.h"
#include "base/text_list.h"
#include "comparison.h"
#include "e2e/driver/temp_tree.h"
#include "transfer/batch_run.h"
#include "transfer/shell_operations_win32.h"

namespace {

using ferry::base::ComPtr;
using ferry::base::TextList;
using ferry::e2e::TempTree;

constexpr std::size_t kSourceCount = 2000;
constexpr int kRounds = 5;
constexpr double kGoal = 1.05;

/// The calls that any program makes for a batch: one operation, two shell items per source.
void CopyByHand(const std::vector<std::wstring>& sources, const std::wstring& destination) {
    ComPtr<IFileOperation> operation;
    if (FAILED(CoCreateInstance(CLSID_FileOperation, nullptr, CLSCTX_ALL, IID_PPV_ARGS(operation.Put()))))
        return;
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
    operation->PerformOperations();
}

void CopyByFerry(const TextList& sources, const std::wstring& destination) {
    ferry::transfer::WindowsShellOperations shell(nullptr);
    shell.TransferBatch(sources, destination, ferry::transfer::kFunctionCopy, ferry::transfer::kBatchFlags);
}

std::size_t CountFiles(const std::wstring& folder) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((folder + L"*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return 0;
    std::size_t count = 0;
    do {
        count += (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 ? 1 : 0;
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return count;
}

/// Times copies by turns and checks that each made every file.
class BatchRace {
public:
    BatchRace() {
        for (std::size_t i = 0; i < kSourceCount; ++i) {
            plain_.push_back(tree_.WriteFile(L"source\\file " + std::to_wstring(i) + L".txt", "bench"));
            list_.Append(plain_.back());
        }
    }

    bool Run(ferry::bench::Comparison& comparison) {
        for (int round = 0; round < kWarmUpRounds + kRounds; ++round) {
            double ferry = 0;
            double bare = 0;
            const auto runFerry = [&] { return Time(true, ferry); };
            const auto runBare = [&] { return Time(false, bare); };
            // Whoever comes second finds warmer caches, so that both are second equally often.
            const bool isDone = round % 2 == 0 ? runFerry() && runBare() : runBare() && runFerry();
            if (!isDone)
                return false;
            if (round >= kWarmUpRounds) {
                comparison.Ferry.push_back(ferry);
                comparison.Reference.push_back(bare);
            }
        }
        return true;
    }

private:
    bool Time(bool byFerry, double& spent) {
        const std::wstring folder = tree_.MakeFolder(L"target") + L"\\";
        spent = ferry::bench::MillisecondsOf([&] {
            if (byFerry)
                CopyByFerry(list_, folder);
            else
                CopyByHand(plain_, folder);
        });
        const std::size_t copied = CountFiles(folder);
        ferry::e2e::RemoveAll(tree_.Path(L"target"));
        if (copied != kSourceCount)
            std::fprintf(stderr, "%s copied %zu files\n", byFerry ? "the program" : "the bare calls", copied);
        return copied == kSourceCount;
    }

    TempTree tree_;
    std::vector<std::wstring> plain_;
    TextList list_;
};

}  // namespace

int main() {
    const ferry::base::ComApartment apartment;
    ferry::bench::Comparison comparison{"batch of 2000 sources, against bare shell calls", kGoal, {}, {}};
    BatchRace race;
    return race.Run(comparison) && Report(comparison) ? 0 : 1;
}
