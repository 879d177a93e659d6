#include "e2e/driver/tree_snapshot.h"

#include "base/utf16.h"
#include "e2e/driver/temp_tree.h"
#include "support/disk_win32.h"

namespace ferry::e2e {
namespace {

constexpr DWORD kComparedAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

void ReadBelow(const std::wstring& folder, const std::wstring& prefix, TreeSnapshot& tree) {
    test::VisitEntries(LongForm(folder), [&](const test::FolderEntry& found) {
        TreeEntry entry;
        entry.IsFolder = found.IsFolder();
        entry.Attributes = found.Attributes & kComparedAttributes;
        const std::wstring path = folder + L'\\' + found.Name;
        if (entry.IsFolder)
            ReadBelow(path, prefix + found.Name + L'\\', tree);
        else {
            entry.Content = ReadBytes(path);
            entry.Modified = found.Modified;
        }
        tree.emplace(prefix + found.Name, std::move(entry));
    });
}

/// FNV-1a, which is enough to notice a change.
std::uint64_t Mixed(std::uint64_t hash, const void* data, std::size_t size) {
    const auto* const bytes = static_cast<const unsigned char*>(data);
    for (std::size_t index = 0; index < size; ++index) {
        hash = (hash ^ bytes[index]) * 0x100000001B3ULL;
    }
    return hash;
}

}  // namespace

TreeSnapshot ReadTree(const std::wstring& root) {
    TreeSnapshot tree;
    ReadBelow(root, L"", tree);
    return tree;
}

std::string Differences(const TreeSnapshot& expected, const TreeSnapshot& actual) {
    std::string text;
    for (const auto& [name, entry] : expected) {
        const auto found = actual.find(name);
        if (found == actual.end())
            text += "missing: " + base::ToUtf8(name) + "\n";
        else if (entry.Attributes != found->second.Attributes)
            text += "attributes: " + base::ToUtf8(name) + " " + std::to_string(entry.Attributes) +
                    " became " + std::to_string(found->second.Attributes) + "\n";
        else if (entry.Modified != found->second.Modified)
            text += "time: " + base::ToUtf8(name) + "\n";
        else if (entry != found->second)
            text += "content: " + base::ToUtf8(name) + "\n";
    }
    for (const auto& [name, entry] : actual) {
        if (!expected.contains(name))
            text += "unexpected: " + base::ToUtf8(name) + "\n";
    }
    return text;
}

std::uint64_t HashOf(const TreeSnapshot& tree) {
    std::uint64_t hash = 0xCBF29CE484222325ULL;
    for (const auto& [name, entry] : tree) {
        hash = Mixed(hash, name.data(), name.size() * sizeof(wchar_t));
        hash = Mixed(hash, &entry.Attributes, sizeof(entry.Attributes));
        hash = Mixed(hash, &entry.Modified, sizeof(entry.Modified));
        hash = Mixed(hash, entry.Content.data(), entry.Content.size());
    }
    return hash;
}

}  // namespace ferry::e2e
