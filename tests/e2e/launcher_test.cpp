// What the launcher hands over to Ferry.
#include "base/utf16.h"
#include "e2e/launcher_fixture.h"
#include "windows/current_folder_win32.h"

namespace ferry::e2e {
namespace {

TEST_F(Launcher, OpensFerryToCopyTheGivenItems) {
    const std::wstring file = Tree().WriteFile(L"元\\a b.txt", "a");
    const std::wstring folder = Tree().MakeFolder(L"元\\資料");
    ASSERT_TRUE(Opens({file, folder}));
    EXPECT_EQ(Items(), (Words{L"a b.txt", L"資料"}));
    EXPECT_TRUE(Dialog().IsChecked(kCopy));
    Dialog().SetDestination(Tree().MakeFolder(L"先"));
    Dialog().Click(kStart);
    ASSERT_TRUE(EndsWith(0));
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\a b.txt")), "a");
    EXPECT_TRUE(Exists(Tree().Path(L"先\\資料")));
    EXPECT_TRUE(Exists(file));
}

TEST_F(Launcher, OpensFerryToMoveWhenAskedTo) {
    const std::wstring file = Tree().WriteFile(L"元\\a.txt", "a");
    ASSERT_TRUE(Opens({L"/m", file, L"-d", Tree().MakeFolder(L"先")}));
    EXPECT_TRUE(Dialog().IsChecked(kMove));
    Dialog().Click(kStart);
    ASSERT_TRUE(EndsWith(0));
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\a.txt")), "a");
    EXPECT_FALSE(Exists(file));
}

TEST_F(Launcher, MovesTheFolderThatItWasStartedIn) {
    Tree().WriteFile(L"元\\中\\a.txt", "a");
    const std::wstring folder = Tree().Path(L"元\\中");
    {
        const test::CurrentFolder inside(folder);
        ASSERT_TRUE(Opens({L"/m", folder, L"/d", Tree().MakeFolder(L"先")}));
    }
    Dialog().Click(kStart);
    ASSERT_TRUE(EndsWith(0));
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\中\\a.txt")), "a");
    EXPECT_FALSE(Exists(folder));
}

/// A kind of text that a list can be.
struct ListKind {
    const char* Name;
    std::string (*Write)(const std::wstring& text);
};

std::string Utf16Bytes(const std::wstring& text, bool isBigEndian) {
    std::string bytes;
    for (const std::byte byte : base::BytesFromUnits(L"\uFEFF" + text)) {
        bytes += static_cast<char>(byte);
    }
    for (std::size_t index = 0; isBigEndian && index + 1 < bytes.size(); index += 2) {
        std::swap(bytes[index], bytes[index + 1]);
    }
    return bytes;
}

class LauncherList : public Launcher, public testing::WithParamInterface<ListKind> {};
INSTANTIATE_TEST_SUITE_P(
    Kind, LauncherList,
    testing::Values(
        ListKind{"Utf8", [](const std::wstring& text) { return base::ToUtf8(text); }},
        ListKind{"MarkedUtf8", [](const std::wstring& text) { return "\xEF\xBB\xBF" + base::ToUtf8(text); }},
        ListKind{"Utf16", [](const std::wstring& text) { return Utf16Bytes(text, false); }},
        ListKind{"BigEndianUtf16", [](const std::wstring& text) { return Utf16Bytes(text, true); }}),
    [](const auto& kind) { return std::string(kind.param.Name); });

TEST_P(LauncherList, IsReadFromAFile) {
    const std::wstring first = Tree().WriteFile(L"あ.txt", "a");
    const std::wstring second = Tree().WriteFile(L"b c.txt", "b");
    const std::wstring list =
        Tree().WriteFile(L"list.txt", GetParam().Write(first + L"\r\n\"" + second + L"\"\r\n"));
    ASSERT_TRUE(Opens({L"/list", list}));
    EXPECT_EQ(Items(), (Words{L"あ.txt", L"b c.txt"}));
    ASSERT_TRUE(CancelEndsBoth());
}

TEST_F(Launcher, ReadsAListFromItsStandardInput) {
    const std::wstring given = Tree().WriteFile(L"given.txt", "a");
    const std::wstring list = base::FromUtf8(base::ToUtf8(Tree().WriteFile(L"あ.txt", "a"))) + L"\n";
    SECURITY_ATTRIBUTES inherited = {sizeof(inherited), nullptr, TRUE};
    HANDLE output = nullptr;
    HANDLE input = nullptr;
    ASSERT_TRUE(CreatePipe(&output, &input, &inherited, 0));
    const base::FileHandle reader(output);
    base::FileHandle writer(input);
    // The launcher would wait for its own copy of the writing end.
    SetHandleInformation(writer.Get(), HANDLE_FLAG_INHERIT, 0);
    Start({given, L"/list", L"-"}, reader.Get());
    const std::string bytes = base::ToUtf8(list);
    DWORD written = 0;
    ASSERT_TRUE(WriteFile(writer.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
    writer.Reset();
    ASSERT_TRUE(FerryOpens());
    EXPECT_EQ(Items(), (Words{L"given.txt", L"あ.txt"}));
    ASSERT_TRUE(CancelEndsBoth());
}

TEST_F(Launcher, TakesPathsFromTheCurrentFolderOn) {
    Tree().WriteFile(L"ここ\\a.txt", "a");
    Tree().WriteFile(L"隣\\b.txt", "b");
    {
        const test::CurrentFolder here(Tree().Path(L"ここ"));
        ASSERT_TRUE(Opens({L"a.txt", L"..\\隣\\b.txt", L"/d", L"..\\先"}));
    }
    EXPECT_EQ(Dialog().Destination(), Tree().Path(L"先\\"));
    EXPECT_EQ(BlockFields(), (Words{L"2", L"1", Tree().Path(L"ここ"), Tree().Path(L"ここ\\a.txt"),
                                    Tree().Path(L"隣\\b.txt"), Tree().Path(L"先")}));
    ASSERT_TRUE(CancelEndsBoth());
}

TEST_F(Launcher, HandsTheLastDestinationsOverAsOtherTabs) {
    const std::wstring file = Tree().WriteFile(L"a.txt", "a");
    WriteText(kProgramKey, L"Ferry000", L"D:\\最後\\");
    WriteText(kProgramKey, L"Ferry001", L"E:\\before");
    const test::CurrentFolder here(Tree().Root());
    ASSERT_TRUE(Opens({L"/tab", L"F:\\given", file}));
    EXPECT_EQ(Dialog().Destination(), L"F:\\given\\");
    EXPECT_EQ(BlockFields(),
              (Words{L"1", L"3", Tree().Root(), file, L"F:\\given", L"D:\\最後\\", L"E:\\before"}));
    ASSERT_TRUE(CancelEndsBoth());
    ASSERT_TRUE(Opens({file}));
    // The run before has put its own destination first.
    EXPECT_EQ(Dialog().Destination(), L"F:\\given\\");
    ASSERT_TRUE(CancelEndsBoth());
}

TEST_F(Launcher, AsksWhetherToGoOnWithoutWhatIsMissing) {
    const std::wstring file = Tree().WriteFile(L"a.txt", "a");
    const std::wstring missing = Tree().Path(L"ない.txt");
    Start({file, missing});
    ASSERT_TRUE(Says(L"次のものはコピーも移動もできません。\n\n" + missing +
                         L"（存在しません）\n\n残りの 1 項目で続けますか?",
                     IDYES));
    ASSERT_TRUE(FerryOpens());
    EXPECT_EQ(Items(), Words{L"a.txt"});
    ASSERT_TRUE(CancelEndsBoth());
}

TEST_F(Launcher, OpensNothingWhenThePersonDoesNotGoOn) {
    WriteText(kHostKey, L"NLS", L".en-US");
    const std::wstring file = Tree().WriteFile(L"a.txt", "a");
    const std::wstring missing = Tree().Path(L"missing.txt");
    const std::wstring list = Tree().Path(L"no list.txt");
    Start({missing, L"/list", list, file});
    ASSERT_TRUE(Says(L"These cannot be copied or moved:\n\n" + missing + L"  (does not exist)\n" + list +
                         L"  (the list cannot be read)\n\nGo on with the other 1?",
                     IDNO));
    EXPECT_TRUE(EndsWith(1));
    Start({missing});
    ASSERT_TRUE(Says(L"These cannot be copied or moved:\n\n" + missing +
                     L"  (does not exist)\n\nNothing is left to copy or move."));
    EXPECT_TRUE(EndsWith(1));
}

TEST_F(Launcher, SaysNothingWhenItIsToKeepQuiet) {
    const std::wstring file = Tree().WriteFile(L"a.txt", "a");
    Start({L"/quiet", file, Tree().Path(L"missing.txt")});
    EXPECT_TRUE(EndsWith(1));
    Start({L"/quiet", L"/x"});
    EXPECT_TRUE(EndsWith(2));
    ASSERT_TRUE(Opens({L"/quiet", file}));
    ASSERT_TRUE(CancelEndsBoth());
}

}  // namespace
}  // namespace ferry::e2e
