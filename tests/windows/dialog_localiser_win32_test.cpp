// Dialog text files on a real disk and in real dialogs.
#include <windows.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <vector>

#include "dialogs/dialog_localiser.h"
#include "files/disk_win32.h"
#include "lang/text_files_win32.h"
#include "windows/language_world_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dialogs {
namespace {

using test::LangTest;
using test::LanguageStore;

constexpr int kLabelId = 1001;
constexpr int kButtonId = 1002;
constexpr int kComboId = 1170;
constexpr int kEditId = 1003;
constexpr int kListId = 1201;

/// A dialog with one control of each kind that the text files treat in a way of its own.
class DialogLocaliserTest : public LangTest {
protected:
    DialogLocaliserTest() {
        dialog_.Reset(CreateWindowExW(0, L"#32770", L"題名", WS_POPUP, 0, 0, 300, 200, nullptr, nullptr,
                                      GetModuleHandleW(nullptr), nullptr));
        Add(L"Static", L"fixed", -1);
        Add(L"Static", L"label\twith\r\nbreaks", kLabelId);
        Add(L"Button", L"", 1005);
        Add(L"Button", L"開始(&S)", kButtonId);
        const HWND combo = Add(L"ComboBox", L"", kComboId, CBS_DROPDOWNLIST);
        for (const wchar_t* item : {L"one", L"two", L""}) {
            SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
        }
        Add(L"Edit", L"typed", kEditId);
        Add(L"SysListView32", L"list", kListId);
    }

    HWND Add(const wchar_t* className, const wchar_t* text, int id, DWORD style = 0) {
        return CreateWindowExW(0, className, text, WS_CHILD | style, 0, 0, 100, 100, dialog_.Get(),
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr),
                               nullptr);
    }

    std::wstring Text(int id) const { return test::TextOfWindow(GetDlgItem(dialog_.Get(), id)); }

    std::vector<std::wstring> ComboItems() const {
        const HWND combo = GetDlgItem(dialog_.Get(), kComboId);
        std::vector<std::wstring> items;
        for (LRESULT i = 0; i < SendMessageW(combo, CB_GETCOUNT, 0, 0); ++i) {
            std::wstring item(
                static_cast<std::size_t>(SendMessageW(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(i), 0)) + 1,
                L'\0');
            SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(item.data()));
            item.pop_back();
            items.push_back(item);
        }
        return items;
    }

    void Localise(LanguageStore& store) {
        DialogLocaliser(store, info_, changes_, texts_, modulePath_).Localise(102, dialog_.Get());
    }

    void WriteFile(std::wstring_view units) {
        test::MakeFolders(folder_ / L"Command\\Ferry\\.en-US\\Ferry");
        test::WriteUnits(path_, units);
    }

    std::wstring path_ = folder_ / L"Command\\Ferry\\.en-US\\Ferry\\102.txt";
    LanguageStore english_{L".en-US", 0};
    files::DiskInfo info_;
    files::DiskChanges changes_;
    lang::DiskTextFiles texts_;
    test::TestWindow dialog_;
};

TEST_F(DialogLocaliserTest, BuiltInLanguageReadsAndWritesNothing) {
    LanguageStore builtIn(L"", 0);
    Localise(builtIn);
    EXPECT_FALSE(test::Exists(folder_ / L"Command\\Ferry\\.ja-JP"));
    EXPECT_EQ(test::TextOfWindow(dialog_.Get()), L"題名");
}

TEST_F(DialogLocaliserTest, BuiltInLanguageStaysAlthoughAFileLiesThere) {
    const std::wstring path = folder_ / L"Command\\Ferry\\.ja-JP\\Ferry\\102.txt";
    const std::wstring text = L"\xFEFFTitle\r\n1002\tButton\tother\r\n";
    test::MakeFolders(folder_ / L"Command\\Ferry\\.ja-JP\\Ferry");
    test::WriteUnits(path, text);
    const test::WatchedImport<&_wfsopen> open("_wfsopen");
    for (const wchar_t* suffix : {L"", L".ja-JP"}) {
        LanguageStore builtIn(suffix, 0);
        Localise(builtIn);
    }
    EXPECT_TRUE(open.Calls().empty());
    EXPECT_EQ(test::TextOfWindow(dialog_.Get()), L"題名");
    EXPECT_EQ(Text(kButtonId), L"開始(&S)");
    EXPECT_EQ(test::ReadUnits(path), text);
}

TEST_F(DialogLocaliserTest, HostMayAskForTheFilesOfTheBuiltInLanguage) {
    LanguageStore maintained(L".ja-JP", 1);
    Localise(maintained);
    EXPECT_TRUE(test::Exists(folder_ / L"Command\\Ferry\\.ja-JP\\Ferry\\102.txt"));
}

TEST_F(DialogLocaliserTest, WritesTheFileWhenThereIsNone) {
    Localise(english_);
    EXPECT_EQ(test::ReadUnits(path_),
              L"\xFEFF題名\r\n"
              L"-1\tStatic\tfixed\r\n"
              L"1001\tStatic\tlabel\\twith\\r\\nbreaks\r\n"
              L"1002\tButton\t開始(&S)\r\n"
              L"1170\tComboBoxStart\r\n"
              L"1170\tComboBox\tone\r\n"
              L"1170\tComboBox\ttwo\r\n"
              L"1170\tComboBox\t\r\n");
}

TEST_F(DialogLocaliserTest, ReadsTheFileInTheNextRun) {
    Localise(english_);
    SetWindowTextW(dialog_.Get(), L"other");
    SetDlgItemTextW(dialog_.Get(), kLabelId, L"other");
    SetDlgItemTextW(dialog_.Get(), kButtonId, L"other");
    const std::wstring written = test::ReadUnits(path_);
    Localise(english_);
    EXPECT_EQ(test::TextOfWindow(dialog_.Get()), L"題名");
    EXPECT_EQ(Text(kLabelId), L"label\twith\r\nbreaks");
    EXPECT_EQ(Text(kButtonId), L"開始(&S)");
    EXPECT_EQ(test::ReadUnits(path_), written);
}

TEST_F(DialogLocaliserTest, FilesAreWrittenAndReadAtPathsOfAnyLength) {
    modulePath_ = folder_.LongFolder() + L"\\Ferry.exe";
    Localise(english_);
    const std::wstring path = folder_.LongFolder() + L"\\.en-US\\Ferry\\102.txt";
    EXPECT_TRUE(test::ReadUnits(path).starts_with(L"\xFEFF題名\r\n"));
    test::WriteUnits(path, L"\xFEFFTitle\r\n");
    Localise(english_);
    EXPECT_EQ(test::TextOfWindow(dialog_.Get()), L"Title");
}

TEST_F(DialogLocaliserTest, TranslatesTitleControlsAndLists) {
    WriteFile(
        L"\xFEFFTitle\r\n-1\tStatic\tchanged\r\n1002\tButton\t&Start\r\n// 1001\tStatic\tno\r\n"
        L"1170\tComboBoxStart\r\n1170\tComboBox\tuno\r\n9999\tStatic\tnobody\r\nEOF\r\n1001\tStatic\tlate\r"
        L"\n");
    Localise(english_);
    EXPECT_EQ(test::TextOfWindow(dialog_.Get()), L"Title");
    EXPECT_EQ(Text(kButtonId), L"&Start");
    EXPECT_EQ(Text(kLabelId), L"label\twith\r\nbreaks");
    EXPECT_EQ(ComboItems(), (std::vector<std::wstring>{L"uno"}));
    const HWND unnumbered = FindWindowExW(dialog_.Get(), nullptr, L"Static", L"fixed");
    EXPECT_NE(unnumbered, nullptr);
}

TEST_F(DialogLocaliserTest, AsksForTheLanguageOnce) {
    DialogLocaliser localiser(english_, info_, changes_, texts_, modulePath_);
    localiser.Localise(102, dialog_.Get());
    localiser.Localise(131, dialog_.Get());
    EXPECT_EQ(english_.Reads, 2);
}

TEST_F(DialogLocaliserTest, CutsTextsAtTheirLimit) {
    const std::wstring longText(40000, L'x');
    ASSERT_TRUE(SetWindowTextW(dialog_.Get(), longText.c_str()));
    ASSERT_TRUE(SetDlgItemTextW(dialog_.Get(), kButtonId, longText.c_str()));
    Localise(english_);
    const std::wstring file = test::ReadUnits(path_);
    const std::wstring cut(32766, L'x');
    EXPECT_NE(file.find(L"\xFEFF" + cut + L"\r\n"), std::wstring::npos);
    EXPECT_NE(file.find(L"1002\tButton\t" + cut + L"\r\n"), std::wstring::npos);
}

TEST_F(DialogLocaliserTest, FileOfAnyBytesDoesNoHarmAndIsKept) {
    test::MakeFolders(folder_ / L"Command\\Ferry\\.en-US\\Ferry");
    std::vector<std::byte> bytes;
    for (unsigned i = 0; i < 70001; ++i) {
        bytes.push_back(static_cast<std::byte>(i * 2654435761U >> 13));
    }
    test::WriteBytes(path_, bytes);
    Localise(english_);
    EXPECT_EQ(test::ReadBytes(path_), bytes);
    EXPECT_EQ(Text(kButtonId), L"開始(&S)");
}

TEST_F(DialogLocaliserTest, AFileThatIsHeldForAMomentIsNotWrittenOver) {
    const std::wstring work = L"\xFEFFTitle\r\n1002\tButton\tmine\r\n";
    WriteFile(work);
    {
        int opened = 0;
        const test::WatchedImport<&_wfsopen> open(
            "_wfsopen", [&](const wchar_t* path, const wchar_t* mode, int sharing) {
                return ++opened == 1 ? nullptr : open.CallReal(path, mode, sharing);
            });
        Localise(english_);
        EXPECT_EQ(opened, 1);
    }
    EXPECT_EQ(test::ReadUnits(path_), work);
    EXPECT_EQ(Text(kButtonId), L"開始(&S)");
    Localise(english_);
    EXPECT_EQ(Text(kButtonId), L"mine");
}

TEST_F(DialogLocaliserTest, FileThatCannotBeMadeIsSkipped) {
    test::WriteUnits(folder_ / L"Command\\Ferry\\.en-US", L"a file where the folder should be");
    Localise(english_);
    EXPECT_FALSE(test::Exists(path_));
    EXPECT_EQ(Text(kButtonId), L"開始(&S)");
}

TEST_F(DialogLocaliserTest, AFileThatTheDiskDoesNotTakeWholeIsNotLeftBehind) {
    // Half of it would be read the next time.
    {
        const test::WatchedImport<&std::fwrite> write(
            "fwrite", [&](const void* bytes, std::size_t size, std::size_t count, std::FILE* stream) {
                return write.CallReal(bytes, size, count / 2, stream);
            });
        Localise(english_);
        EXPECT_EQ(write.Calls().size(), 1U);
        EXPECT_FALSE(test::Exists(path_));
    }
    const test::WatchedImport<&std::fclose> close("fclose", [&](std::FILE* stream) {
        close.CallReal(stream);
        return EOF;
    });
    Localise(english_);
    EXPECT_EQ(close.Calls().size(), 1U);
    EXPECT_FALSE(test::Exists(path_));
}

}  // namespace
}  // namespace ferry::dialogs
