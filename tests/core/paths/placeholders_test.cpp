// The words between question marks and percent signs.
#include "paths/placeholders.h"

#include <gtest/gtest.h>

#include "base/utf16.h"

namespace ferry::paths {
namespace {

constexpr std::size_t kPlenty = 1000;

std::string Item(std::wstring text, std::wstring_view path = L"C:\\a\\b.txt") {
    EXPECT_TRUE(ExpandItem(text, path, kPlenty));
    return base::ToUtf8(text);
}

std::string Folder(std::wstring text, std::wstring_view current = L"C:\\x\\y\\") {
    EXPECT_TRUE(ExpandFolder(text, current, L"C:\\x\\y\\", kPlenty));
    return base::ToUtf8(text);
}

TEST(ItemWords, HaveTheirCasePattern) {
    EXPECT_EQ(Item(L"?SelFile?|?selfile?"), "\"C:\\a\\b.txt\"|C:\\a\\b.txt");
    EXPECT_EQ(Item(L"?FileName?|?filename?"), "b.txt|\"b.txt\"");
    EXPECT_EQ(Item(L"?Name?|?name?"), "b|\"b\"");
    EXPECT_EQ(Item(L"?Ext?|?ext?"), ".txt|\".txt\"");
    EXPECT_EQ(Item(L"?SelPath?|?selpath?|?SelParent?"), "C:\\a\\|\"C:\\a\\\"|C:\\a");
    EXPECT_EQ(Item(L"?NAME? ?selParent?"), "?NAME? ?selParent?");
    EXPECT_EQ(Item(L"copy ?SelFile? ?SelPath?"), "copy \"C:\\a\\b.txt\" C:\\a\\");
    EXPECT_EQ(Item(L"?name??ext?"), "\"b\"\".txt\"");
}

TEST(ItemWords, LeaveNothingForAPartThatLacks) {
    EXPECT_EQ(Item(L"<?ext?|?Ext?>", L"C:\\a\\b"), "<|>");
    EXPECT_EQ(Item(L"<?name??SelFile?>", L""), "<>");
}

TEST(ItemWords, AreReplacedInTheirOrder) {
    // The name comes before the extension, so it gets the mark between them.
    EXPECT_EQ(Item(L"?Ext?Name?"), "?Extb");
    // A value may hold a word: a later one is replaced, any other removed in the end.
    EXPECT_EQ(Item(L"?selfile?", L"C:\\?Name?.x"), "C:\\.x");
    EXPECT_EQ(Item(L"?selfile?", L"C:\\?Ext?.x"), "C:\\.x.x");
    EXPECT_EQ(Item(L"<?Name?>", L"C:\\?SelFile?.x"), "<>");
}

TEST(ItemWords, StopAtTheGivenLength) {
    std::wstring text = L"?selfile??selfile?";
    EXPECT_FALSE(ExpandItem(text, L"C:\\a\\b.txt", 19));
    text = L"?selfile??selfile?";
    EXPECT_TRUE(ExpandItem(text, L"C:\\a\\b.txt", 20));
}

TEST(FolderWords, AreTheCurrentFolderAndThePartsOfThePath) {
    EXPECT_EQ(Folder(L"?Drive?|?Dir?|?NowDir?|?nowdir?"), "C:|\\x\\y\\|\"C:\\x\\y\"|C:\\x\\y");
    EXPECT_EQ(Folder(L"<?TargetDir?|?TargetDrive?>"), "<|>");
    EXPECT_EQ(Folder(L"<?Drive?|?Dir?|?NowDir?|?nowdir?>", L""), "<|||>");
    EXPECT_EQ(Folder(L"?nowdir?", L"C:\\"), "C:\\");
    EXPECT_TRUE(HasFolderWord(L"a?TargetDrive?"));
    EXPECT_FALSE(HasFolderWord(L"?targetdir?"));
}

TEST(DateWords, AskForTheirFormats) {
    std::wstring text =
        L"?Date?|?Time?|?Year?|?Month?|?Day?|?Hour?|?Minute?|?Second?|?Week?|?WEEK?|?ShellTime?|?date?";
    EXPECT_TRUE(ExpandDates(text, [](std::wstring_view format) { return std::wstring(format); }, kPlenty));
    EXPECT_EQ(base::ToUtf8(text), "%Y-%m-%d|%H-%M-%S|%Y|%m|%d|%H|%M|%S|%a|%A|%c|?date?");
}

TEST(FolderVariables, AskForTheFoldersThatAreNamed) {
    std::wstring text =
        L"%Script_dir%%User_dir%%Menu_dir%%App_Dir%%CMD_Dir%%CmdPlugin_Dir%%Viewer_Dir%%UserCmd_Dir%%app_"
        L"dir%";
    const auto number = [](FolderVariable which) { return std::to_wstring(static_cast<int>(which)) + L' '; };
    EXPECT_TRUE(ExpandFolderVariables(text, number, kPlenty));
    EXPECT_EQ(base::ToUtf8(text), "0 1 2 3 4 5 6 7 %app_dir%");
    text = L"50% of 100%";
    const auto never = [](FolderVariable) -> std::wstring { throw std::logic_error("asked for nothing"); };
    EXPECT_TRUE(ExpandFolderVariables(text, never, kPlenty));
}

}  // namespace
}  // namespace ferry::paths
