#include "disk_win32.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <memory>

#include "base/case_order.h"
#include "base/handles_win32.h"
#include "item_path.h"

namespace ferry::fileop {
namespace {

using base::FileHandle;
using base::FindHandle;

FileHandle OpenFile(const std::wstring& path, DWORD access, DWORD share, DWORD creation, DWORD flags) {
    return FileHandle(CreateFileW(path.c_str(), access, share, nullptr, creation, flags, nullptr));
}

// Folders are limited to 248 characters without the prefix, files to 260; a temporary's name may
// be longer than its target's.
constexpr std::size_t kLongPathLength = 220;
constexpr std::uint64_t kSmallestBlock = 4096;
constexpr std::uint64_t kLargestBlock = std::uint64_t{1} << 20;

std::wstring LongForm(const std::wstring& path) {
    if (path.size() < kLongPathLength || path.starts_with(L"\\\\?\\")) {
        return path;
    }
    return path.starts_with(L"\\\\") ? L"\\\\?\\UNC" + path.substr(1) : L"\\\\?\\" + path;
}

// The code of the last error for a call that failed; never 0, which would read as success.
std::uint32_t LastError() noexcept {
    const DWORD code = GetLastError();
    return code == 0 ? ERROR_GEN_FAILURE : code;
}

std::uint32_t CodeOf(BOOL succeeded) noexcept {
    return succeeded ? 0 : LastError();
}

// Clears the read-only attribute, which forbids replacing and removing; gives the old attributes.
DWORD MakeWritable(const std::wstring& longPath) noexcept {
    const DWORD attributes = GetFileAttributesW(longPath.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        // A failure shows in the call that follows.
        SetFileAttributesW(longPath.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    }
    return attributes;
}

void RestoreAttributes(const std::wstring& longPath, DWORD attributes) noexcept {
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        SetFileAttributesW(longPath.c_str(), attributes);  // best effort: the item itself is untouched
    }
}

// What is read-only cannot be removed; what stays has its old attributes again.
std::uint32_t RemoveBy(BOOL(WINAPI* remove)(const wchar_t*), const std::wstring& path) {
    const std::wstring longPath = LongForm(path);
    const DWORD attributes = MakeWritable(longPath);
    if (remove(longPath.c_str())) {
        return 0;
    }
    const std::uint32_t code = LastError();
    RestoreAttributes(longPath, attributes);
    return code;
}

bool ReadIdentity(const std::wstring& path, BY_HANDLE_FILE_INFORMATION& identity) {
    const FileHandle file =
        OpenFile(LongForm(path), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                 OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    return file && GetFileInformationByHandle(file.Get(), &identity) != 0;
}

/// Copies what can be read; the source had `size` bytes when it was looked at.
std::uint32_t CopyBlocks(HANDLE source, HANDLE target, std::uint64_t size,
                         const std::function<bool()>& goesOn) {
    const auto blockSize = static_cast<DWORD>(std::clamp(size, kSmallestBlock, kLargestBlock));
    const auto block = std::make_unique_for_overwrite<char[]>(blockSize);
    std::uint64_t copied = 0;
    for (;;) {
        if (!goesOn()) {
            return kErrorRequestAborted;
        }
        DWORD got = 0;
        if (!ReadFile(source, block.get(), blockSize, &got, nullptr)) {
            return LastError();
        }
        if (got == 0) {
            break;
        }
        DWORD put = 0;
        if (!WriteFile(target, block.get(), got, &put, nullptr)) {
            return LastError();
        }
        if (put != got) {
            return ERROR_DISK_FULL;
        }
        copied += got;
    }
    LARGE_INTEGER written{};
    if (!GetFileSizeEx(target, &written)) {
        return LastError();
    }
    return static_cast<std::uint64_t>(written.QuadPart) == copied ? 0 : kErrorInvalidData;
}

bool IsSpelledAs(const std::wstring& path) {
    WIN32_FIND_DATAW found{};
    const FindHandle search(FindFirstFileW(LongForm(path).c_str(), &found));
    return !search || NameOf(path) == found.cFileName;
}

/// Whether both paths may name one entry of one folder: they differ in case, or in blanks and dots at the
/// end.
bool MayBeOneName(std::wstring_view from, std::wstring_view to) {
    const auto trimmed = [](std::wstring_view name) {
        return name.substr(0, name.find_last_not_of(L". ") + 1);
    };
    return base::EqualsIgnoringCase(trimmed(from), trimmed(to));
}

// Wine takes a new spelling of a name for no change at all and reports success; there it takes
// two steps. When the second fails the first is taken back.
std::uint32_t Respell(const std::wstring& from, const std::wstring& to, const std::wstring& temporary) {
    const std::wstring between = LongForm(temporary);
    if (!MoveFileExW(LongForm(from).c_str(), between.c_str(), 0)) {
        return LastError();
    }
    const std::uint32_t code = CodeOf(MoveFileExW(between.c_str(), LongForm(to).c_str(), 0));
    if (code != 0) {
        MoveFileExW(between.c_str(), LongForm(from).c_str(), 0);  // best effort: the first error tells
    }
    return code;
}

}  // namespace

ItemKind WindowsDisk::Kind(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(LongForm(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return ItemKind::Missing;
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        return ItemKind::File;
    }
    return (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 ? ItemKind::Link : ItemKind::Folder;
}

std::uint32_t WindowsDisk::List(const std::wstring& folder, std::vector<std::wstring>& names) {
    names.clear();
    WIN32_FIND_DATAW found{};
    const FindHandle search(FindFirstFileW(LongForm(JoinPath(folder, L"*")).c_str(), &found));
    if (!search) {
        return LastError();
    }
    do {
        const std::wstring_view name = found.cFileName;
        if (name != L"." && name != L"..") {
            names.emplace_back(name);
        }
    } while (FindNextFileW(search.Get(), &found));
    const DWORD code = GetLastError();
    return code == ERROR_NO_MORE_FILES ? 0 : code;
}

bool WindowsDisk::IsSame(const std::wstring& left, const std::wstring& right) {
    BY_HANDLE_FILE_INFORMATION one{};
    BY_HANDLE_FILE_INFORMATION two{};
    if (!ReadIdentity(left, one) || !ReadIdentity(right, two)) {
        return false;
    }
    // Under Wine a drive may span several file systems, each with its own numbers; the times and
    // the size keep two different items with the same number apart.
    return one.dwVolumeSerialNumber == two.dwVolumeSerialNumber && one.nFileIndexHigh == two.nFileIndexHigh &&
           one.nFileIndexLow == two.nFileIndexLow && one.nFileSizeHigh == two.nFileSizeHigh &&
           one.nFileSizeLow == two.nFileSizeLow &&
           CompareFileTime(&one.ftLastWriteTime, &two.ftLastWriteTime) == 0 &&
           CompareFileTime(&one.ftCreationTime, &two.ftCreationTime) == 0;
}

std::wstring WindowsDisk::TemporaryBeside(const std::wstring& path) {
    static std::atomic<std::uint32_t> counter{0};
    return JoinPath(std::wstring(FolderOf(path)), L"~ferry" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                                                      std::to_wstring(++counter) + L".tmp");
}

std::uint32_t WindowsDisk::Copy(const std::wstring& source, const std::wstring& target, bool settles,
                                const std::function<bool()>& goesOn) {
    // Not CopyFileExW: Wine's ignores the progress routine, so nobody could stop it half-way.
    const FileHandle from = OpenFile(LongForm(source), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                     OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN);
    BY_HANDLE_FILE_INFORMATION facts{};
    if (!from || !GetFileInformationByHandle(from.Get(), &facts)) {
        return LastError();
    }
    const FileHandle to = OpenFile(LongForm(target), GENERIC_READ | GENERIC_WRITE, 0, CREATE_NEW, 0);
    if (!to) {
        return LastError();
    }
    const std::uint64_t size = (std::uint64_t{facts.nFileSizeHigh} << 32) | facts.nFileSizeLow;
    if (const std::uint32_t code = CopyBlocks(from.Get(), to.Get(), size, goesOn); code != 0) {
        return code;
    }
    if (settles && !FlushFileBuffers(to.Get())) {
        return LastError();
    }
    constexpr DWORD kKept = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                            FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    // A copy always has the archive attribute, as with CopyFileW.
    FILE_BASIC_INFO basic{};
    basic.LastWriteTime.LowPart = facts.ftLastWriteTime.dwLowDateTime;
    basic.LastWriteTime.HighPart = static_cast<LONG>(facts.ftLastWriteTime.dwHighDateTime);
    basic.FileAttributes = (facts.dwFileAttributes & kKept) | FILE_ATTRIBUTE_ARCHIVE;
    return CodeOf(SetFileInformationByHandle(to.Get(), FileBasicInfo, &basic, sizeof(basic)));
}

std::uint32_t WindowsDisk::Rename(const std::wstring& from, const std::wstring& to, bool replaces) {
    const std::wstring longTo = LongForm(to);
    if (!replaces) {
        const std::uint32_t code = CodeOf(MoveFileExW(LongForm(from).c_str(), longTo.c_str(), 0));
        if (code != 0 || !MayBeOneName(from, to)) {
            return code;
        }
        // What has left its place is done with, however its new name came out: "b." becomes "b".
        const bool isStillThere = Kind(from) != ItemKind::Missing;
        return isStillThere && !IsSpelledAs(to) ? Respell(from, to, TemporaryBeside(to)) : 0;
    }
    const DWORD attributes = MakeWritable(longTo);
    if (MoveFileExW(LongForm(from).c_str(), longTo.c_str(), MOVEFILE_REPLACE_EXISTING)) {
        return 0;
    }
    const std::uint32_t code = LastError();
    RestoreAttributes(longTo, attributes);
    return code;
}

std::uint32_t WindowsDisk::MakeFile(const std::wstring& path, std::uint32_t attributes) {
    const FileHandle file = OpenFile(LongForm(path), GENERIC_WRITE, 0, CREATE_NEW, attributes);
    return file ? 0 : LastError();
}

std::uint32_t WindowsDisk::MakeFolder(const std::wstring& path) {
    const std::uint32_t code = CodeOf(CreateDirectoryW(LongForm(path).c_str(), nullptr));
    const std::wstring parent(FolderOf(path));
    if (code != ERROR_PATH_NOT_FOUND || parent.empty() || Kind(parent) != ItemKind::Missing) {
        return code;
    }
    const std::uint32_t parentCode = MakeFolder(parent);
    return parentCode != 0 ? parentCode : CodeOf(CreateDirectoryW(LongForm(path).c_str(), nullptr));
}

std::uint32_t WindowsDisk::CopyFolderAttributes(const std::wstring& source, const std::wstring& target) {
    const DWORD attributes = GetFileAttributesW(LongForm(source).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return LastError();
    }
    constexpr DWORD kKept = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                            FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    const DWORD kept = attributes & kKept;
    return CodeOf(SetFileAttributesW(LongForm(target).c_str(), kept != 0 ? kept : FILE_ATTRIBUTE_NORMAL));
}

std::uint32_t WindowsDisk::RemoveFile(const std::wstring& path) {
    return RemoveBy(&DeleteFileW, path);
}

std::uint32_t WindowsDisk::RemoveFolder(const std::wstring& path) {
    return RemoveBy(&RemoveDirectoryW, path);
}

}  // namespace ferry::fileop
