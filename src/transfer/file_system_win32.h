// The file system of Windows behind the port of the runs.
#pragma once

#include "transfer/ports.h"

namespace ferry::transfer {

/// The real file system. Paths of any length are fine.
class WindowsFileSystem : public FileSystem {
public:
    std::uint32_t Attributes(std::wstring_view path) override;
    bool SetAttributes(std::wstring_view path, std::uint32_t attributes) override;
    void Enumerate(std::wstring_view folder, const std::function<void(const FoundItem&)>& visit) override;
    std::optional<FoundItem> Find(std::wstring_view path) override;
    std::uint64_t FileSize(std::wstring_view path) override;
    int CreateFolder(std::wstring_view path) override;
    void NotifyFolderMade(std::wstring_view path) override;
    bool RemoveFolder(std::wstring_view path) override;
    bool Rename(std::wstring_view from, std::wstring_view to) override;
    bool IsRoot(std::wstring_view path) override;
    double LocalDate(std::uint64_t fileTime) override;
};

}  // namespace ferry::transfer
