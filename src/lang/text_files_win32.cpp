#include "lang/text_files_win32.h"

#include <share.h>

#include <array>
#include <cstdio>
#include <cwchar>
#include <vector>

#include "base/handles_win32.h"
#include "base/utf16.h"
#include "paths/path_grammar.h"

namespace ferry::lang {
namespace {

base::FileStream Open(const std::wstring& path, const wchar_t* mode) {
    return base::FileStream(_wfsopen(path.c_str(), mode, _SH_DENYWR));
}

}  // namespace

std::optional<std::wstring> DiskTextFiles::Read(std::wstring_view path) {
    const base::FileStream stream = Open(paths::LongPathText(path), L"rbS");
    if (!stream) {
        return std::nullopt;
    }
    std::vector<std::byte> bytes;
    std::array<std::byte, 16384> chunk;
    std::size_t count = 0;
    while ((count = std::fread(chunk.data(), 1, chunk.size(), stream.Get())) > 0) {
        bytes.insert(bytes.end(), chunk.begin(), chunk.begin() + static_cast<std::ptrdiff_t>(count));
    }
    return base::UnitsFromBytes(bytes);
}

bool DiskTextFiles::Write(std::wstring_view path, std::wstring_view units) {
    const std::wstring longPath = paths::LongPathText(path);
    base::FileStream stream = Open(longPath, L"wbS");
    if (!stream) {
        return false;
    }
    const std::vector<std::byte> bytes = base::BytesFromUnits(units);
    const bool isWhole =
        bytes.empty() || std::fwrite(bytes.data(), 1, bytes.size(), stream.Get()) == bytes.size();
    // Closing writes what is still buffered, so its answer counts too.
    if (std::fclose(stream.Release()) == 0 && isWhole) {
        return true;
    }
    _wremove(longPath.c_str());
    return false;
}

}  // namespace ferry::lang
