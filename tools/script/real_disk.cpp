#include "real_disk.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string_view>
#include <system_error>

#include "base/utf16.h"
#include "paths/path_grammar.h"

namespace ferry::scripttools {

namespace {

namespace fs = std::filesystem;

std::wstring UnitsOf(const fs::path& path) {
#ifdef _WIN32
    return path.native();
#else
    return base::FromUtf8(path.native());
#endif
}

/// The place of a full path on this machine; nothing for what scripts cannot see of it.
std::optional<fs::path> PlaceOf(const std::wstring& path) {
#ifdef _WIN32
    return fs::path(path);
#else
    const std::wstring_view drive = kRootDrive;
    if (!path.starts_with(drive))
        return std::nullopt;
    std::wstring below = path.substr(drive.size());
    std::ranges::replace(below, L'\\', L'/');
    return fs::path(base::ToUtf8(below));
#endif
}

std::wstring WithDrive(std::wstring path) {
#ifdef _WIN32
    return path;
#else
    std::ranges::replace(path, L'/', L'\\');
    return kRootDrive + path;
#endif
}

}  // namespace

std::wstring ScriptPathOf(const fs::path& path) {
    if (std::wstring written = UnitsOf(path); paths::StartsLikeFullPath(written))
        return written;
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    return WithDrive(UnitsOf((error ? path : absolute).lexically_normal()));
}

std::optional<Bytes> ReadFileBytes(const fs::path& path) {
    std::error_code error;
    // A folder opens as a file on some systems, and fails only when it is read.
    if (fs::is_directory(path, error))
        return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    const auto bytes = std::as_bytes(std::span(text));
    return file.bad() ? std::nullopt : std::optional(Bytes(bytes.begin(), bytes.end()));
}

std::uint32_t RealDisk::Attributes(const std::wstring& path) const {
    constexpr std::uint32_t kAttributeArchive = 0x20;
    const auto place = PlaceOf(path);
    std::error_code error;
    const fs::file_status status =
        place ? fs::status(*place, error) : fs::file_status(fs::file_type::not_found);
    if (fs::is_directory(status))
        return files::kAttributeDirectory;
    return fs::is_regular_file(status) ? kAttributeArchive : files::kInvalidAttributes;
}

std::optional<Bytes> RealDisk::Read(const std::wstring& path) const {
    const auto place = PlaceOf(path);
    return place ? ReadFileBytes(*place) : std::nullopt;
}

std::vector<std::wstring> RealDisk::Names(const std::wstring& folder) const {
    std::vector<std::wstring> names;
    const auto place = PlaceOf(folder);
    if (!place)
        return names;
    std::error_code error;
    for (fs::directory_iterator at(*place, error), end; !error && at != end; at.increment(error))
        names.push_back(UnitsOf(at->path().filename()));
    return names;
}

}  // namespace ferry::scripttools
