#include "launcher/system_surroundings_win32.h"

#include <shellapi.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "base/handles_win32.h"
#include "launcher/list_text.h"
#include "paths/path_grammar.h"

namespace ferry::launcher {
namespace {

constexpr std::size_t kChunkBytes = std::size_t{1} << 16;

/// The errors that say that there is nothing of that name, and those of a drive or a share that is not there.
/// Any other one is Ferry's to tell when the item's turn comes.
constexpr std::array<DWORD, 9> kMissingErrors = {
    ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_INVALID_NAME, ERROR_BAD_PATHNAME, ERROR_BAD_NETPATH,
    ERROR_BAD_NET_NAME,   ERROR_INVALID_DRIVE,  ERROR_NOT_READY,    ERROR_DIRECTORY};

bool IsThere(const std::wstring& path) {
    if (GetFileAttributesW(paths::LongPathText(path).c_str()) != INVALID_FILE_ATTRIBUTES)
        return true;
    return std::ranges::find(kMissingErrors, GetLastError()) == kMissingErrors.end();
}

std::vector<std::wstring> NamesIn(const std::wstring& folder) {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW entry = {};
    const std::wstring pattern = paths::LongPathText(folder + L"*");
    const base::FindHandle search(FindFirstFileExW(
        pattern.c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
    if (!search)
        return names;
    do {
        names.emplace_back(entry.cFileName);
    } while (FindNextFileW(search.Get(), &entry));
    return names;
}

/// The text that a call gives which answers the length of its text, or the size that it needs.
template <class Call>
std::wstring TextOf(Call call) {
    std::wstring text(MAX_PATH, L'\0');
    DWORD length = call(static_cast<DWORD>(text.size()), text.data());
    while (length >= text.size()) {
        text.resize(length + std::size_t{1});
        length = call(static_cast<DWORD>(text.size()), text.data());
    }
    text.resize(length);
    return text;
}

/// Everything that can be read from `file`, to the end of the file or until the writer of a pipe closes it.
std::optional<std::vector<std::byte>> ReadToEnd(HANDLE file) {
    std::vector<std::byte> bytes;
    DWORD read = 0;
    do {
        const std::size_t used = bytes.size();
        if (used > kMostListBytes)
            return std::nullopt;
        bytes.resize(used + std::max(kChunkBytes, used / 2));
        const auto room = static_cast<DWORD>(bytes.size() - used);
        if (!ReadFile(file, bytes.data() + used, room, &read, nullptr)) {
            if (GetLastError() != ERROR_BROKEN_PIPE)
                return std::nullopt;
            read = 0;
        }
        bytes.resize(used + read);
    } while (read != 0);
    return bytes;
}

std::optional<std::vector<std::byte>> ReadStandardInput() {
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    // Of a console nobody would know that the program waits for lines; and there may be none at all.
    const DWORD type = GetFileType(input);
    if (type != FILE_TYPE_DISK && type != FILE_TYPE_PIPE)
        return std::nullopt;
    return ReadToEnd(input);
}

std::optional<std::vector<std::byte>> ReadListFile(const std::wstring& path) {
    // The program that writes the list may still have it open.
    const base::FileHandle file(CreateFileW(path.c_str(), GENERIC_READ,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file ? ReadToEnd(file.Get()) : std::nullopt;
}

std::optional<std::wstring> FromConsolePage(const std::vector<std::byte>& bytes) {
    const auto* const text = reinterpret_cast<const char*>(bytes.data());
    const int size = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(CP_OEMCP, MB_ERR_INVALID_CHARS, text, size, nullptr, 0);
    if (length <= 0)
        return std::nullopt;
    std::wstring units(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_OEMCP, 0, text, size, units.data(), length);
    return units;
}

}  // namespace

SystemSurroundings::SystemSurroundings() : names_(&NamesIn, &IsThere) {}

std::wstring SystemSurroundings::FullPath(const std::wstring& path) {
    return TextOf(
        [&](DWORD size, wchar_t* text) { return GetFullPathNameW(path.c_str(), size, text, nullptr); });
}

std::wstring CurrentFolder() {
    return TextOf([](DWORD size, wchar_t* text) { return GetCurrentDirectoryW(size, text); });
}

std::optional<std::vector<std::wstring>> ReadList(const std::wstring& name) {
    const auto bytes = name == kStandardInput ? ReadStandardInput() : ReadListFile(name);
    if (!bytes)
        return std::nullopt;
    auto text = DecodeList(*bytes);
    if (!text)
        text = FromConsolePage(*bytes);
    if (!text)
        return std::nullopt;
    return PathsOfList(*text);
}

std::vector<std::wstring> ArgumentsOfThisProcess() {
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (arguments == nullptr)
        return {};
    std::vector<std::wstring> given(arguments + (count > 0 ? 1 : 0), arguments + count);
    LocalFree(arguments);
    return given;
}

}  // namespace ferry::launcher
