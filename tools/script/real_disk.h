// The disks of this machine, to be read by scripts in a pretended world.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "pretended_disk.h"

namespace ferry::scripttools {

/// Where other systems than Windows have their root, as scripts see it.
inline constexpr wchar_t kRootDrive[] = L"Z:";

/// The path by which scripts know `path`, which may be relative. A path in the form of Windows stays as it
/// is.
std::wstring ScriptPathOf(const std::filesystem::path& path);

/// What is in a file; nothing when it cannot be read.
std::optional<Bytes> ReadFileBytes(const std::filesystem::path& path);

/// Shows the disks of this machine and changes nothing on them. On other systems than Windows there is one
/// drive, kRootDrive, and names must be written as they are.
class RealDisk final : public DiskBelow {
public:
    std::uint32_t Attributes(const std::wstring& path) const override;
    std::optional<Bytes> Read(const std::wstring& path) const override;
    std::vector<std::wstring> Names(const std::wstring& folder) const override;
};

}  // namespace ferry::scripttools
