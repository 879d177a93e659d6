// The file system port over real folders.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which it builds on.
#include <oleauto.h>
#include <shlobj.h>
#include <winioctl.h>

#include <cstdio>
#include <vector>

#include "base/handles_win32.h"
#include "calendar/clock_win32.h"
#include "files/disk_win32.h"
#include "transfer/item_engine.h"
#include "windows/local_times_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::files {
namespace {

using Names = std::vector<std::wstring>;

/// The file time of a local date and time, as one number.
std::uint64_t TicksOfLocal(const SYSTEMTIME& fields) {
    const FILETIME utc = test::FileTimeOfLocal(fields);
    return (static_cast<std::uint64_t>(utc.dwHighDateTime) << 32) | utc.dwLowDateTime;
}

class DiskTest : public testing::Test {
protected:
    Names List(const std::wstring& folder) {
        Names names;
        ForEachEntry(search_, folder, [&](const Match& item) {
            names.emplace_back(item.Name);
            return true;
        });
        return names;
    }

    test::TempFolder folder_;
    DiskInfo info_;
    DiskSearch search_;
    DiskChanges changes_;
    calendar::SystemClock clock_;
};

TEST_F(DiskTest, EnumeratesInTheOrderOfTheSearchWithoutDots) {
    for (const wchar_t* name : {L"c", L"a", L".hidden", L"..two", L"b"}) {
        test::WriteUnits(folder_ / name, name);
    }
    test::MakeFolders(folder_ / L"folder");
    Names expected;
    WIN32_FIND_DATAW data;
    const base::FindHandle search(FindFirstFileW((folder_ / L"*").c_str(), &data));
    do {
        const std::wstring name = data.cFileName;
        if (name != L"." && name != L"..") {
            expected.push_back(name);
        }
    } while (FindNextFileW(search.Get(), &data));
    EXPECT_EQ(expected.size(), 6U);
    EXPECT_EQ(List(folder_.Path()), expected);
    EXPECT_EQ(List(folder_.Path() + L"\\"), expected);
}

TEST_F(DiskTest, VisitMayEnumerateInTurn) {
    test::MakeFolders(folder_ / L"outer\\inner");
    test::WriteUnits(folder_ / L"outer\\inner\\file", L"x");
    Names seen;
    ForEachEntry(search_, folder_ / L"outer", [&](const Match& item) {
        const Names inside = List(folder_ / (L"outer\\" + std::wstring(item.Name)));
        seen.insert(seen.end(), inside.begin(), inside.end());
        seen.emplace_back(item.Name);
        return true;
    });
    EXPECT_EQ(seen, (Names{L"file", L"inner"}));
}

TEST_F(DiskTest, FolderThatCannotBeReadHasNoEntries) {
    test::WriteUnits(folder_ / L"file", L"x");
    EXPECT_TRUE(List(folder_ / L"missing").empty());
    EXPECT_TRUE(List(folder_ / L"file").empty());
}

TEST_F(DiskTest, FindsItemsWithAttributesAndTime) {
    const std::wstring file = folder_ / L"file";
    test::WriteUnits(file, L"x");
    constexpr std::uint64_t kTime = 132539328001234567ULL;
    const FILETIME time{static_cast<DWORD>(kTime), static_cast<DWORD>(kTime >> 32)};
    {
        const base::FileHandle handle(
            CreateFileW(file.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(SetFileTime(handle.Get(), nullptr, nullptr, &time));
    }
    ASSERT_TRUE(changes_.SetAttributes(file, FILE_ATTRIBUTE_READONLY));
    const auto found = info_.Find(file);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->LastWriteTime, kTime);
    EXPECT_NE(found->Attributes & FILE_ATTRIBUTE_READONLY, 0U);
    EXPECT_FALSE(info_.Find(folder_ / L"missing"));
    EXPECT_NE(info_.Find(folder_.Path())->Attributes & kAttributeDirectory, 0U);
}

TEST_F(DiskTest, FindsNothingWhereNothingCanBe) {
    test::WriteUnits(folder_ / L"file", L"x");
    for (const wchar_t* name : {L"missing", L"missing\\below", L"file\\below", L"not<a>name"}) {
        EXPECT_FALSE(info_.Find(folder_ / name)) << name;
    }
    EXPECT_FALSE(info_.Find(folder_.LongFolder() + L"\\missing"));
    EXPECT_TRUE(info_.Find(folder_ / L"file")->IsTimeKnown);
}

constexpr DWORD kSurelyMissing[] = {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_NO_MORE_FILES,
                                    ERROR_INVALID_NAME,   ERROR_BAD_PATHNAME,   ERROR_FILENAME_EXCED_RANGE,
                                    ERROR_DIRECTORY};
constexpr DWORD kUnknown[] = {ERROR_ACCESS_DENIED, ERROR_NOT_READY,       ERROR_BAD_NETPATH,
                              ERROR_BAD_NET_NAME,  ERROR_NETNAME_DELETED, ERROR_SEM_TIMEOUT};

/// Lets every search fail with one error: the one of the plain call and that of the extended one, of which
/// the program takes whichever suits the system.
class FailingSearches {
public:
    explicit FailingSearches(DWORD error) : error_(error) {}

    std::vector<std::wstring> Patterns;

private:
    HANDLE Fail(LPCWSTR pattern) {
        Patterns.emplace_back(pattern);
        SetLastError(error_);
        return INVALID_HANDLE_VALUE;
    }

    DWORD error_;
    test::WatchedImport<&FindFirstFileW> plain_{
        "FindFirstFileW", [this](LPCWSTR pattern, LPWIN32_FIND_DATAW) { return Fail(pattern); }};
    test::WatchedImport<&FindFirstFileExW> extended_{
        "FindFirstFileExW", [this](LPCWSTR pattern, FINDEX_INFO_LEVELS, LPVOID, FINDEX_SEARCH_OPS, LPVOID,
                                   DWORD) { return Fail(pattern); }};
};

/// Lets searches fail with one error and looks at attributes with another, or succeed.
class FailingLooks {
public:
    explicit FailingLooks(DWORD searchError) : searches_(searchError) {}

    DWORD AttributesError = ERROR_SUCCESS;
    WIN32_FILE_ATTRIBUTE_DATA Attributes{};

    std::size_t LooksWithoutSearch() const { return look_.Calls().size(); }

private:
    FailingSearches searches_;
    test::WatchedImport<&GetFileAttributesExW> look_{
        "GetFileAttributesExW", [this](LPCWSTR, GET_FILEEX_INFO_LEVELS level, LPVOID data) {
            EXPECT_EQ(level, GetFileExInfoStandard);
            *static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(data) = Attributes;
            SetLastError(AttributesError);
            return AttributesError == ERROR_SUCCESS ? TRUE : FALSE;
        }};
};

TEST_F(DiskTest, ASearchThatSaysSoMeansThatNothingIsThere) {
    for (const DWORD error : kSurelyMissing) {
        const FailingLooks looks(error);
        EXPECT_FALSE(info_.Find(folder_ / L"a.txt")) << error;
        EXPECT_EQ(looks.LooksWithoutSearch(), 0U) << error;
    }
}

TEST_F(DiskTest, APlaceThatCannotBeSearchedIsLookedAtByItsAttributes) {
    for (const DWORD error : kUnknown) {
        FailingLooks looks(error);
        looks.Attributes.dwFileAttributes = FILE_ATTRIBUTE_HIDDEN;
        looks.Attributes.ftLastWriteTime = {0x12345678, 0x01DA0000};
        const auto found = info_.Find(folder_ / L"a.txt");
        ASSERT_TRUE(found) << error;
        EXPECT_TRUE(found->IsTimeKnown);
        EXPECT_EQ(found->Attributes, DWORD{FILE_ATTRIBUTE_HIDDEN});
        EXPECT_EQ(found->LastWriteTime, 0x01DA000012345678ULL);
    }
}

TEST_F(DiskTest, APlaceThatCannotBeLookedAtAtAllCountsAsTakenAtAnUnknownTime) {
    for (const DWORD error : kUnknown) {
        FailingLooks looks(ERROR_ACCESS_DENIED);
        looks.AttributesError = error;
        const auto found = info_.Find(folder_ / L"a.txt");
        ASSERT_TRUE(found) << error;
        EXPECT_FALSE(found->IsTimeKnown);
    }
}

TEST_F(DiskTest, AttributesThatAreMissingMeanThatNothingIsThere) {
    for (const DWORD error : kSurelyMissing) {
        FailingLooks looks(ERROR_ACCESS_DENIED);
        looks.AttributesError = error;
        EXPECT_FALSE(info_.Find(folder_ / L"a.txt")) << error;
        EXPECT_EQ(looks.LooksWithoutSearch(), 1U);
    }
}

TEST_F(DiskTest, ReadsAndSetsAttributes) {
    const std::wstring file = folder_ / L"file";
    test::WriteUnits(file, L"x");
    EXPECT_EQ(info_.Attributes(file) & (kAttributeDirectory | FILE_ATTRIBUTE_READONLY), 0U);
    EXPECT_TRUE(changes_.SetAttributes(file, FILE_ATTRIBUTE_READONLY));
    EXPECT_NE(info_.Attributes(file) & FILE_ATTRIBUTE_READONLY, 0U);
    EXPECT_NE(info_.Attributes(folder_.Path()) & kAttributeDirectory, 0U);
    EXPECT_TRUE(changes_.SetAttributes(folder_.Path(), kAttributeDirectory));
    EXPECT_EQ(info_.Attributes(folder_ / L"missing"), kInvalidAttributes);
    EXPECT_FALSE(changes_.SetAttributes(folder_ / L"missing", 0));
}

TEST_F(DiskTest, TellsSizesAndZeroForWhatCannotBeOpened) {
    const std::wstring file = folder_ / L"file";
    test::WriteUnits(file, L"12345");
    EXPECT_EQ(info_.Size(file), 10U);
    EXPECT_EQ(info_.Size(folder_ / L"missing"), 0U);
    EXPECT_EQ(info_.Size(folder_.Path()), 0U);
    const base::FileHandle locked(
        CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(info_.Size(file), 0U);
}

TEST_F(DiskTest, TellsTheSizeOfAFileThatSomebodyWrites) {
    const std::wstring file = folder_ / L"file";
    test::WriteUnits(file, L"12345");
    const base::FileHandle writer(CreateFileW(file.c_str(), GENERIC_WRITE | DELETE,
                                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                              OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(writer);
    EXPECT_EQ(info_.Size(file), 10U);
}

TEST_F(DiskTest, TellsSizesAboveFourGigabytes) {
    const std::wstring file = folder_ / L"sparse";
    {
        const base::FileHandle handle(
            CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
        // Best effort: where a volume cannot do it, it keeps such a file without its zeros anyway, or needs
        // the room.
        DWORD returned = 0;
        DeviceIoControl(handle.Get(), FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &returned, nullptr);
        LARGE_INTEGER size{};
        size.QuadPart = 0x140000000LL;
        ASSERT_TRUE(SetFilePointerEx(handle.Get(), size, nullptr, FILE_BEGIN));
        ASSERT_TRUE(SetEndOfFile(handle.Get()));
    }
    EXPECT_EQ(info_.Size(file), 0x140000000ULL);
}

TEST_F(DiskTest, MakesFoldersWithTheirParents) {
    EXPECT_EQ(changes_.MakeFolder(folder_ / L"one\\two\\three"), kFolderMade);
    EXPECT_TRUE(test::Exists(folder_ / L"one\\two\\three"));
    EXPECT_EQ(changes_.MakeFolder(folder_ / L"one\\two"), kFolderExists);
    test::WriteUnits(folder_ / L"file", L"x");
    const int below = changes_.MakeFolder(folder_ / L"file\\below");
    EXPECT_NE(below, kFolderMade);
    EXPECT_NE(below, kFolderExists);
    EXPECT_NE(changes_.MakeFolder(L"relative"), kFolderMade);
}

TEST_F(DiskTest, WorksOnLongPaths) {
    const std::wstring start = folder_.LongFolder();
    const std::wstring deep = start + L"\\" + std::wstring(80, L'e') + L"\\" + std::wstring(80, L'f');
    ASSERT_EQ(changes_.MakeFolder(deep), kFolderMade);
    EXPECT_EQ(changes_.MakeFolder(deep), kFolderExists);
    test::WriteUnits(deep + L"\\file", L"123");
    EXPECT_EQ(List(deep), (Names{L"file"}));
    EXPECT_TRUE(info_.Find(deep + L"\\file"));
    EXPECT_EQ(info_.Size(deep + L"\\file"), 6U);
    EXPECT_TRUE(changes_.Rename(deep + L"\\file", deep + L"\\other"));
    EXPECT_TRUE(changes_.SetAttributes(deep + L"\\other", FILE_ATTRIBUTE_NORMAL));
    EXPECT_NE(info_.Attributes(deep + L"\\other"), kInvalidAttributes);
    EXPECT_FALSE(changes_.RemoveFolder(deep));
    ASSERT_TRUE(changes_.Rename(deep + L"\\other", folder_ / L"short"));
    EXPECT_TRUE(changes_.RemoveFolder(deep));
    EXPECT_FALSE(test::Exists(deep));
}

TEST_F(DiskTest, LongFolderBelowAFileIsNotMade) {
    const std::wstring file = folder_.LongFolder() + L"\\file";
    test::WriteUnits(file, L"x");
    const int result = changes_.MakeFolder(file + L"\\below\\deeper");
    EXPECT_NE(result, kFolderMade);
    EXPECT_NE(result, kFolderExists);
}

TEST_F(DiskTest, RemovesEmptyFoldersOnly) {
    test::MakeFolders(folder_ / L"inner");
    test::WriteUnits(folder_ / L"inner\\file", L"x");
    EXPECT_FALSE(changes_.RemoveFolder(folder_ / L"inner"));
    ASSERT_TRUE(DeleteFileW((folder_ / L"inner\\file").c_str()));
    EXPECT_TRUE(changes_.RemoveFolder(folder_ / L"inner"));
    EXPECT_FALSE(changes_.RemoveFolder(folder_ / L"inner"));
}

TEST_F(DiskTest, RenamesButNeverOverAnExistingItem) {
    test::WriteUnits(folder_ / L"a", L"first");
    test::WriteUnits(folder_ / L"b", L"second");
    EXPECT_FALSE(changes_.Rename(folder_ / L"a", folder_ / L"b"));
    EXPECT_EQ(test::ReadUnits(folder_ / L"b"), L"second");
    EXPECT_TRUE(changes_.Rename(folder_ / L"a", folder_ / L"c"));
    EXPECT_EQ(test::ReadUnits(folder_ / L"c"), L"first");
    EXPECT_FALSE(changes_.Rename(folder_ / L"a", folder_ / L"d"));
}

TEST_F(DiskTest, KnowsRoots) {
    for (const wchar_t* root : {L"C:\\", L"\\\\server\\share", L"\\"}) {
        EXPECT_TRUE(info_.IsRoot(root)) << root;
    }
    for (const wchar_t* other :
         {L"C:\\folder", L"C:\\folder\\", L"\\\\server\\share\\folder", L"C:", L"", L"name"}) {
        EXPECT_FALSE(info_.IsRoot(other)) << other;
    }
}

TEST_F(DiskTest, LocalDatesDropMillisecondsAndFollowTheTimeZone) {
    const SYSTEMTIME noon{2020, 6, 3, 17, 12, 30, 15, 999};
    const double seconds = 12 * 3600 + 30 * 60 + 15;
    EXPECT_NEAR(clock_.LocalDate(TicksOfLocal(noon)), 43999 + seconds / 86400, 1e-9);
}

TEST_F(DiskTest, DatesBeforeTheEpochCountTheirTimeOfDayAwayFromZero) {
    const std::pair<SYSTEMTIME, double> cases[] = {
        {{1899, 12, 0, 30, 6, 0, 0, 0}, 0.25},      {{1899, 12, 0, 29, 6, 0, 0, 999}, -1.25},
        {{1899, 12, 0, 28, 18, 0, 0, 0}, -2.75},    {{1602, 1, 0, 1, 12, 0, 0, 0}, -108'840.5},
        {{1969, 12, 0, 31, 12, 0, 0, 0}, 25'568.5},
    };
    for (const auto& [local, expected] : cases) {
        EXPECT_NEAR(clock_.LocalDate(TicksOfLocal(local)), expected, 1e-9) << local.wYear;
    }
}

TEST_F(DiskTest, TheTimeTestCountsWholeSecondsInEveryCentury) {
    constexpr std::uint64_t kSecond = 10'000'000;
    constexpr WORD kYears[] = {1602, 1898, 1899, 1900, 1969, 1970, 2024, 2399, 9998};
    for (const WORD year : kYears) {
        const std::uint64_t midnight = TicksOfLocal({year, 12, 0, 31, 0, 0, 0, 0});
        for (std::uint64_t second = 0; second < 86'400; second += 997) {
            const std::uint64_t earlier = midnight + second * kSecond;
            for (std::uint64_t apart = 0; apart <= 4; ++apart) {
                const std::uint64_t later = earlier + apart * kSecond + kSecond - 1;
                for (const std::uint32_t precision : {1U, 2U}) {
                    ASSERT_EQ(transfer::IsNewer(clock_, later, earlier, precision), apart > precision)
                        << year << " " << second << " " << apart << " " << precision;
                    ASSERT_FALSE(transfer::IsNewer(clock_, earlier, later, precision));
                }
            }
        }
    }
}

TEST_F(DiskTest, TimeThatCannotBeConvertedIsDateZero) {
    EXPECT_EQ(clock_.LocalDate(0xFFFFFFFFFFFFFFFFULL), 0.0);
}

TEST_F(DiskTest, FoldersAreMadeWithoutAWindow) {
    const test::WatchedImport<&SHCreateDirectory> make("SHCreateDirectory");
    EXPECT_EQ(changes_.MakeFolder(folder_ / L"new"), kFolderMade);
    EXPECT_EQ(std::get<0>(make.OnlyCall()), nullptr);
}

TEST_F(DiskTest, AFolderThatThePlainFormIsTooLongForIsMadeWithThePrefix) {
    // Windows refuses plain paths of 248 to 259 units to folders, which need room for a short name.
    const test::WatchedImport<&SHCreateDirectory> make(
        "SHCreateDirectory", [](HWND, PCWSTR) -> int { return ERROR_FILENAME_EXCED_RANGE; });
    EXPECT_EQ(changes_.MakeFolder(folder_ / L"new\\below"), kFolderMade);
    EXPECT_TRUE(test::Exists(folder_ / L"new\\below"));
    EXPECT_EQ(changes_.MakeFolder(folder_ / L"new\\below"), kFolderExists);
}

TEST_F(DiskTest, AnItemThatItsServerDoesNotNumberIsLikeNoOther) {
    const test::WatchedImport<&GetFileInformationByHandle> look(
        "GetFileInformationByHandle", [&](HANDLE file, LPBY_HANDLE_FILE_INFORMATION info) {
            const BOOL done = look.CallReal(file, info);
            info->nFileIndexLow = info->nFileIndexHigh = 0;
            return done;
        });
    EXPECT_EQ(info_.Identity(folder_.Path()), std::nullopt);
}

/// Writes down the paths that the system is asked about.
class WatchedPaths {
public:
    std::vector<std::wstring> Seen;

private:
    test::WatchedImport<&GetFileAttributesW> attributes_{"GetFileAttributesW", [this](LPCWSTR path) {
                                                             Seen.emplace_back(path);
                                                             return attributes_.CallReal(path);
                                                         }};
    test::WatchedImport<&SetFileAttributesW> setAttributes_{
        "SetFileAttributesW", [this](LPCWSTR path, DWORD attributes) {
            Seen.emplace_back(path);
            return setAttributes_.CallReal(path, attributes);
        }};
    test::WatchedImport<&GetFileAttributesExW> look_{
        "GetFileAttributesExW", [this](LPCWSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data) {
            Seen.emplace_back(path);
            return look_.CallReal(path, level, data);
        }};
    test::WatchedImport<&CreateFileW> open_{
        "CreateFileW", [this](LPCWSTR path, DWORD access, DWORD sharing, LPSECURITY_ATTRIBUTES security,
                              DWORD how, DWORD flags, HANDLE model) {
            Seen.emplace_back(path);
            return open_.CallReal(path, access, sharing, security, how, flags, model);
        }};
    test::WatchedImport<&CreateDirectoryW> make_{"CreateDirectoryW",
                                                 [this](LPCWSTR path, LPSECURITY_ATTRIBUTES security) {
                                                     Seen.emplace_back(path);
                                                     return make_.CallReal(path, security);
                                                 }};
    test::WatchedImport<&RemoveDirectoryW> remove_{"RemoveDirectoryW", [this](LPCWSTR path) {
                                                       Seen.emplace_back(path);
                                                       return remove_.CallReal(path);
                                                   }};
    test::WatchedImport<&_wrename> rename_{"_wrename", [this](const wchar_t* from, const wchar_t* to) {
                                               Seen.emplace_back(from);
                                               Seen.emplace_back(to);
                                               return rename_.CallReal(from, to);
                                           }};
};

TEST_F(DiskTest, GivesTheSystemEveryLongPathInItsPrefixedForm) {
    const std::wstring path = folder_.LongFolder() + L"\\below";
    const std::wstring prefixed = L"\\\\?\\" + path;
    const WatchedPaths paths;
    const FailingSearches searches(ERROR_ACCESS_DENIED);
    changes_.MakeFolder(path);
    info_.Attributes(path);
    changes_.SetAttributes(path, kAttributeDirectory);
    ForEachEntry(search_, path, [](const Match&) { return true; });
    info_.Find(path);
    info_.Size(path);
    changes_.Rename(path, path + L"2");
    changes_.RemoveFolder(path);
    EXPECT_EQ(paths.Seen,
              (Names{prefixed, prefixed, prefixed, prefixed, prefixed, prefixed, prefixed + L"2", prefixed}));
    EXPECT_EQ(searches.Patterns, (Names{prefixed + L"\\*", prefixed}));
}

TEST_F(DiskTest, OpensAFileForItsSizeWithoutDisturbingAnybody) {
    const test::WatchedImport<&CreateFileW> open("CreateFileW");
    info_.Size(folder_ / L"missing");
    const auto [path, access, sharing, security, how, flags, model] = open.OnlyCall();
    EXPECT_EQ(access, DWORD{GENERIC_READ});
    EXPECT_EQ(sharing, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE});
    EXPECT_EQ(how, DWORD{OPEN_EXISTING});
}

}  // namespace
}  // namespace ferry::files
