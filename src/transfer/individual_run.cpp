// The item-by-item run: walks the sources, makes folders, lets the item engine judge each file.
#include "transfer/individual_run.h"

#include <optional>

#include "base/case_order.h"
#include "paths/path_grammar.h"

namespace ferry::transfer {
namespace {

// The range message of a progress bar has 16 bits for the count.
constexpr std::size_t kProgressModulus = 65536;

/// Where in `source` the part starts that the destination repeats: after the last backslash. A
/// path without any is taken apart at its last slash or at its drive.
std::size_t KeptPartStart(std::wstring_view source) {
    if (source.find(L'\\') != std::wstring_view::npos)
        return paths::ParentWithSeparator(source).size();
    const std::size_t end = source.find_last_of(L"/:");
    return end == std::wstring_view::npos ? 0 : end + 1;
}

}  // namespace

IndividualRun::IndividualRun(const TransferRequest& request, const RunPorts& ports)
    : request_(request),
      ports_(ports),
      engine_(ports, request.What, request.Settings.TimeCmpType, leftovers_),
      policy_(PolicyOf(request.Settings.Policy)) {}

bool IndividualRun::Run() {
    for (const std::wstring_view source : request_.Sources) {
        // A folder may come with its separator; it is the same folder without.
        if (!TransferSource(paths::StripTrailingSeparator(source)))
            return false;
    }
    return true;
}

bool IndividualRun::TransferSource(std::wstring_view source) {
    keptPartStart_ = KeptPartStart(source);
    place_ = {};
    if (!IsSourceFolder(source)) {
        // Nothing to name at the destination; the shell takes an empty path for the desktop.
        if (keptPartStart_ == source.size()) {
            leftovers_.CountItem();
            leftovers_.Add(source, LeftReason::NoSourceItem, 0);
            return true;
        }
        ports_.View.SetRange(1);
        return TransferFile(source);
    }
    ports_.View.ShowNow();
    const SourceListing listing = ListSourceFolder(ports_.Search, ports_.Info, source, [this] {
        return !ports_.View.DrainAndTakeCancel(Pause::Listing);
    });
    for (const Leftover& left : listing.Left)
        leftovers_.Add(left.Path, left.Why, left.Code);
    if (listing.IsStopped)
        return false;
    const std::size_t count = listing.Folders.Size() + listing.Files.Size();
    ports_.View.SetRange(static_cast<std::uint32_t>(count % kProgressModulus));
    for (const std::wstring_view folder : listing.Folders) {
        if (!TransferFolder(folder))
            return false;
    }
    place_ = {};
    for (const std::wstring_view file : listing.Files) {
        if (!TransferFile(file))
            return false;
    }
    if (request_.What == Operation::Move)
        RemoveEmptiedFolders(listing.Folders);
    return true;
}

bool IndividualRun::IsSourceFolder(std::wstring_view source) {
    const std::uint32_t attributes = ports_.Info.Attributes(source);
    if (attributes != files::kInvalidAttributes)
        return files::IsFolder(attributes);
    // The shell would take a folder as a whole, past every policy; a search has the last word.
    const std::optional<files::FoundItem> found = ports_.Info.Find(source);
    return found && files::IsFolder(found->Attributes);
}

bool IndividualRun::TransferFolder(std::wstring_view folder) {
    if (!BeginItem(folder))
        return false;
    const std::wstring target = TargetOf(folder);
    // What a drive root holds goes straight into the destination, which exists and keeps its
    // attributes.
    if (HasKeptPart(folder))
        MakeTargetFolder(folder, target);
    ports_.View.ShowItem(paths::LastComponent(target));
    return true;
}

bool IndividualRun::TransferFile(std::wstring_view source) {
    if (!BeginItem(source))
        return false;
    const std::wstring target = TargetOf(source);
    const std::wstring_view name = paths::LastComponent(target);
    const Item item{source, target, ports_.Info.Find(target)};
    CollisionPolicy policy = policy_;
    if (item.IsSeen() && policy == CollisionPolicy::AskEach) {
        const CollisionAnswer answer = ports_.Person.AskCollision(name);
        if (answer.Choice == CollisionChoice::StopRun)
            return false;
        if (answer.Choice == CollisionChoice::SkipItem)
            return true;
        policy = answer.Policy;
        if (answer.Choice == CollisionChoice::ThisAndLater)
            policy_ = policy;
    }
    if (engine_.Handle(item, policy) == ItemResult::Stop)
        return false;
    ports_.View.ShowItem(name);
    return true;
}

bool IndividualRun::BeginItem(std::wstring_view path) {
    if (ports_.View.DrainAndTakeCancel(Pause::Item))
        return false;
    ports_.View.Step();
    leftovers_.CountItem();
    // Nobody knows how long the first item of a place takes: a medium wakes up, a server is asked.
    const std::wstring_view place = paths::ParentWithSeparator(path);
    if (place != place_)
        ports_.View.ShowNow();
    place_ = place;
    return true;
}

void IndividualRun::MakeTargetFolder(std::wstring_view source, std::wstring_view target) {
    // A folder made just now is left as it is; any other result, an existing folder above all,
    // makes the target look like the source.
    const int made = ports_.Changes.MakeFolder(target);
    if (made == files::kFolderMade)
        return;
    ports_.Shell.NotifyFolderMade(target);
    const std::uint32_t attributes = ports_.Info.Attributes(source);
    if (attributes != files::kInvalidAttributes)
        ports_.Changes.SetAttributes(target, attributes);
    // A file that stands there counts as existing, too; and a folder that stands there is one by any number.
    if (!files::IsFolder(ports_.Info.Attributes(target)))
        leftovers_.Add(source, LeftReason::FolderNotMade, static_cast<std::uint32_t>(made));
}

void IndividualRun::RemoveEmptiedFolders(const base::TextList& folders) {
    if (RemoveWhatIsEmpty(folders))
        return;
    ports_.Changes.LetOthersClose();
    RemoveWhatIsEmpty(folders);
}

/// False when one stayed although it is empty: somebody holds it.
bool IndividualRun::RemoveWhatIsEmpty(const base::TextList& folders) {
    bool isHeld = false;
    for (std::size_t index = folders.Size(); index > 0; --index) {
        const std::wstring_view folder = folders[index - 1];
        // The plain attributes lift the read-only bit, which would keep the folder.
        if (HasMoved(folder) && ports_.Changes.SetAttributes(folder, files::kAttributeDirectory) &&
            !ports_.Changes.RemoveFolder(folder))
            isHeld = isHeld || IsEmpty(folder);
    }
    return !isHeld;
}

bool IndividualRun::IsEmpty(std::wstring_view folder) {
    bool hasEntry = false;
    const std::uint32_t error = files::ForEachEntry(ports_.Search, folder, [&](const files::Match&) {
        hasEntry = true;
        return false;
    });
    return error == 0 && !hasEntry;
}

bool IndividualRun::HasMoved(std::wstring_view folder) {
    if (!HasKeptPart(folder))
        return false;
    const std::wstring target = TargetOf(folder);
    // An empty folder that was moved onto itself, or whose counterpart could not be made, would
    // be gone from both places.
    return files::IsFolder(ports_.Info.Attributes(target)) && !IsSameFolder(folder, target);
}

/// Whether both lead to one folder. Names say little: dots, prefixes, other drives and shares lead there,
/// too.
bool IndividualRun::IsSameFolder(std::wstring_view one, std::wstring_view other) {
    if (base::EqualsIgnoringCase(one, other))
        return true;
    const std::optional<files::ItemId> id = ports_.Info.Identity(one);
    return id && id == ports_.Info.Identity(other);
}

bool IndividualRun::HasKeptPart(std::wstring_view path) const noexcept {
    return path.size() > keptPartStart_;
}

std::wstring IndividualRun::TargetOf(std::wstring_view path) const {
    std::wstring_view kept = path.substr(keptPartStart_);
    // Below a drive that came without its separator the kept part starts with it.
    if (kept.starts_with(L'\\'))
        kept.remove_prefix(1);
    std::wstring target = request_.Destination;
    target += kept;
    return target;
}

}  // namespace ferry::transfer
