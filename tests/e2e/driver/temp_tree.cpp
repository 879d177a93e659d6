#include "e2e/driver/temp_tree.h"

#include <cmath>

#include "base/utf16.h"
#include "e2e/driver/surroundings.h"

namespace ferry::e2e {
namespace {

/// 2020-01-02 03:04:06 UTC: an even second, which every file system keeps.
constexpr long long kMoment = 132224078460000000LL;
constexpr double kTicksInSecond = 1e7;

base::FileHandle OpenForWriting(std::wstring_view path) {
    return base::FileHandle(CreateFileW(LongForm(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                        CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

FILETIME TimeAfterMoment(double seconds) {
    const long long ticks = kMoment + std::llround(seconds * kTicksInSecond);
    return FILETIME{static_cast<DWORD>(ticks & 0xFFFFFFFF), static_cast<DWORD>(ticks >> 32)};
}

void WriteAll(const base::FileHandle& file, std::string_view content) {
    DWORD written = 0;
    ::WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
}

}  // namespace

std::string ReadBytes(std::wstring_view path) {
    const base::FileHandle file(CreateFileW(LongForm(path).c_str(), GENERIC_READ,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                            OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        return {};
    std::string bytes(static_cast<std::size_t>(GetFileSize(file.Get(), nullptr)), '\0');
    DWORD read = 0;
    if (!ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr))
        return {};
    bytes.resize(read);
    return bytes;
}

base::FileHandle OpenAlone(std::wstring_view path) {
    return base::FileHandle(
        CreateFileW(LongForm(path).c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
}

void WriteUtf16(std::wstring_view path, std::wstring_view text) {
    const std::wstring units = L"\uFEFF" + std::wstring(text);
    const auto bytes = base::BytesFromUnits(units);
    WriteAll(OpenForWriting(path), {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

TempTree::TempTree() : TempTree(BaseFolder()) {}

TempTree::TempTree(const std::wstring& base) {
    static int count = 0;
    root_ = base + L"\\" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++count);
    RemoveAll(root_);
    MakeFolders(root_);
}

TempTree::~TempTree() {
    RemoveAll(root_);
}

std::wstring TempTree::Path(std::wstring_view relative) const {
    return root_ + L'\\' + std::wstring(relative);
}

std::wstring TempTree::MakeFolder(std::wstring_view relative, DWORD attributes) const {
    const std::wstring path = Path(relative);
    MakeFolders(path);
    SetFileAttributesW(LongForm(path).c_str(), attributes);
    return path;
}

std::wstring TempTree::WriteFile(std::wstring_view relative, std::string_view content, double seconds,
                                 DWORD attributes) const {
    const std::wstring path = Path(relative);
    MakeFolders(path.substr(0, path.rfind(L'\\')));
    {
        const base::FileHandle file = OpenForWriting(path);
        WriteAll(file, content);
        const FILETIME time = TimeAfterMoment(seconds);
        SetFileTime(file.Get(), &time, &time, &time);
    }
    if (attributes != FILE_ATTRIBUTE_NORMAL)
        SetFileAttributesW(LongForm(path).c_str(), attributes);
    return path;
}

std::wstring TempTree::MakeSample(std::wstring_view relative) const {
    const std::wstring top(relative);
    WriteFile(top + L"\\写真\\夏休み 2020.txt", "summer");
    WriteFile(top + L"\\写真\\深い\\もっと深い\\底.bin", std::string("\0\x01\xFF\r\n", 5));
    WriteFile(top + L"\\read only.txt", "fixed", 0, FILE_ATTRIBUTE_READONLY);
    WriteFile(top + L"\\hidden.txt", "unseen", 0, FILE_ATTRIBUTE_HIDDEN);
    WriteFile(top + L"\\empty.txt", "");
    // Wine's host file systems count bytes, so the long name is of one-byte characters.
    WriteFile(top + L"\\" + std::wstring(196, L'n') + L".txt", "long name");
    WriteFile(top + L"\\large.bin", std::string(300000, 'L'));
    MakeFolder(top + L"\\空のフォルダー");
    return Path(top);
}

}  // namespace ferry::e2e
