// The folder lookup over real folders, and the order of texts against that of Windows.
#include <windows.h>
#include <gtest/gtest.h>

#include "base/case_order.h"
#include "completion/candidates.h"
#include "files/disk_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::completion {
namespace {

using Texts = std::vector<std::wstring>;

class CompletionOnDisk : public testing::Test {
protected:
    void SetUp() override {
        test::MakeFolders(folder_ / L"My Windows");
        test::MakeFolders(folder_ / L"windmill");
        test::MakeFolders(folder_ / L"other");
        test::WriteUnits(folder_ / L"window.txt", L"x");
    }

    test::TempFolder folder_;
    files::DiskSearch search_;
    files::DiskInfo info_;
};

TEST_F(CompletionOnDisk, FindsNamesThatContainTheTypedPart) {
    EXPECT_EQ(FindCandidates(search_, folder_ / L"wind", true),
              (Texts{folder_ / L"My Windows\\", folder_ / L"windmill\\"}));
    EXPECT_EQ(FindCandidates(search_, folder_ / L"wind", false),
              (Texts{folder_ / L"My Windows\\", folder_ / L"windmill\\", folder_ / L"window.txt"}));
}

TEST_F(CompletionOnDisk, FindsNamesThatBeginWithASingleTypedLetter) {
    EXPECT_EQ(FindCandidates(search_, folder_ / L"w", true), Texts{folder_ / L"windmill\\"});
}

TEST_F(CompletionOnDisk, LooksIntoFoldersOfAnyLength) {
    const std::wstring longFolder = folder_.LongFolder();
    test::MakeFolders(longFolder + L"\\below");
    EXPECT_EQ(FindCandidates(search_, longFolder + L"\\", true), Texts{longFolder + L"\\below\\"});
    EXPECT_EQ(info_.Attributes(longFolder) & FILE_ATTRIBUTE_DIRECTORY, FILE_ATTRIBUTE_DIRECTORY);
}

TEST_F(CompletionOnDisk, FindsNothingWhereThereIsNothing) {
    EXPECT_EQ(FindCandidates(search_, folder_ / L"missing\\", true), Texts{});
    EXPECT_EQ(FindCandidates(search_, folder_ / L"window.txt\\", true), Texts{});
    EXPECT_EQ(FindCandidates(search_, L"\\\\", true), Texts{});
    EXPECT_EQ(FindCandidates(search_, L"\\\\no-such-server.invalid\\share\\", true), Texts{});
    EXPECT_EQ(FindCandidates(search_, L"C:\\|<>\"", true), Texts{});
    EXPECT_EQ(info_.Attributes(folder_ / L"missing"), INVALID_FILE_ATTRIBUTES);
}

TEST_F(CompletionOnDisk, TakesFoldersForFoldersWhateverElseTheyAre) {
    constexpr DWORD kMore = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_READONLY;
    const test::WatchedImport<&FindFirstFileW> plain("FindFirstFileW",
                                                     [&](LPCWSTR pattern, LPWIN32_FIND_DATAW data) {
                                                         const HANDLE search = plain.CallReal(pattern, data);
                                                         data->dwFileAttributes |= kMore;
                                                         return search;
                                                     });
    const test::WatchedImport<&FindFirstFileExW> extended(
        "FindFirstFileExW", [&](LPCWSTR pattern, FINDEX_INFO_LEVELS level, LPVOID data,
                                FINDEX_SEARCH_OPS what, LPVOID filter, DWORD flags) {
            const HANDLE search = extended.CallReal(pattern, level, data, what, filter, flags);
            static_cast<WIN32_FIND_DATAW*>(data)->dwFileAttributes |= kMore;
            return search;
        });
    EXPECT_EQ(FindCandidates(search_, folder_ / L"other", true), Texts{folder_ / L"other\\"});
}

TEST_F(CompletionOnDisk, KeepsNoSearchOpen) {
    const test::WatchedImport<&FindClose> close("FindClose");
    search_.Search(folder_ / L"*", [](const files::Match&) { return true; });
    EXPECT_EQ(close.Calls().size(), 1U);
    search_.Search(folder_ / L"*", [](const files::Match&) { return false; });
    EXPECT_EQ(close.Calls().size(), 2U);
}

TEST_F(CompletionOnDisk, ASearchGoesOnToItsEndWhenTheFolderVanishes) {
    const std::wstring vanishing = folder_ / L"vanishing";
    for (int index = 0; index < 50; ++index) {
        test::MakeFolders(vanishing + L"\\sub" + std::to_wstring(index));
    }
    std::size_t seen = 0;
    search_.Search(vanishing + L"\\*", [&](const files::Match&) {
        if (++seen == 5) {
            for (int index = 0; index < 50; ++index) {
                RemoveDirectoryW((vanishing + L"\\sub" + std::to_wstring(index)).c_str());
            }
        }
        return true;
    });
    EXPECT_GE(seen, 5U);
    // A folder that is being searched goes with the search's end at the latest.
    RemoveDirectoryW(vanishing.c_str());
    ASSERT_FALSE(test::Exists(vanishing));
    EXPECT_EQ(FindCandidates(search_, vanishing + L"\\", true), Texts{});
}

TEST(ToSmall, AgreesWithWindowsForEveryLetterThatItMaps) {
    int mapped = 0;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const auto letter = static_cast<wchar_t>(unit);
        const wchar_t small = base::ToSmall(letter);
        if (small != letter) {
            ++mapped;
            wchar_t expected = letter;
            CharLowerBuffW(&expected, 1);
            EXPECT_EQ(small, expected) << std::hex << unit;
        }
    }
    EXPECT_GT(mapped, 500);
}

}  // namespace
}  // namespace ferry::completion
