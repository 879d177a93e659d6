// The files and folders of Windows behind their ports.
#pragma once

#include "files/ports.h"

namespace ferry::files {

class DiskInfo final : public FileInfo {
public:
    std::uint32_t Attributes(std::wstring_view path) override;
    std::optional<FoundItem> Find(std::wstring_view path) override;
    std::uint64_t Size(std::wstring_view path) override;
    bool IsRoot(std::wstring_view path) override;
    std::optional<ItemId> Identity(std::wstring_view path) override;
};

class DiskSearch final : public FolderSearch {
public:
    std::uint32_t Search(std::wstring_view pattern, const std::function<bool(const Match&)>& visit) override;
};

class DiskChanges final : public FileChanges {
public:
    bool SetAttributes(std::wstring_view path, std::uint32_t attributes) override;
    int MakeFolder(std::wstring_view path) override;
    bool RemoveFolder(std::wstring_view path) override;
    bool Rename(std::wstring_view from, std::wstring_view to) override;
    void LetOthersClose() override;
};

}  // namespace ferry::files
