#include "script/surroundings_win32.h"

#include <windows.h>

#include "script/full_path_win32.h"

namespace ferry::script {
namespace {

/// The text that `ask` writes. It gets a buffer and its size in units, and answers how many units it wrote
/// without the terminator, how many it needs with the terminator, or 0 for a failure.
template <class Ask>
std::wstring TextFrom(Ask ask) {
    std::wstring text(MAX_PATH, L'\0');
    DWORD length = ask(text.data(), static_cast<DWORD>(text.size()));
    // In a loop, since what is asked for may grow meanwhile.
    while (length >= text.size()) {
        text.resize(length + 1);
        length = ask(text.data(), static_cast<DWORD>(text.size()));
    }
    text.resize(length);
    return text;
}

/// Bits of a conversion that is to put "?" in the place of all that the system's encoding lacks. UTF-8 lacks
/// nothing and refuses them.
DWORD NarrowingFlags() noexcept {
    return GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
}

}  // namespace

std::wstring FullPathName(const std::wstring& path) {
    const std::wstring full = TextFrom(
        [&](wchar_t* buffer, DWORD size) { return GetFullPathNameW(path.c_str(), size, buffer, nullptr); });
    return full.empty() ? path : full;
}

std::wstring SystemSurroundings::ExpandEnvironment(const std::wstring& text) {
    if (ExpandEnvironmentStringsW(text.c_str(), nullptr, 0) == 0)
        return text;
    return TextFrom([&](wchar_t* buffer, DWORD size) {
        const DWORD length = ExpandEnvironmentStringsW(text.c_str(), buffer, size);
        // This call counts the terminator always.
        return length == 0 || length > size ? length : length - 1;
    });
}

std::wstring SystemSurroundings::FullPath(const std::wstring& path) {
    return FullPathName(path);
}

std::wstring SystemSurroundings::CurrentFolder() {
    return TextFrom([](wchar_t* buffer, DWORD size) { return GetCurrentDirectoryW(size, buffer); });
}

std::string SystemSurroundings::Narrow(const std::wstring& text) {
    const auto convert = [&](char* buffer, int size) {
        // The encoding's own character for what it lacks, which is "?".
        return WideCharToMultiByte(CP_ACP, NarrowingFlags(), text.data(), static_cast<int>(text.size()),
                                   buffer, size, nullptr, nullptr);
    };
    std::string narrow(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
    convert(narrow.data(), static_cast<int>(narrow.size()));
    return narrow;
}

int SystemSurroundings::Metric(int index) {
    return GetSystemMetrics(index);
}

}  // namespace ferry::script
