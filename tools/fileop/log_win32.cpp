#include "log_win32.h"

#include <windows.h>

#include "base/handles_win32.h"
#include "base/utf16.h"

namespace ferry::fileop {
namespace {

std::wstring Digits(std::uint64_t number, std::size_t width) {
    std::wstring digits;
    while (number != 0 || digits.size() < width) {
        digits.insert(digits.begin(), L"0123456789abcdef"[number % 16]);
        number /= 16;
    }
    return L"0x" + digits;
}

std::wstring Line(std::initializer_list<std::wstring_view> fields) {
    std::wstring line;
    for (const std::wstring_view field : fields) {
        if (!line.empty()) {
            line += L'\t';
        }
        for (const wchar_t unit : field) {
            line += unit == L'\t' || unit == L'\r' || unit == L'\n' ? L' ' : unit;
        }
    }
    return line + L"\n";
}

}  // namespace

void WriteLog(std::initializer_list<std::wstring_view> fields) {
    const std::wstring path = EnvironmentText(L"FERRY_FILEOP_LOG");
    if (path.empty()) {
        return;
    }
    const std::string bytes = base::ToUtf8(Line(fields));
    // Appending is not one step under Wine; the mutex keeps the lines of several processes whole.
    const base::MutexHandle mutex(CreateMutexW(nullptr, FALSE, L"Local\\FerryFileOperationLog"));
    if (mutex) {
        WaitForSingleObject(mutex.Get(), INFINITE);
    }
    {
        const base::FileHandle file(CreateFileW(path.c_str(), FILE_APPEND_DATA,
                                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                                nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        DWORD written = 0;
        if (file) {
            // Best effort: a lost line makes a test fail, it must not make the operation fail.
            WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
        }
    }
    if (mutex) {
        ReleaseMutex(mutex.Get());
    }
}

std::wstring Hex(std::uint64_t number) {
    return Digits(number, 1);
}

std::wstring HexResult(std::int32_t result) {
    return Digits(static_cast<std::uint32_t>(result), 8);
}

std::wstring EnvironmentText(const wchar_t* name) {
    std::wstring text;
    for (DWORD size = GetEnvironmentVariableW(name, nullptr, 0); size > text.size();) {
        text.resize(size);
        size = GetEnvironmentVariableW(name, text.data(), size);
        if (size < text.size()) {
            text.resize(size);
            return text;
        }
    }
    return {};
}

}  // namespace ferry::fileop
