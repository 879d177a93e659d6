// The disk of the copy engine, on Windows.
#pragma once

#include "ports.h"

namespace ferry::fileop {

/// Talks to the file system; every path goes through its long form.
class WindowsDisk final : public Disk {
public:
    ItemKind Kind(const std::wstring& path) override;
    std::uint32_t List(const std::wstring& folder, std::vector<std::wstring>& names) override;
    bool IsSame(const std::wstring& left, const std::wstring& right) override;
    std::wstring TemporaryBeside(const std::wstring& path) override;
    std::uint32_t Copy(const std::wstring& source, const std::wstring& target, bool settles,
                       const std::function<bool()>& goesOn) override;
    std::uint32_t Rename(const std::wstring& from, const std::wstring& to, bool replaces) override;
    std::uint32_t MakeFile(const std::wstring& path, std::uint32_t attributes) override;
    std::uint32_t MakeFolder(const std::wstring& path) override;
    std::uint32_t CopyFolderAttributes(const std::wstring& source, const std::wstring& target) override;
    std::uint32_t RemoveFile(const std::wstring& path) override;
    std::uint32_t RemoveFolder(const std::wstring& path) override;
};

}  // namespace ferry::fileop
