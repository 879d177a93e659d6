#include "text_file_win32.h"

#include <windows.h>

#include <algorithm>
#include <string_view>

#include "base/handles_win32.h"
#include "base/utf16.h"

namespace ferry::samplehost {
namespace {

constexpr std::size_t kChunkBytes = std::size_t{1} << 20;

}  // namespace

std::optional<std::vector<std::byte>> ReadWholeFile(const std::wstring& path) {
    const base::FileHandle file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        return std::nullopt;
    std::vector<std::byte> bytes;
    DWORD read = 0;
    do {
        const std::size_t used = bytes.size();
        bytes.resize(used + kChunkBytes);
        if (!ReadFile(file.Get(), bytes.data() + used, kChunkBytes, &read, nullptr))
            return std::nullopt;
        bytes.resize(used + read);
    } while (read != 0);
    return bytes;
}

std::optional<std::vector<std::wstring>> ReadLines(const std::wstring& path) {
    const auto bytes = ReadWholeFile(path);
    if (!bytes)
        return std::nullopt;
    std::string_view text(reinterpret_cast<const char*>(bytes->data()), bytes->size());
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    std::vector<std::wstring> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (!line.empty())
            lines.push_back(base::FromUtf8(line));
    }
    return lines;
}

}  // namespace ferry::samplehost
