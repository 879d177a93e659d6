// Shell items of real paths, and of a shell that takes one form of them only.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which the shell's headers build on.
#include <shlobj.h>

#include <vector>

#include "base/com_ptr_win32.h"
#include "desktop/shell_item_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::desktop {
namespace {

class ShellItemTest : public testing::Test {
protected:
    base::ComApartment apartment_;
    test::TempFolder folder_;
};

TEST_F(ShellItemTest, ParsesFoldersWithAndWithoutTheirSeparator) {
    for (const std::wstring& path : {folder_.Path(), folder_.Path() + L"\\"}) {
        base::ComPtr<IShellItem> item;
        EXPECT_EQ(MakeShellItem(path, item), S_OK);
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
    base::ComPtr<IShellItem> item;
    EXPECT_EQ(MakeShellItem(path, item), S_OK);
    EXPECT_TRUE(item);
    EXPECT_EQ(shell.Asked, (std::vector{path}));
}

TEST_F(ShellItemTest, OfALongPathIsMadeFromThePrefixedFormWhereTheShellWantsThat) {
    const std::wstring path = L"C:\\" + std::wstring(300, L'd');
    const PickyShell shell(folder_.Path(), true);
    base::ComPtr<IShellItem> item;
    EXPECT_EQ(MakeShellItem(path, item), S_OK);
    EXPECT_TRUE(item);
    EXPECT_EQ(shell.Asked, (std::vector{path, L"\\\\?\\" + path}));
}

TEST_F(ShellItemTest, OfAShortPathIsAskedForOnce) {
    const PickyShell shell(folder_.Path(), true);
    base::ComPtr<IShellItem> item;
    EXPECT_EQ(MakeShellItem(L"C:\\short", item), PickyShell::kRefused + 1);
    EXPECT_FALSE(item);
    EXPECT_EQ(shell.Asked, std::vector<std::wstring>{L"C:\\short"});
}

TEST_F(ShellItemTest, MissingFileGivesNoItem) {
    base::ComPtr<IShellItem> item;
    EXPECT_TRUE(FAILED(MakeShellItem(folder_ / L"missing", item)));
    EXPECT_FALSE(item);
}

}  // namespace
}  // namespace ferry::desktop
