// A tree of files and folders in memory, with the naming rules of Windows.
#include "core/transfer/model_tree.h"

#include <algorithm>
#include <stdexcept>

#include "base/case_order.h"

namespace ferry::transfer::model {
namespace {

bool SameName(std::wstring_view stored, std::wstring_view asked) {
    return base::EqualsIgnoringCase(stored, TakenName(asked));
}

std::wstring_view WithoutTrailingSeparator(std::wstring_view path) {
    return path.ends_with(L'\\') ? path.substr(0, path.size() - 1) : path;
}

std::unique_ptr<Node> MakeNode(std::wstring_view name, bool isFolder) {
    auto node = std::make_unique<Node>();
    node->Name = name;
    node->IsFolder = isFolder;
    node->Attributes = isFolder ? 0x10 : 0x20;
    return node;
}

void Visit(const std::wstring& path, const Node& node,
           const std::function<void(const std::wstring&, const Node&)>& visit) {
    for (const auto& child : node.Children) {
        const std::wstring childPath = path.empty() ? child->Name : path + L'\\' + child->Name;
        visit(childPath, *child);
        Visit(childPath, *child, visit);
    }
}

}  // namespace

std::wstring_view TakenName(std::wstring_view name) {
    return name.substr(0, name.find_last_not_of(L". ") + 1);
}

std::wstring WithBackslashes(std::wstring_view path) {
    std::wstring text(path);
    std::ranges::replace(text, L'/', L'\\');
    return text;
}

std::wstring PlainPath(std::wstring_view given) {
    const std::wstring text = WithBackslashes(given);
    std::wstring_view path = text;
    std::wstring plain;
    const std::wstring_view end = path.ends_with(L'\\') ? L"\\" : L"";
    path = WithoutTrailingSeparator(path);
    for (bool isLast = path.empty(); !isLast;) {
        const std::size_t length = path.find(L'\\');
        isLast = length == std::wstring_view::npos;
        const std::wstring_view component = path.substr(0, length);
        if (component == L"..")
            plain.resize(std::min(plain.rfind(L'\\'), plain.size()));
        else if (component != L".")
            plain.append(plain.empty() ? L"" : L"\\").append(isLast ? TakenName(component) : component);
        path.remove_prefix(isLast ? path.size() : length + 1);
    }
    return plain.append(end);
}

bool IsForbiddenName(std::wstring_view name) {
    return name.empty() || name.find_first_of(L"/:*?\"><|\\") != std::wstring_view::npos;
}

Node* Tree::Child(const Node& folder, std::wstring_view name) {
    for (const auto& child : Followed(folder).Children) {
        if (SameName(child->Name, name))
            return child.get();
    }
    return nullptr;
}

Node* Tree::At(std::wstring_view path) {
    // Only a component that begins with a dot or a blank can be one without a name.
    if (path.find(L"\\.") != std::wstring_view::npos || path.find(L"\\ ") != std::wstring_view::npos ||
        path.find(L'/') != std::wstring_view::npos) {
        const std::wstring plain = PlainPath(path);
        return AtPlain(plain);
    }
    return AtPlain(path);
}

Node* Tree::AtPlain(std::wstring_view path) {
    path = WithoutTrailingSeparator(path);
    // The two separators before a server are one folder without a name.
    if (path.starts_with(L"\\\\"))
        path.remove_prefix(1);
    Node* node = &root_;
    if (path.empty())
        return nullptr;
    while (node != nullptr && node->IsFolder) {
        const std::size_t end = path.find(L'\\');
        node = Child(*node, path.substr(0, end));
        if (end == std::wstring_view::npos)
            return node;
        path.remove_prefix(end + 1);
    }
    return nullptr;
}

const Node* Tree::At(std::wstring_view path) const {
    return const_cast<Tree*>(this)->At(path);
}

std::string Tree::ContentAt(std::wstring_view path) const {
    const Node* const node = At(path);
    return node == nullptr ? "nothing" : node->Content;
}

Node* Tree::ParentOf(std::wstring_view path) {
    const std::wstring plain = PlainPath(WithoutTrailingSeparator(path));
    const std::size_t end = plain.rfind(L'\\');
    if (end == std::wstring::npos)
        return &root_;
    Node* const parent = At(plain.substr(0, end));
    return parent != nullptr && parent->IsFolder ? parent : nullptr;
}

Node& Tree::AddFolder(std::wstring_view path) {
    path = WithoutTrailingSeparator(path);
    if (Node* const existing = At(path))
        return *existing;
    const std::size_t end = path.rfind(L'\\');
    Node& parent = end == std::wstring_view::npos ? root_ : AddFolder(path.substr(0, end));
    if (!parent.IsFolder)
        throw std::logic_error("a file cannot hold a folder");
    parent.Children.push_back(
        MakeNode(TakenName(path.substr(end == std::wstring_view::npos ? 0 : end + 1)), true));
    return *parent.Children.back();
}

Node& Tree::AddFile(std::wstring_view path, std::string content, std::uint64_t lastWriteTime) {
    const std::size_t end = path.rfind(L'\\');
    Node& parent = AddFolder(path.substr(0, end));
    if (!parent.IsFolder || Child(parent, path.substr(end + 1)) != nullptr)
        throw std::logic_error("no place for a file");
    parent.Children.push_back(MakeNode(TakenName(path.substr(end + 1)), false));
    Node& file = *parent.Children.back();
    file.Content = std::move(content);
    file.LastWriteTime = lastWriteTime;
    return file;
}

std::unique_ptr<Node> Tree::Detach(std::wstring_view path) {
    const Node* const node = At(path);
    Node* const parent = node == nullptr ? nullptr : ParentOf(path);
    if (parent == nullptr)
        return nullptr;
    const auto place = std::ranges::find(parent->Children, node, &std::unique_ptr<Node>::get);
    std::unique_ptr<Node> detached = std::move(*place);
    parent->Children.erase(place);
    return detached;
}

void Tree::ForEach(const std::function<void(const std::wstring&, const Node&)>& visit) const {
    Visit({}, root_, visit);
}

std::map<std::wstring, std::string> Tree::Snapshot(std::wstring_view path) const {
    std::map<std::wstring, std::string> lines;
    const Node* const start = At(path);
    if (start == nullptr)
        return lines;
    Visit(std::wstring(WithoutTrailingSeparator(path)), *start,
          [&](const std::wstring& itemPath, const Node& node) {
              lines[itemPath] = (node.IsFolder ? "folder " : "file ") + std::to_string(node.Attributes) +
                                " " + std::to_string(node.LastWriteTime) + " " + node.Content;
          });
    return lines;
}

}  // namespace ferry::transfer::model
