// The world of a model run: the tree, the record of every port call, and the faults.
#include "core/transfer/model_world.h"

#include <algorithm>

#include "base/case_order.h"

namespace ferry::transfer::model {
namespace {

constexpr std::array<std::wstring_view, 6> kChangingPorts = {
    L"Copy", L"Move", L"Rename", L"RemoveFolder", L"MakeFolder", L"SetAttributes"};

/// The item that `path` names, without what Windows does not regard at its end.
std::wstring PlainForm(std::wstring_view path) {
    return std::wstring(path.substr(0, path.find_last_not_of(L"\\. ") + 1));
}

/// A drive does not vanish and nothing takes its place.
bool IsDriveOrNothing(std::wstring_view path) {
    return path.find(L'\\') == std::wstring_view::npos;
}

}  // namespace

bool Stops(Fault fault) noexcept {
    return fault == Fault::Fail || fault == Fault::Cancel || fault == Fault::NoObject || fault == Fault::Half;
}

Fault World::Enter(std::wstring_view port, std::wstring_view path, std::wstring_view details,
                   std::wstring_view target) {
    if (Logging)
        Write(port, path, details);
    if (HasStopped && std::ranges::find(kChangingPorts, port) != kChangingPorts.end())
        CallsTooLate.emplace_back(path);
    const std::size_t index = CallCount++;
    const Fault fault = Faults ? Faults(index, port) : Fault::None;
    if (fault >= Fault::Vanish) {
        const std::wstring at = path.empty() ? recent_[index % recent_.size()] : PlainForm(path);
        ActFromOutside(fault, at, target.empty() ? at : PlainForm(target));
    }
    Remember(path);
    Remember(target);
    return fault;
}

void World::Write(std::wstring_view port, std::wstring_view path, std::wstring_view details) {
    std::wstring line(port);
    if (!path.empty())
        line.append(L" ").append(path);
    if (!details.empty())
        line.append(L" ").append(details);
    Log.push_back(std::move(line));
}

void World::Remember(std::wstring_view path) {
    if (path.empty())
        return;
    recent_[recentNext_] = PlainForm(path);
    recentNext_ = (recentNext_ + 1) % recent_.size();
}

void World::ActFromOutside(Fault fault, const std::wstring& path, const std::wstring& target) {
    switch (fault) {
        case Fault::Vanish:
            return Vanish(path);
        case Fault::Change:
            return Change(path);
        case Fault::Swap:
            return Swap(path);
        case Fault::Appear:
            return Appear(target);
        case Fault::VanishTarget:
            return Vanish(target);
        default:
            return Change(target);
    }
}

Node& World::AddUniqueFile(std::wstring_view path, std::uint64_t lastWriteTime) {
    Node& file = Files.AddFile(path, UniqueContent(), lastWriteTime);
    Written.push_back(file.Content);
    return file;
}

void World::Vanish(const std::wstring& path) {
    if (IsDriveOrNothing(path))
        return;
    Disturbed.insert(base::SmallLetters(path));
    if (const auto gone = Files.Detach(path))
        Excuse(*gone);
}

void World::Change(const std::wstring& path) {
    Node* const node = Files.At(path);
    if (node == nullptr)
        return;
    if (node->IsFolder) {
        const std::wstring file = path + L"\\new" + std::to_wstring(contentCount_);
        AddUniqueFile(file, 0);
        Disturbed.insert(base::SmallLetters(file));
        return;
    }
    Disturbed.insert(base::SmallLetters(path));
    Excused.insert(node->Content);
    node->Content = UniqueContent();
    node->LastWriteTime += 100'000'000;
    Written.push_back(node->Content);
}

void World::Swap(const std::wstring& path) {
    const Node* const node = Files.At(path);
    if (node == nullptr || IsDriveOrNothing(path))
        return;
    const bool wasFolder = node->IsFolder;
    Vanish(path);
    AddUniqueFile(wasFolder ? path : path + L"\\inside", 0);
}

void World::Appear(const std::wstring& path) {
    const Node* const parent = IsDriveOrNothing(path) ? nullptr : Files.ParentOf(path);
    if (parent == nullptr || Files.At(path) != nullptr)
        return;
    Disturbed.insert(base::SmallLetters(path));
    AddUniqueFile(path, 0);
}

void World::Excuse(const Node& node) {
    if (!node.IsFolder)
        Excused.insert(node.Content);
    for (const auto& child : node.Children)
        Excuse(*child);
}

std::string World::UniqueContent() {
    return "#" + std::to_string(contentCount_++);
}

}  // namespace ferry::transfer::model
