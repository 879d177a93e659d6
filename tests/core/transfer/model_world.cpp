// The world of a model run: the tree, the record of every port call, and the faults.
#include "core/transfer/model_world.h"

namespace ferry::transfer::model {

Fault World::Enter(std::wstring_view port, std::wstring_view path, std::wstring_view details) {
    if (Logging) {
        std::wstring line(port);
        if (!path.empty())
            line.append(L" ").append(path);
        if (!details.empty())
            line.append(L" ").append(details);
        Log.push_back(std::move(line));
    }
    const std::size_t index = CallCount++;
    const Fault fault = Faults ? Faults(index, port) : Fault::None;
    if (fault != Fault::None && !path.empty())
        Disturbed.insert(Fold(path));
    if (fault == Fault::Vanish)
        Vanish(path);
    if (fault == Fault::Change)
        Change(path);
    return fault;
}

Node& World::AddUniqueFile(std::wstring_view path, std::uint64_t lastWriteTime) {
    Node& file = Files.AddFile(path, UniqueContent(), lastWriteTime);
    Written.push_back(file.Content);
    return file;
}

void World::Vanish(std::wstring_view path) {
    // A drive does not vanish, and nothing below it is named by an empty path.
    if (path.find(L'\\') == std::wstring_view::npos)
        return;
    if (const auto gone = Files.Detach(path))
        Excuse(*gone);
}

void World::Change(std::wstring_view path) {
    Node* const node = Files.At(path);
    if (node == nullptr)
        return;
    if (node->IsFolder) {
        const std::wstring folder(path.ends_with(L'\\') ? path.substr(0, path.size() - 1) : path);
        const std::wstring name = L"\\new" + std::to_wstring(contentCount_);
        AddUniqueFile(folder + name, 0);
        Disturbed.insert(Fold(folder + name));
        return;
    }
    Excused.insert(node->Content);
    node->Content = UniqueContent();
    node->LastWriteTime += 100'000'000;
    Written.push_back(node->Content);
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
