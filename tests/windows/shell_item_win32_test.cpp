// Shell items of real paths, and of a shell that takes one form of them only.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which the shell's headers build on.
#include <shlobj.h>

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

}  // namespace
}  // namespace ferry::desktop
