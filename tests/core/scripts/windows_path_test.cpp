#include "script/windows_path.h"

#include <gtest/gtest.h>

#include "support/text_cases.h"

namespace ferry::scripttools {
namespace {

std::wstring InFolder(std::wstring_view path) {
    return FullWindowsPath(path, L"C:\\cur\\sub");
}

TEST(FullWindowsPath, CountsRelativePathsFromTheCurrentFolder) {
    test::ExpectEach(InFolder, {
                                   {L"a.txt", L"C:\\cur\\sub\\a.txt"},
                                   {L".\\a.txt", L"C:\\cur\\sub\\a.txt"},
                                   {L"..\\a.txt", L"C:\\cur\\a.txt"},
                                   {L"x/../y/a.txt", L"C:\\cur\\sub\\y\\a.txt"},
                                   {L".", L"C:\\cur\\sub"},
                                   {L"..\\..\\..\\..", L"C:\\"},
                                   {L"", L""},
                               });
}

TEST(FullWindowsPath, CountsFromARootWithOneSeparator) {
    EXPECT_EQ(FullWindowsPath(L"a", L"C:\\"), L"C:\\a");
    EXPECT_EQ(FullWindowsPath(L"..\\a", L"C:\\"), L"C:\\a");
}

TEST(FullWindowsPath, TakesADriveWithoutASeparatorForItsCurrentFolder) {
    test::ExpectEach(InFolder, {
                                   {L"C:a", L"C:\\cur\\sub\\a"},
                                   {L"c:a", L"C:\\cur\\sub\\a"},
                                   {L"C:", L"C:\\cur\\sub"},
                                   {L"D:a", L"D:\\a"},
                                   {L"D:", L"D:\\"},
                                   {L"\\a", L"C:\\a"},
                                   {L"/a/b", L"C:\\a\\b"},
                               });
}

TEST(FullWindowsPath, WorksOutFullPaths) {
    test::ExpectEach(InFolder, {
                                   {L"D:/a//b\\\\c", L"D:\\a\\b\\c"},
                                   {L"d:\\a\\.\\b\\..\\c\\", L"d:\\a\\c\\"},
                                   {L"D:\\a\\..", L"D:\\"},
                                   {L"D:\\a\\b\\..", L"D:\\a"},
                                   {L"D:\\a\\b\\..\\", L"D:\\a\\"},
                                   {L"D:\\..\\..\\a", L"D:\\a"},
                                   {L"D:\\", L"D:\\"},
                               });
}

TEST(FullWindowsPath, NeverLeavesAShare) {
    test::ExpectEach(InFolder, {
                                   {L"\\\\srv\\share\\a\\..\\..\\..\\b", L"\\\\srv\\share\\b"},
                                   {L"//srv/share/a/", L"\\\\srv\\share\\a\\"},
                                   {L"\\\\srv\\share", L"\\\\srv\\share"},
                                   {L"\\\\srv", L"\\\\srv"},
                                   {L"\\\\?\\C:\\a\\..\\..\\b", L"\\\\?\\C:\\b"},
                               });
    EXPECT_EQ(FullWindowsPath(L"\\a", L"\\\\srv\\share\\cur"), L"\\\\srv\\share\\a");
    EXPECT_EQ(FullWindowsPath(L"a", L"\\\\srv\\share"), L"\\\\srv\\share\\a");
}

TEST(FullWindowsPath, LosesDotsAndBlanksAtTheEnd) {
    test::ExpectEach(InFolder, {
                                   {L"C:\\a. .", L"C:\\a"},
                                   {L"C:\\a.\\b.", L"C:\\a\\b"},
                                   {L"C:\\a \\b ", L"C:\\a \\b"},
                                   {L"C:\\a \\", L"C:\\a \\"},
                                   {L"C:\\...", L"C:\\"},
                               });
}

TEST(FullWindowsPath, EndsAtANul) {
    EXPECT_EQ(InFolder(std::wstring_view(L"a\0b", 3)), L"C:\\cur\\sub\\a");
}

}  // namespace
}  // namespace ferry::scripttools
