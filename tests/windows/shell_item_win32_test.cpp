// Shell items of real paths, and of a shell that takes one form of them only.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which the shell's headers build on.
#include <shlobj.h>
#include <shlwapi.h>

#include <string_view>
#include <vector>

#include "base/com_ptr_win32.h"
#include "desktop/shell_item_win32.h"
#include "files/disk_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::desktop {
namespace {

class ShellItemTest : public testing::Test {
protected:
    base::ComApartment apartment_;
    test::TempFolder folder_;
    files::DiskInfo disk_;
};

/// To whom every path leads to the same item.
class OneItem final : public files::FileInfo {
public:
    std::uint32_t Attributes(std::wstring_view) override { return files::kAttributeDirectory; }
    std::optional<files::FoundItem> Find(std::wstring_view) override { return std::nullopt; }
    std::uint64_t Size(std::wstring_view) override { return 0; }
    bool IsRoot(std::wstring_view) override { return false; }
    std::optional<files::ItemId> Identity(std::wstring_view) override { return files::ItemId{1, 1}; }
};

TEST_F(ShellItemTest, ParsesFoldersWithAndWithoutTheirSeparator) {
    for (const std::wstring& path : {folder_.Path(), folder_.Path() + L"\\"}) {
        base::ComPtr<IShellItem> item;
        EXPECT_EQ(MakeShellItem(path, disk_, item), S_OK);
        EXPECT_TRUE(item);
    }
}

/// A shell that parses one form of paths only; what it parses is an item of the folder `any`.
class PickyShell {
public:
    PickyShell(const std::wstring& any, bool takesPrefixed)
        : parse_(
              "SHCreateItemFromParsingName",
              [this, any, takesPrefixed](PCWSTR path, IBindCtx* context, REFIID id, void** item) -> HRESULT {
                  Asked.emplace_back(path);
                  *item = nullptr;
                  if (Asked.back().starts_with(L"\\\\?\\") != takesPrefixed) {
                      return kRefused + static_cast<HRESULT>(Asked.size());
                  }
                  return parse_.CallReal(any.c_str(), context, id, item);
              }) {}

    static constexpr HRESULT kRefused = static_cast<HRESULT>(0x80040000);

    std::vector<std::wstring> Asked;

private:
    test::WatchedImport<&SHCreateItemFromParsingName> parse_;
};

TEST_F(ShellItemTest, OfALongPathIsMadeFromThePlainFormWhereTheShellTakesIt) {
    const std::wstring path = L"C:\\" + std::wstring(300, L'd');
    const PickyShell shell(folder_.Path(), false);
    OneItem info;
    base::ComPtr<IShellItem> item;
    EXPECT_EQ(MakeShellItem(path, info, item), S_OK);
    EXPECT_TRUE(item);
    EXPECT_EQ(shell.Asked, (std::vector{path}));
}

TEST_F(ShellItemTest, OfALongPathIsMadeFromThePrefixedFormWhereTheShellWantsThat) {
    const std::wstring path = L"C:\\" + std::wstring(300, L'd');
    const PickyShell shell(folder_.Path(), true);
    OneItem info;
    base::ComPtr<IShellItem> item;
    EXPECT_EQ(MakeShellItem(path, info, item), S_OK);
    EXPECT_TRUE(item);
    EXPECT_EQ(shell.Asked, (std::vector{path, L"\\\\?\\" + path}));
}

TEST_F(ShellItemTest, OfAShortPathIsAskedForOnce) {
    const PickyShell shell(folder_.Path(), true);
    base::ComPtr<IShellItem> item;
    EXPECT_EQ(MakeShellItem(L"C:\\short", disk_, item), PickyShell::kRefused + 1);
    EXPECT_FALSE(item);
    EXPECT_EQ(shell.Asked, std::vector<std::wstring>{L"C:\\short"});
}

TEST_F(ShellItemTest, IsNotMadeWhereTheShellFindsAnotherItem) {
    test::MakeFolders(folder_ / L"asked");
    test::MakeFolders(folder_ / L"other");
    const PickyShell shell(folder_ / L"other", false);
    base::ComPtr<IShellItem> item;
    EXPECT_EQ(MakeShellItem(folder_ / L"asked", disk_, item), HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    EXPECT_FALSE(item);
    EXPECT_EQ(shell.Asked.size(), 1U);
}

TEST_F(ShellItemTest, IsMadeOfAnotherSpellingOfTheSamePlace) {
    test::MakeFolders(folder_ / L"asked\\inner");
    for (const wchar_t* const spelling : {L"ASKED", L"asked\\", L"asked\\inner\\..", L"asked\\."}) {
        const PickyShell shell(folder_ / L"asked", false);
        base::ComPtr<IShellItem> item;
        EXPECT_EQ(MakeShellItem(folder_ / spelling, disk_, item), S_OK)
            << testing::PrintToString(std::wstring(spelling));
    }
}

TEST_F(ShellItemTest, MissingFileGivesNoItem) {
    base::ComPtr<IShellItem> item;
    EXPECT_TRUE(FAILED(MakeShellItem(folder_ / L"missing", disk_, item)));
    EXPECT_FALSE(item);
}

class ShellItemMakerTest : public ShellItemTest {
protected:
    /// The path of the item that is made of `path`; empty when none is.
    std::wstring Made(const std::wstring& path) {
        base::ComPtr<IShellItem> item;
        PWSTR text = nullptr;
        if (FAILED(maker_.Make(path, item)) || FAILED(item->GetDisplayName(SIGDN_FILESYSPATH, &text)))
            return {};
        std::wstring found(text);
        CoTaskMemFree(text);
        return found;
    }

    std::wstring File(const std::wstring& name) {
        test::WriteUnits(folder_ / name, L"x");
        return folder_ / name;
    }

    ShellItemMaker maker_{disk_};
};

TEST_F(ShellItemMakerTest, TakesOneWholePathOfAFolderApart) {
    test::MakeFolders(folder_ / L"b");
    const std::vector paths{File(L"one.txt"), folder_ / L"b", File(L"日本 語.txt"), File(L"b\\one.txt")};
    const std::vector others{File(L"b\\three"), File(L"b\\four")};
    const test::WatchedImport<&SHCreateItemFromParsingName> parse("SHCreateItemFromParsingName");
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(Made(paths[i]), paths[i]);
    EXPECT_EQ(parse.Calls().size(), 1U);
    for (const std::wstring& path : {paths[3], others[0], others[1]})
        EXPECT_EQ(Made(path), path);
    EXPECT_EQ(parse.Calls().size(), 2U);
}

TEST_F(ShellItemMakerTest, IsNotMisledByTheSeparatorAtAFoldersEnd) {
    test::MakeFolders(folder_ / L"inner");
    File(L"same.txt");
    EXPECT_EQ(Made(folder_ / L"inner\\"), folder_ / L"inner");
    EXPECT_EQ(Made(folder_ / L"inner\\same.txt"), L"");
    const std::wstring inner = File(L"inner\\same.txt");
    EXPECT_EQ(Made(inner), inner);
}

TEST_F(ShellItemMakerTest, ReadsDotsAsThePathDoes) {
    test::MakeFolders(folder_ / L"inner");
    const std::wstring inner = File(L"inner\\a.txt");
    EXPECT_EQ(Made(inner), inner);
    for (const wchar_t* const spelling : {L"inner\\..", L"inner\\.", L"inner\\A.TXT", L"inner\\.\\a.txt"}) {
        base::ComPtr<IShellItem> item;
        EXPECT_EQ(SUCCEEDED(maker_.Make(folder_ / spelling, item)),
                  SUCCEEDED(MakeShellItem(folder_ / spelling, disk_, item)))
            << testing::PrintToString(std::wstring(spelling));
        const std::wstring found = Made(folder_ / spelling);
        EXPECT_TRUE(found.empty() || disk_.Identity(found) == disk_.Identity(folder_ / spelling))
            << testing::PrintToString(std::wstring(spelling));
    }
}

TEST_F(ShellItemMakerTest, DoesNotTrustTheFolderOfAnotherSpelling) {
    test::MakeFolders(folder_ / L"one");
    test::MakeFolders(folder_ / L"two");
    const std::wstring file = File(L"one\\a.txt");
    const std::wstring link = folder_ / L"two\\a.txt";
    ASSERT_TRUE(CreateHardLinkW(link.c_str(), file.c_str(), nullptr));
    File(L"one\\b.txt");
    const std::wstring beside = File(L"two\\b.txt");
    {
        const PickyShell shell(file, false);
        EXPECT_EQ(Made(link), file) << "the same file, on another way";
    }
    EXPECT_EQ(Made(beside), beside);
}

TEST_F(ShellItemMakerTest, TakesTheWholePathApartWhereTheFolderKnowsTheItemByAnotherName) {
    const std::wstring first = File(L"first.txt");
    const std::wstring second = File(L"second.txt");
    EXPECT_EQ(Made(first), first);
    const test::WatchedImport<&StrRetToBufW> name("StrRetToBufW",
                                                  [](STRRET*, PCUITEMID_CHILD, PWSTR text, UINT) -> HRESULT {
                                                      constexpr std::wstring_view kOther = L"third.txt";
                                                      text[kOther.copy(text, kOther.size())] = L'\0';
                                                      return S_OK;
                                                  });
    const test::WatchedImport<&SHCreateItemFromParsingName> parse("SHCreateItemFromParsingName");
    EXPECT_EQ(Made(second), second);
    EXPECT_EQ(parse.Calls().size(), 1U);
}

TEST_F(ShellItemMakerTest, TellsWhatTheShellSaysOfAMissingFileBesideAnother) {
    const std::wstring file = File(L"there");
    EXPECT_EQ(Made(file), file);
    base::ComPtr<IShellItem> item;
    base::ComPtr<IShellItem> whole;
    EXPECT_EQ(maker_.Make(folder_ / L"missing", item), MakeShellItem(folder_ / L"missing", disk_, whole));
    EXPECT_FALSE(item);
}

}  // namespace
}  // namespace ferry::desktop
