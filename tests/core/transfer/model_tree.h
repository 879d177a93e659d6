// A tree of files and folders in memory, with the naming rules of Windows.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ferry::transfer::model {

/// A file or a folder.
struct Node {
    std::wstring Name;
    bool IsFolder = false;
    std::uint32_t Attributes = 0;
    std::uint64_t LastAccessTime = 0;
    std::uint64_t LastWriteTime = 0;
    std::string Content;
    std::uint64_t ExtraSize = 0;  ///< Counted into the file's size as if the content were longer.
    std::vector<std::unique_ptr<Node>> Children;
    Node* LeadsTo = nullptr;  ///< Of a link: the folder whose entries it shows.
};

/// The folder that `folder` stands for: itself, or where it leads.
inline const Node& Followed(const Node& folder) noexcept {
    return folder.LeadsTo == nullptr ? folder : *folder.LeadsTo;
}

/// `name` as Windows takes it: without dots and blanks at its end. "." and ".." give nothing.
std::wstring_view TakenName(std::wstring_view name);

/// `path` with its slashes made backslashes: to the file system they are the same.
std::wstring WithBackslashes(std::wstring_view path);

/// `given` with backslashes and without the components "." and "..", as Windows takes it. A last component of
/// nothing but dots and blanks leaves the separator before it.
std::wstring PlainPath(std::wstring_view given);

/// Whether Windows allows no item to be called `name`.
bool IsForbiddenName(std::wstring_view name);

/// Drives with folders and files. Lookups do not regard case, nor dots and blanks at the end of a
/// name.
class Tree {
public:
    Tree() { root_.IsFolder = true; }

    /// The item at `path`, with or without a trailing backslash, with or without components of dots;
    /// null when there is none.
    Node* At(std::wstring_view path);
    const Node* At(std::wstring_view path) const;

    /// What the file at `path` holds; "nothing" where nothing is.
    std::string ContentAt(std::wstring_view path) const;

    /// The folder that holds the last component of `path`; null when it is no folder.
    Node* ParentOf(std::wstring_view path);

    /// The entry of `folder` called `name`, or null.
    static Node* Child(const Node& folder, std::wstring_view name);

    /// Adds a folder with its missing parents, drives included.
    Node& AddFolder(std::wstring_view path);

    /// Adds a file, with its missing parents.
    Node& AddFile(std::wstring_view path, std::string content, std::uint64_t lastWriteTime = 0);

    /// Takes the item at `path` out of its folder; null when there is none.
    std::unique_ptr<Node> Detach(std::wstring_view path);

    /// Calls `visit` with the full path of every item, folders before what they hold.
    void ForEach(const std::function<void(const std::wstring& path, const Node& node)>& visit) const;

    /// One line for every item below `path`, keyed by its path: what two equal trees have equal.
    std::map<std::wstring, std::string> Snapshot(std::wstring_view path) const;

private:
    Node* AtPlain(std::wstring_view path);

    Node root_;
};

}  // namespace ferry::transfer::model
