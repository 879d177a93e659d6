// How much memory an item-by-item run keeps for each of its items at its peak, against twice the
// text of the items' paths and 64 bytes.
//
// Prints one line of JSON per size and ends with 1 when one could not be measured.
#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>

#include "comparison.h"
#include "transfer/individual_run.h"

namespace {

std::size_t liveBytes = 0;
std::size_t peakBytes = 0;

// Each block bears its size in front of it, in a space that keeps the alignment.
constexpr std::size_t kHeader = alignof(std::max_align_t);

void* Allocate(std::size_t size) {
    void* const block = std::malloc(size + kHeader);
    if (block == nullptr)
        throw std::bad_alloc();
    *static_cast<std::size_t*>(block) = size;
    liveBytes += size;
    peakBytes = std::max(peakBytes, liveBytes);
    return static_cast<char*>(block) + kHeader;
}

void Free(void* memory) noexcept {
    if (memory == nullptr)
        return;
    void* const block = static_cast<char*>(memory) - kHeader;
    liveBytes -= *static_cast<std::size_t*>(block);
    std::free(block);
}

}  // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void* memory) noexcept {
    Free(memory);
}
void operator delete[](void* memory) noexcept {
    Free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    Free(memory);
}

namespace {

using namespace ferry;
using namespace ferry::transfer;

constexpr std::wstring_view kTop = L"C:\\Users\\somebody\\Documents\\top";
constexpr std::size_t kFolders = 500;
constexpr std::size_t kFixedBytes = 64;

/// A tree of one level that is nowhere: its names are made when they are asked for.
class ThinAirFileSystem final : public files::FileInfo,
                                public files::FolderSearch,
                                public files::FileChanges {
public:
    explicit ThinAirFileSystem(std::size_t filesInFolder) : filesInFolder_(filesInFolder) {}

    std::uint32_t Attributes(std::wstring_view) override { return files::kAttributeDirectory; }
    std::optional<files::FoundItem> Find(std::wstring_view) override { return std::nullopt; }
    std::uint64_t Size(std::wstring_view) override { return 4096; }
    bool IsRoot(std::wstring_view) override { return false; }
    std::optional<files::ItemId> Identity(std::wstring_view) override { return std::nullopt; }

    std::uint32_t Search(std::wstring_view pattern,
                         const std::function<bool(const files::Match&)>& visit) override {
        const std::wstring_view folder = pattern.substr(0, pattern.size() - 2);
        const bool isTop = folder == kTop;
        const std::uint32_t attributes = isTop ? files::kAttributeDirectory : 0;
        std::wstring name;
        for (std::size_t index = 0; index < (isTop ? kFolders : filesInFolder_); ++index) {
            name = isTop ? L"folder " : L"some document ";
            name += std::to_wstring(index);
            visit({name, attributes, {}});
            ++items_;
            // Its path: the folder's, a separator and the name.
            pathBytes_ += (folder.size() + 1 + name.size()) * sizeof(wchar_t);
        }
        return 0;
    }

    bool SetAttributes(std::wstring_view, std::uint32_t) override { return true; }
    int MakeFolder(std::wstring_view) override { return files::kFolderMade; }
    bool RemoveFolder(std::wstring_view) override { return true; }
    bool Rename(std::wstring_view, std::wstring_view) override { return true; }
    void LetOthersClose() override {}

    std::size_t Items() const noexcept { return items_; }
    std::size_t PathBytes() const noexcept { return pathBytes_; }

private:
    std::size_t filesInFolder_;
    std::size_t items_ = 0;
    std::size_t pathBytes_ = 0;
};

class WillingShell final : public ShellOperations {
public:
    ShellOutcome Transfer(const ShellTransfer&) override { return {}; }
    BatchOutcome TransferAll(const ferry::base::TextList&, const ShellTransfer&) override { return {}; }
    void NotifyFolderMade(std::wstring_view) override {}
};

class NoClock final : public calendar::Clock {
public:
    calendar::CalendarFields Now() override { return {}; }
    std::optional<calendar::CalendarFields> LocalTime(std::uint64_t) override { return std::nullopt; }
    double LocalDate(std::uint64_t) override { return 0; }
};

class NoProgress final : public Progress {
public:
    void SetRange(std::uint32_t) override {}
    bool DrainAndTakeCancel(Pause) override { return false; }
    void Step() override {}
    void ShowItem(std::wstring_view) override {}
    void ShowNow() override {}
};

class NobodyThere final : public Questions {
public:
    CollisionAnswer AskCollision(std::wstring_view) override { return {}; }
    NameAnswer AskNewName(RenameKind, std::wstring_view) override { return {}; }
    void ShowError(std::uint16_t) override {}
};

/// Moves a tree of 500 folders and measures. False when the run did not end.
bool MeasureMove(std::size_t filesInFolder) {
    const std::string name = "memory of a run of " + std::to_string(kFolders * (filesInFolder + 1)) +
                             " items, per item, against twice its path and 64";
    ThinAirFileSystem files(filesInFolder);
    WillingShell shell;
    NoClock clock;
    NobodyThere person;
    NoProgress progress;
    TransferRequest request;
    request.Sources.Append(kTop);
    request.Destination = L"D:\\backup\\";
    request.What = Operation::Move;
    const std::size_t before = liveBytes;
    peakBytes = liveBytes;
    if (!IndividualRun(request, {files, files, files, shell, clock, person, progress}).Run() ||
        files.Items() != kFolders * (filesInFolder + 1)) {
        std::fprintf(stderr, "could not measure: %s\n", name.c_str());
        return false;
    }
    const auto items = static_cast<double>(files.Items());
    const double perItem = static_cast<double>(peakBytes - before) / items;
    const double allowed = 2 * static_cast<double>(files.PathBytes()) / items + kFixedBytes;
    ferry::bench::ReportExact(name, 1.0, "B", perItem, allowed);
    return true;
}

bool MeasureMoves() {
    bool isMeasured = true;
    for (const std::size_t filesInFolder : {std::size_t{20}, std::size_t{200}, std::size_t{2000}})
        isMeasured = MeasureMove(filesInFolder) && isMeasured;
    return isMeasured;
}

}  // namespace

int main() {
    return ferry::bench::ResultOf(MeasureMoves);
}
