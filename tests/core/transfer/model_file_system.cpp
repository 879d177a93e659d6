// The file system of the model.
#include <algorithm>

#include "base/case_order.h"
#include "core/transfer/model_ports.h"
#include "support/mask.h"

namespace ferry::transfer::model {
namespace {

constexpr int kAccessDenied = 5;
constexpr int kPathNotFound = 3;
constexpr int kInvalidName = 123;
constexpr std::uint32_t kReadOnly = 1;

// What SetFileAttributesW takes; the other bits say what an item is, and stay.
constexpr std::uint32_t kSettable = 0x31A7;

files::Match MatchOf(std::wstring_view name, const Node& node) {
    return {name, node.Attributes, {node.LastWriteTime, node.LastAccessTime, node.LastWriteTime}};
}

/// Whether a call that did its work says so; the others claim to have failed.
bool SaysDone(Fault fault) {
    return fault != Fault::Late && fault != Fault::LateNoObject && fault != Fault::KeepSource;
}

/// Whether a name in `path`, below its drive, is one that Windows forbids.
bool HasForbiddenName(std::wstring_view given) {
    const std::wstring path = WithBackslashes(given);
    for (std::size_t start = path.find(L'\\'); start != std::wstring_view::npos;
         start = path.find(L'\\', start + 1)) {
        const std::size_t end = path.find(L'\\', start + 1);
        const std::wstring name =
            path.substr(start + 1, end == std::wstring_view::npos ? end : end - start - 1);
        if (!name.empty() && IsForbiddenName(name))
            return true;
    }
    return false;
}

/// Whether `path` lies on a server, none of which is there.
bool IsOnServer(std::wstring_view path) {
    return path.starts_with(L"\\\\");
}

}  // namespace

std::uint32_t ModelFileSystem::Attributes(std::wstring_view path) {
    if (Stops(world_.Enter(L"Attributes", path))) {
        world_.HiddenAttributes.insert(base::SmallLetters(path));
        return files::kInvalidAttributes;
    }
    const Node* const node = world_.Files.At(path);
    return node == nullptr ? files::kInvalidAttributes : node->Attributes;
}

bool ModelFileSystem::SetAttributes(std::wstring_view path, std::uint32_t attributes) {
    const Fault fault = world_.Enter(L"SetAttributes", path, std::to_wstring(attributes));
    if (fault == Fault::DoNothing)
        return true;
    Node* const node = world_.Files.At(path);
    if (Stops(fault) || node == nullptr)
        return false;
    node->Attributes = (attributes & kSettable) | (node->IsFolder ? files::kAttributeDirectory : 0);
    return SaysDone(fault);
}

std::uint32_t ModelFileSystem::Search(std::wstring_view pattern,
                                      const std::function<bool(const files::Match&)>& visit) {
    const std::size_t separator = pattern.find_last_of(L"\\/");
    const std::wstring_view folder = pattern.substr(0, separator);
    const std::wstring mask = base::SmallLetters(pattern.substr(separator + 1));
    const Fault fault = world_.Enter(L"Search", folder, mask == L"*" ? std::wstring_view() : mask);
    if (Stops(fault))
        return kAccessDenied;
    if (mask.find_first_of(L"*?") == std::wstring::npos) {
        const Node* const only = PlainPath(pattern).ends_with(L'\\') ? nullptr : world_.Files.At(pattern);
        if (only != nullptr)
            visit(MatchOf(only->Name, *only));
        return 0;
    }
    const Node* const node = world_.Files.At(pattern.substr(0, separator + 1));
    if (node == nullptr || !node->IsFolder)
        return kPathNotFound;
    ++openSearches_;
    mostOpenSearches_ = std::max(mostOpenSearches_, openSearches_);
    const auto goesOn = [&](std::wstring_view name, const Node& item) {
        return !test::Fits(mask, base::SmallLetters(name)) || visit(MatchOf(name, item));
    };
    bool goes = goesOn(L".", *node) && goesOn(L"..", *node);
    // What lies about its end breaks off halfway.
    const auto& children = Followed(*node).Children;
    const std::size_t count = children.size() / (fault == Fault::DoNothing ? 2 : 1);
    for (std::size_t index = 0; goes && index < count; ++index)
        goes = goesOn(children[index]->Name, *children[index]);
    --openSearches_;
    return 0;
}

std::optional<files::FoundItem> ModelFileSystem::Find(std::wstring_view path) {
    const Fault fault = world_.Enter(L"Find", path);
    const Node* const node = PlainPath(path).ends_with(L'\\') ? nullptr : world_.Files.At(path);
    std::optional<files::FoundItem> found;
    if (Stops(fault)) {
        world_.HiddenItems.insert(base::SmallLetters(path));
        found = files::FoundItem{0, 0, false};
    } else if (node != nullptr) {
        found = files::FoundItem{node->Attributes, node->LastWriteTime, true};
    }
    // A run looks at the target before anything else.
    if (!world_.TargetWasSeen) {
        world_.TargetWasSeen = found && found->IsTimeKnown;
        world_.TargetWasHidden = found && !found->IsTimeKnown;
    }
    return found;
}

std::uint64_t ModelFileSystem::Size(std::wstring_view path) {
    const Fault fault = world_.Enter(L"Size", path);
    const Node* const node = world_.Files.At(path);
    return Stops(fault) || node == nullptr ? 0 : node->Content.size() + node->ExtraSize;
}

int ModelFileSystem::MakeFolder(std::wstring_view path) {
    const Fault fault = world_.Enter(L"MakeFolder", path);
    if (fault == Fault::Cancel)
        return files::kFolderCancelled;
    if (fault == Fault::DoNothing)
        return files::kFolderMade;
    if (Stops(fault))
        return kAccessDenied;
    if (world_.Files.At(path) != nullptr)
        return files::kFolderExists;  // the shell says so of a file too
    if (HasForbiddenName(path))
        return kInvalidName;
    return MakeWithParents(path) ? (SaysDone(fault) ? files::kFolderMade : kAccessDenied) : kPathNotFound;
}

bool ModelFileSystem::MakeWithParents(std::wstring_view path) {
    // A missing parent is made where a backslash ends its name; a slash ends none.
    for (std::size_t end = path.find(L'\\'); end != std::wstring_view::npos;
         end = path.find(L'\\', end + 1)) {
        if (!MakeOne(path.substr(0, end)))
            return false;
    }
    return MakeOne(path);
}

bool ModelFileSystem::MakeOne(std::wstring_view path) {
    const Node* const existing = world_.Files.At(path);
    if (existing != nullptr)
        return existing->IsFolder;
    const bool hasParent = path.find_first_of(L"\\/") != std::wstring_view::npos;
    Node* const parent = hasParent ? world_.Files.ParentOf(path) : nullptr;
    if (parent == nullptr)
        return false;
    world_.Touch(world_.Files.AddFolder(WithBackslashes(path)));
    world_.Touch(*parent);
    return true;
}

bool ModelFileSystem::RemoveFolder(std::wstring_view path) {
    const Fault fault = world_.Enter(L"RemoveFolder", path);
    if (fault == Fault::DoNothing)
        return true;
    const Node* const node = world_.Files.At(path);
    if (Stops(fault) || node == nullptr || !node->IsFolder || !node->Children.empty() ||
        (node->Attributes & kReadOnly) != 0)
        return false;
    world_.Touch(*world_.Files.ParentOf(path));
    world_.Files.Detach(path);
    world_.RemovedFolders.emplace_back(path);
    return SaysDone(fault);
}

bool ModelFileSystem::Rename(std::wstring_view from, std::wstring_view to) {
    const Fault fault = world_.Enter(L"Rename", from, to, to);
    const bool isDone = fault == Fault::DoNothing || (!Stops(fault) && Move(from, to));
    if (!isDone || !SaysDone(fault))
        return false;
    world_.ToldRenamed.insert(base::SmallLetters(from));
    return true;
}

bool ModelFileSystem::Move(std::wstring_view from, std::wstring_view to) {
    const std::wstring target = PlainPath(to);
    const std::wstring name = target.substr(target.rfind(L'\\') + 1);
    Node* const node = world_.Files.At(from);
    Node* const parent = world_.Files.ParentOf(target);
    const Node* const occupant = world_.Files.At(target);
    const bool isTaken = occupant != nullptr && occupant != node;
    const bool liesInside =
        base::SmallLetters(target).starts_with(base::SmallLetters(PlainPath(from)) + L'\\');
    if (node == nullptr || parent == nullptr || isTaken || liesInside || IsForbiddenName(name))
        return false;
    world_.RenamedAway.insert(base::SmallLetters(from));
    world_.Touch(*world_.Files.ParentOf(from));
    world_.Touch(*parent);
    auto moved = world_.Files.Detach(from);
    moved->Name = name;
    parent->Children.push_back(std::move(moved));
    return true;
}

std::optional<files::ItemId> ModelFileSystem::Identity(std::wstring_view path) {
    const Fault fault = world_.Enter(L"Identity", path);
    const Node* const node = Stops(fault) ? nullptr : world_.Files.At(path);
    return node == nullptr
               ? std::nullopt
               : std::optional(files::ItemId{1, reinterpret_cast<std::uintptr_t>(&Followed(*node))});
}

bool ModelFileSystem::IsRoot(std::wstring_view path) {
    world_.Enter(L"IsRoot", path);
    if (path.size() == 3 && path.substr(1) == L":\\")
        return true;
    if (path == L"\\" || !IsOnServer(path))
        return path == L"\\";
    // A share counts as a root without its separator only.
    const std::wstring_view names = path.substr(2);
    const bool isServerWithSeparator = names.find(L'\\') == names.size() - 1;
    return isServerWithSeparator ? world_.ServersWithSeparatorAreRoots
                                 : std::ranges::count(names, L'\\') <= 1;
}

}  // namespace ferry::transfer::model
