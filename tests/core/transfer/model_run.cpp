// One run on the model world, and the check that it did no harm.
#include "core/transfer/model_run.h"

#include <algorithm>
#include <set>

#include "base/case_order.h"
#include "base/utf16.h"

namespace ferry::transfer::model {
namespace {

constexpr std::wstring_view kSourceRoot = L"C:\\src\\";

bool IsBelow(std::wstring_view path, std::wstring_view folder) {
    return base::SmallLetters(path).starts_with(base::SmallLetters(folder));
}

bool MayOverwrite(const Transferred& transfer, std::uint32_t precision) {
    switch (transfer.Policy) {
        case 0:
            return IsNewerByOracle(transfer.SourceTime, transfer.OverwrittenTime, precision);
        case 1:
            return IsNewerByOracle(transfer.OverwrittenTime, transfer.SourceTime, precision);
        default:
            return transfer.Policy == 3 || transfer.Policy >= 7;
    }
}

/// Whether the file was to be left alone, or to be given another name, when something stood at its
/// target; then nothing from outside excuses that it was overwritten.
bool KeepsWhatItSaw(std::uint32_t policy) {
    return policy == 2 || policy == 4 || policy == 5 || policy == 6;
}

std::string AttributesAndContent(const Node& node) {
    return std::to_string(node.Attributes) + " " + node.Content;
}

std::wstring FolderOf(std::wstring_view path) {
    return base::SmallLetters(path.substr(0, path.rfind(L'\\')));
}

std::wstring NameOf(std::wstring_view path) {
    return base::SmallLetters(path.substr(path.rfind(L'\\') + 1));
}

/// Whether `path` or a folder above it is among the folded `places`.
bool IsAtOrBelowAny(const std::wstring& path, const std::set<std::wstring>& places) {
    const std::wstring folded = base::SmallLetters(path);
    for (std::size_t end = folded.find(L'\\'); end != std::wstring::npos; end = folded.find(L'\\', end + 1)) {
        if (places.contains(folded.substr(0, end)))
            return true;
    }
    return places.contains(folded);
}

}  // namespace

bool ModelRun::Run() {
    Shared.RunPolicy = Request.Settings.Policy;
    IndividualRun run(Request, {Files, Files, Files, Shell, Clock, Person, View});
    const bool finished = run.Run();
    Left = run.Left();
    return finished;
}

bool IsNewerByOracle(std::uint64_t later, std::uint64_t earlier, std::uint32_t precision) {
    if (precision != 1 && precision != 2)
        return later > earlier;
    const auto seconds = [](std::uint64_t time) { return static_cast<std::int64_t>(time / kSecond); };
    return seconds(later) - seconds(earlier) > static_cast<std::int64_t>(precision);
}

HarmCheck::HarmCheck(ModelRun& run, bool overlaps) : run_(run), overlaps_(overlaps) {
    run_.Shared.Files.ForEach([&](const std::wstring& path, const Node& node) {
        const bool inSource = IsBelow(path, kSourceRoot);
        const bool inDestination = IsBelow(path, run_.Request.Destination);
        if (!inSource && !inDestination && !node.IsFolder)
            outside_[path] = AttributesAndContent(node);
        else if (inSource && node.IsFolder)
            folders_.push_back(path);
        else if (inSource)
            sourceFiles_[path] = node.Content;
        else if (!node.IsFolder)
            destinationFiles_[path] = node.Content;
    });
    sourceLines_ = run_.Shared.Files.Snapshot(L"C:\\src");
}

std::vector<std::string> HarmCheck::Violations(bool finished) {
    violations_.clear();
    CheckContents();
    CheckOverwrites();
    CheckPlaces();
    CheckConsent();
    CheckOutside();
    CheckProgress(finished);
    CheckRemovedFolders();
    CheckHandedOverFolders();
    if (!overlaps_) {
        CheckCopiedSource();
        CheckSkippedFiles();
        CheckDestinationFiles();
        CheckFolders(finished);
    }
    return violations_;
}

void HarmCheck::CheckContents() {
    std::set<std::string> accounted = run_.Shared.Excused;
    run_.Shared.Files.ForEach([&](const std::wstring&, const Node& node) { accounted.insert(node.Content); });
    for (const Transferred& transfer : run_.Shared.Transfers) {
        if (transfer.Overwritten)
            accounted.insert(*transfer.Overwritten);
    }
    for (const std::string& content : run_.Shared.Written) {
        if (!accounted.contains(content))
            violations_.push_back("content lost: " + content);
    }
}

void HarmCheck::CheckOverwrites() {
    const World& world = run_.Shared;
    for (const Transferred& transfer : world.Transfers) {
        const bool isBound = KeepsWhatItSaw(transfer.Policy) && transfer.TargetWasSeen;
        const bool isDisturbed =
            world.DatesDisturbed || IsDisturbed(transfer.Source) || IsDisturbed(transfer.Target);
        const bool excused =
            transfer.PersonAgreed || (isDisturbed && !isBound) || WasHandedOver(transfer.Source);
        if (transfer.Overwritten && transfer.TargetWasHidden && !transfer.PersonAgreed &&
            !WasHandedOver(transfer.Source))
            Report("overwritten though nobody could look at it", transfer.Target);
        if (transfer.Overwritten && !excused && !MayOverwrite(transfer, run_.Request.Settings.TimeCmpType))
            Report("overwritten against policy " + std::to_string(transfer.Policy), transfer.Target);
    }
}

void HarmCheck::CheckPlaces() {
    for (const Transferred& transfer : run_.Shared.Transfers) {
        const std::vector<std::wstring> targets = TargetsOf(transfer.Source);
        const bool mayBeRenamed = (transfer.Flags & kFlagRenameOnCollision) != 0 ||
                                  (transfer.Policy == 4 && transfer.TargetWasSeen);
        if (targets.empty())
            Report("transferred though nobody asked for it", transfer.Source);
        if (WasHandedOver(transfer.Source))
            continue;
        const auto isItsFolder = [&](const auto& target) {
            return FolderOf(transfer.Target) == FolderOf(target);
        };
        if (std::ranges::none_of(targets, isItsFolder))
            Report("landed in another folder", transfer.Target);
        const auto isItsName = [&](const auto& target) { return NameOf(transfer.Target) == NameOf(target); };
        if (!mayBeRenamed && std::ranges::none_of(targets, isItsName))
            Report("landed under another name", transfer.Target);
    }
}

void HarmCheck::CheckConsent() {
    for (const Transferred& transfer : run_.Shared.Transfers) {
        if (transfer.WasDeclined)
            Report("transferred though the person refused", transfer.Source);
        const bool mustBeRenamed = transfer.Policy == 5 && transfer.TargetWasSeen;
        if (mustBeRenamed && !transfer.IsInRenamedPlace && !WasHandedOver(transfer.Source))
            Report("transferred without renaming what stood there", transfer.Target);
    }
    for (const std::wstring& path : run_.Shared.CallsTooLate)
        Report("still at work after the run was stopped", path);
}

void HarmCheck::CheckCopiedSource() {
    if (IsMove())
        return;
    const auto lines = run_.Shared.Files.Snapshot(L"C:\\src");
    for (const auto& [path, line] : sourceLines_) {
        const auto found = lines.find(path);
        if (!IsDisturbed(path) && (found == lines.end() || found->second != line))
            Report("changed at the source by a copy", path);
    }
    for (const auto& [path, line] : lines) {
        if (!IsDisturbed(path) && !sourceLines_.contains(path))
            Report("appeared at the source by a copy", path);
    }
}

void HarmCheck::CheckSkippedFiles() {
    std::set<std::wstring> moved;
    for (const Transferred& transfer : run_.Shared.Transfers) {
        if (!transfer.SourceStays)
            moved.insert(base::SmallLetters(transfer.Source));
    }
    const auto lines = run_.Shared.Files.Snapshot(L"C:\\src");
    for (const auto& [path, content] : sourceFiles_) {
        const Node* const node = run_.Shared.Files.At(path);
        const auto line = lines.find(path);
        const bool hasMoved = moved.contains(base::SmallLetters(path));
        if (!hasMoved && !IsDisturbed(path) && (line == lines.end() || line->second != sourceLines_.at(path)))
            Report("source file gone or changed though it was not moved", path);
        if (hasMoved && !IsDisturbed(path) && node != nullptr)
            Report("source file still there though it was moved", path);
    }
}

void HarmCheck::CheckDestinationFiles() {
    std::set<std::wstring> written;
    for (const Transferred& transfer : run_.Shared.Transfers)
        written.insert(base::SmallLetters(transfer.Target));
    for (const auto& [path, content] : destinationFiles_) {
        if (written.contains(base::SmallLetters(path)) || IsAtOrBelowAny(path, run_.Shared.RenamedAway) ||
            IsDisturbed(path))
            continue;
        const Node* const node = run_.Shared.Files.At(path);
        if (node == nullptr || node->Content != content)
            Report("destination file changed though nothing was transferred there", path);
    }
}

void HarmCheck::CheckFolders(bool finished) {
    const auto& removed = run_.Shared.RemovedFolders;
    if (!IsMove() && !removed.empty())
        Report("folder removed by a copy", removed.front());
    if (!finished && removed.size() != run_.View.FoldersRemovedAtRange)
        Report("folder removed by a run that was stopped", removed.back());
    for (const std::wstring& folder : folders_) {
        const auto isIt = [&](const auto& path) { return base::EqualsIgnoringCase(path, folder); };
        const bool wasRemoved = std::ranges::any_of(removed, isIt) || WasHandedOver(folder);
        if (!wasRemoved && !IsDisturbed(folder) && run_.Shared.Files.At(folder) == nullptr)
            Report("folder vanished", folder);
    }
}

void HarmCheck::CheckRemovedFolders() {
    std::set<std::wstring> removed;
    for (const std::wstring& folder : run_.Shared.RemovedFolders)
        removed.insert(base::SmallLetters(folder));
    for (const std::wstring& folder : run_.Shared.RemovedFolders) {
        if (!IsBelow(folder, kSourceRoot))
            Report("folder removed that was no source", folder);
        if (!HasCounterpart(folder, removed))
            Report("folder removed without a counterpart", folder);
    }
}

bool HarmCheck::HasCounterpart(const std::wstring& folder, const std::set<std::wstring>& removed) const {
    return std::ranges::any_of(TargetsOf(folder), [&](const std::wstring& target) {
        const Node* const counterpart = run_.Shared.Files.At(target);
        // A counterpart within a later source may have moved on; then it is judged in its turn.
        const bool movedOn = overlaps_ && removed.contains(base::SmallLetters(target)) &&
                             !base::EqualsIgnoringCase(target, folder);
        return movedOn || IsDisturbed(target) || IsAtOrBelowAny(target, run_.Shared.RenamedAway) ||
               (counterpart != nullptr && counterpart->IsFolder);
    });
}

void HarmCheck::CheckHandedOverFolders() {
    for (const std::wstring& folder : run_.Shared.FoldersHandedOver) {
        const bool wasHidden = IsAtOrBelowAny(folder, run_.Shared.HiddenAttributes) &&
                               IsAtOrBelowAny(folder, run_.Shared.HiddenItems);
        if (!IsDisturbed(folder) && !wasHidden)
            Report("folder handed over to the shell as if it were a file", folder);
    }
}

void HarmCheck::CheckProgress(bool finished) {
    for (std::size_t index = 0; index < run_.View.Ranges.size(); ++index) {
        const std::size_t range = run_.View.Ranges[index];
        const std::size_t steps = run_.View.Steps[index];
        const bool mustBeFull = finished || index + 1 < run_.View.Ranges.size();
        if (steps > range || (mustBeFull && steps != range))
            violations_.push_back("bar of " + std::to_string(range) + " made " + std::to_string(steps) +
                                  " steps");
    }
}

void HarmCheck::CheckOutside() {
    for (const auto& [path, before] : outside_) {
        const Node* const node = run_.Shared.Files.At(path);
        if (!IsDisturbed(path) && (node == nullptr || AttributesAndContent(*node) != before))
            Report("changed outside of source and destination", path);
    }
    // A name that the person gave stands beside what begins with the destination.
    const std::wstring& destination = run_.Request.Destination;
    const std::wstring folder = destination.substr(0, destination.rfind(L'\\') + 1);
    run_.Shared.Files.ForEach([&](const std::wstring& path, const Node& node) {
        if (!node.IsFolder && !IsBelow(path, kSourceRoot) && !IsBelow(path, folder) &&
            !outside_.contains(path) && !IsDisturbed(path))
            Report("appeared outside of source and destination", path);
    });
}

void HarmCheck::Report(const std::string& what, const std::wstring& path) {
    violations_.push_back(what + ": " + base::ToUtf8(path));
}

bool HarmCheck::IsDisturbed(const std::wstring& path) const {
    return IsAtOrBelowAny(path, run_.Shared.Disturbed);
}

bool HarmCheck::WasHandedOver(const std::wstring& path) const {
    return IsAtOrBelowAny(path, run_.Shared.FoldersHandedOver);
}

/// One for every source that `path` is, or lies below.
std::vector<std::wstring> HarmCheck::TargetsOf(const std::wstring& path) const {
    std::vector<std::wstring> targets;
    for (const std::wstring_view source : run_.Request.Sources) {
        if (base::EqualsIgnoringCase(path, source) || IsBelow(path, std::wstring(source) + L'\\'))
            targets.push_back(run_.Request.Destination + path.substr(source.rfind(L'\\') + 1));
    }
    return targets;
}

bool HarmCheck::IsMove() const {
    return run_.Request.What == Operation::Move;
}

}  // namespace ferry::transfer::model
