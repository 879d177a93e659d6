#include "pretended_disk.h"

#include <algorithm>
#include <functional>
#include <set>
#include <span>
#include <utility>

#include "base/case_order.h"
#include "paths/path_grammar.h"
#include "script/conditions.h"
#include "windows_path.h"

namespace ferry::scripttools {

namespace {

constexpr std::uint32_t kAttributeArchive = 0x20;
constexpr std::uint32_t kErrorPathNotFound = 3;
constexpr wchar_t kSeparator = L'\\';

/// The folder that a full path lies in, with its separator; empty for a root.
std::wstring FolderOf(const std::wstring& fullPath) {
    const std::wstring_view path = paths::StripTrailingSeparator(fullPath);
    const std::size_t root = RootLength(fullPath);
    if (path.size() <= root)
        return {};
    return std::wstring(path.substr(0, std::max(path.rfind(kSeparator) + 1, root)));
}

/// "*.*" means all names, also those without a dot.
std::wstring MaskOf(std::wstring_view pattern) {
    const std::wstring mask = base::SmallLetters(paths::LastComponent(pattern));
    return mask == L"*.*" ? L"*" : mask;
}

class PretendedInFile final : public script::InFile {
public:
    explicit PretendedInFile(PretendedDisk::EntryPtr entry) : entry_(std::move(entry)) { ++entry_->Readers; }
    PretendedInFile(const PretendedInFile&) = delete;
    PretendedInFile& operator=(const PretendedInFile&) = delete;
    ~PretendedInFile() override { --entry_->Readers; }

    std::size_t Read(std::span<std::byte> bytes) override {
        const auto rest = std::span<const std::byte>(entry_->Content).subspan(at_);
        const std::size_t count = std::min(bytes.size(), rest.size());
        std::ranges::copy(rest.first(count), bytes.begin());
        at_ += count;
        return count;
    }

private:
    PretendedDisk::EntryPtr entry_;
    std::size_t at_ = 0;
};

class PretendedOutFile final : public script::OutFile {
public:
    PretendedOutFile(PretendedDisk::EntryPtr entry, std::wstring path, EffectLog& log)
        : entry_(std::move(entry)), path_(std::move(path)), log_(log) {
        entry_->IsWritten = true;
    }
    PretendedOutFile(const PretendedOutFile&) = delete;
    PretendedOutFile& operator=(const PretendedOutFile&) = delete;
    ~PretendedOutFile() override { entry_->IsWritten = false; }

    bool Write(std::span<const std::byte> bytes) override {
        entry_->Content.insert(entry_->Content.end(), bytes.begin(), bytes.end());
        log_.Add(L"write", path_ + L'|' + HexDigits(bytes));
        return true;
    }

private:
    PretendedDisk::EntryPtr entry_;
    std::wstring path_;
    EffectLog& log_;
};

}  // namespace

PretendedDisk::PretendedDisk(std::wstring currentFolder, EffectLog& log, const DiskBelow* below)
    : currentFolder_(std::move(currentFolder)), log_(log), below_(below) {}

std::wstring PretendedDisk::FullPath(std::wstring_view path) const {
    return FullWindowsPath(path, currentFolder_);
}

PretendedDisk::Key PretendedDisk::KeyOf(std::wstring_view path) const {
    return base::SmallLetters(paths::StripTrailingSeparator(FullPath(path)));
}

PretendedDisk::EntryPtr PretendedDisk::AddEntry(std::wstring path, std::uint32_t attributes) {
    EntryPtr& entry = entries_[KeyOf(path)];
    if (!entry)
        entry = std::make_shared<Entry>(Entry{std::move(path), attributes, {}, {}});
    return entry;
}

void PretendedDisk::AddFolder(std::wstring_view path) {
    if (const std::wstring fullPath = FullPath(path); !fullPath.empty())
        AddEntry(fullPath, files::kAttributeDirectory);
}

void PretendedDisk::AddFile(std::wstring_view path, Bytes content) {
    AddEntry(std::wstring(path), kAttributeArchive)->Content = std::move(content);
}

void PretendedDisk::SetTimes(std::wstring_view path, const files::ItemTimes& times) {
    if (const EntryPtr entry = At(path))
        entry->Times = times;
}

std::map<std::wstring, Bytes> PretendedDisk::Files() const {
    std::map<std::wstring, Bytes> files;
    for (const auto& [key, entry] : entries_) {
        if (!files::IsFolder(entry->Attributes) && !entry->IsFromBelow)
            files[entry->Path] = entry->Content;
    }
    return files;
}

PretendedDisk::EntryPtr PretendedDisk::FromBelow(const std::wstring& fullPath) {
    const std::uint32_t attributes =
        below_ == nullptr ? files::kInvalidAttributes : below_->Attributes(fullPath);
    if (attributes == files::kInvalidAttributes)
        return nullptr;
    std::optional<Bytes> content = files::IsFolder(attributes) ? Bytes() : below_->Read(fullPath);
    if (!content)
        return nullptr;
    EntryPtr entry = AddEntry(fullPath, attributes);
    entry->Content = *std::move(content);
    entry->IsFromBelow = true;
    return entry;
}

PretendedDisk::EntryPtr PretendedDisk::At(std::wstring_view path) {
    const std::wstring fullPath = FullPath(path);
    if (fullPath.empty())
        return nullptr;
    const Key key = KeyOf(fullPath);
    if (const auto found = entries_.find(key); found != entries_.end())
        return found->second;
    const EntryPtr below = FirstBelow(key);
    if (!below)
        return FromBelow(fullPath);
    // What lies somewhere lies in folders, which are spelled as its path is.
    return AddEntry(FullPath(below->Path).substr(0, paths::StripTrailingSeparator(fullPath).size()),
                    files::kAttributeDirectory);
}

bool PretendedDisk::IsFolderAt(std::wstring_view path) {
    return files::IsFolder(Attributes(path));
}

std::uint32_t PretendedDisk::Attributes(std::wstring_view path) {
    const EntryPtr entry = At(path);
    // A file has no folder below it, not even an empty name.
    const bool meansFolder = path.ends_with(L'\\') || path.ends_with(L'/');
    if (!entry || (meansFolder && !files::IsFolder(entry->Attributes)))
        return files::kInvalidAttributes;
    return entry->Attributes;
}

std::optional<files::FoundItem> PretendedDisk::Find(std::wstring_view path) {
    const std::uint32_t attributes = Attributes(path);
    if (attributes == files::kInvalidAttributes)
        return std::nullopt;
    return files::FoundItem{.Attributes = attributes, .LastWriteTime = At(path)->Times.LastWrite};
}

std::uint64_t PretendedDisk::Size(std::wstring_view path) {
    const EntryPtr entry = At(path);
    return entry ? entry->Content.size() : 0;
}

bool PretendedDisk::IsRoot(std::wstring_view path) {
    const std::wstring fullPath = FullPath(path);
    return !fullPath.empty() && RootLength(fullPath) == fullPath.size();
}

std::optional<files::ItemId> PretendedDisk::Identity(std::wstring_view path) {
    const EntryPtr entry = At(path);
    if (!entry)
        return std::nullopt;
    // Nothing is ever at the place of something else that is still there.
    return files::ItemId{.Volume = 1, .Place = std::hash<const Entry*>()(entry.get())};
}

std::vector<std::wstring> PretendedDisk::NamesIn(const std::wstring& folder) {
    const std::wstring fullPath = paths::WithTrailingSeparator(FullPath(folder));
    const Key start = base::SmallLetters(fullPath);
    std::map<Key, std::wstring> names;
    if (below_ != nullptr) {
        for (std::wstring& name : below_->Names(fullPath))
            names.emplace(base::SmallLetters(name), std::move(name));
    }
    for (auto at = entries_.upper_bound(start); at != entries_.end() && at->first.starts_with(start); ++at) {
        const std::size_t length = at->first.find(kSeparator, start.size()) - start.size();
        const std::wstring path = FullPath(at->second->Path);
        names.emplace(at->first.substr(start.size(), length),
                      paths::StripTrailingSeparator(path).substr(start.size(), length));
    }
    std::vector<std::wstring> inOrder;
    inOrder.reserve(names.size());
    for (auto& [key, name] : names)
        inOrder.push_back(std::move(name));
    return inOrder;
}

std::uint32_t PretendedDisk::Search(std::wstring_view pattern,
                                    const std::function<bool(const files::Match&)>& visit) {
    std::wstring text(pattern);
    std::ranges::replace(text, L'/', kSeparator);
    // A mask alone searches the current folder; by itself it would be taken for the folder's path.
    const bool isMaskAlone = text.find(kSeparator) == std::wstring::npos;
    const std::wstring folder = FullPath(isMaskAlone ? L"." : paths::ParentWithSeparator(text));
    const std::wstring mask = MaskOf(text);
    if (!IsFolderAt(folder))
        return kErrorPathNotFound;
    std::vector<std::wstring> names = NamesIn(folder);
    if (!IsRoot(folder))
        names.insert(names.begin(), {L".", L".."});
    for (const std::wstring& name : names) {
        // Names are far too short for a pattern that takes too long.
        if (!script::IsLike(base::SmallLetters(name), mask).value_or(false))
            continue;
        const EntryPtr entry = At(paths::WithTrailingSeparator(folder) + name);
        if (entry && !visit({.Name = name, .Attributes = entry->Attributes, .Times = entry->Times}))
            break;
    }
    return 0;
}

bool PretendedDisk::SetAttributes(std::wstring_view path, std::uint32_t attributes) {
    const EntryPtr entry = At(path);
    if (!entry)
        return false;
    constexpr std::uint32_t kKept = files::kAttributeDirectory;
    entry->Attributes = (entry->Attributes & kKept) | (attributes & ~kKept);
    return true;
}

int PretendedDisk::MakeFolder(std::wstring_view path) {
    log_.Add(L"mkdir", FullPath(path));
    if (At(path))
        return files::kFolderExists;
    AddFolder(path);
    return files::kFolderMade;
}

PretendedDisk::EntryPtr PretendedDisk::FirstBelow(const Key& folder) const {
    const Key start = paths::WithTrailingSeparator(folder);
    const auto at = entries_.upper_bound(start);
    return at != entries_.end() && at->first.starts_with(start) ? at->second : nullptr;
}

bool PretendedDisk::RemoveFolder(std::wstring_view path) {
    const Key key = KeyOf(path);
    const EntryPtr entry = At(path);
    if (!entry || !files::IsFolder(entry->Attributes) || entry->IsFromBelow || FirstBelow(key))
        return false;
    entries_.erase(key);
    // The folder around it stays, though nothing may be left in it.
    AddFolder(FolderOf(FullPath(path)));
    return true;
}

bool PretendedDisk::Rename(std::wstring_view from, std::wstring_view to) {
    const EntryPtr entry = At(from);
    if (!entry || entry->IsFromBelow || At(to) || !IsFolderAt(FolderOf(FullPath(to))))
        return false;
    const Key start = KeyOf(from);
    const std::size_t length = paths::StripTrailingSeparator(FullPath(from)).size();
    std::vector<EntryPtr> moved;
    for (auto at = entries_.lower_bound(start); at != entries_.end() && at->first.starts_with(start);) {
        const bool isItOrBelow = at->first.size() == start.size() || at->first[start.size()] == kSeparator;
        if (isItOrBelow)
            moved.push_back(at->second);
        at = isItOrBelow ? entries_.erase(at) : std::next(at);
    }
    AddFolder(FolderOf(FullPath(from)));
    for (const EntryPtr& one : moved) {
        one->Path =
            std::wstring(paths::StripTrailingSeparator(FullPath(to))) + FullPath(one->Path).substr(length);
        entries_[KeyOf(one->Path)] = one;
    }
    return true;
}

std::unique_ptr<script::InFile> PretendedDisk::OpenToRead(std::wstring_view path) {
    EntryPtr entry = At(path);
    if (!entry || files::IsFolder(entry->Attributes) || entry->IsWritten)
        return nullptr;
    return std::make_unique<PretendedInFile>(std::move(entry));
}

std::unique_ptr<script::OutFile> PretendedDisk::OpenToWrite(std::wstring_view path, script::OpenMode mode) {
    const std::wstring fullPath = FullPath(path);
    EntryPtr entry = At(path);
    const bool isTaken =
        entry && (files::IsFolder(entry->Attributes) || entry->IsWritten || entry->Readers > 0);
    if (fullPath.empty() || fullPath.ends_with(kSeparator) || isTaken || !IsFolderAt(FolderOf(fullPath)))
        return nullptr;
    log_.Add(L"open", fullPath + (mode == script::OpenMode::Append ? L"|ab+S" : L"|wbS"));
    if (!entry)
        entry = AddEntry(fullPath, kAttributeArchive);
    entry->IsFromBelow = false;
    if (mode == script::OpenMode::Overwrite)
        entry->Content.clear();
    return std::make_unique<PretendedOutFile>(std::move(entry), fullPath, log_);
}

}  // namespace ferry::scripttools
