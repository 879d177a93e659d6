// Message files and dialog text files on a real disk and in real dialogs.
#include <windows.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "base/handles_win32.h"
#include "base/utf16.h"
#include "core/settings/memory_store.h"
#include "lang/catalogue.h"
#include "lang/dialog_localiser_win32.h"
#include "lang/message_file_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::lang {
namespace {

/// A store in which the host has put the language; it counts how often it was asked.
class LanguageStore : public test::MemoryStore {
public:
    LanguageStore(const std::wstring& suffix, std::uint32_t langOut) {
        if (!suffix.empty()) {
            HostTexts[L"NLS"] = suffix;
        }
        HostNumbers[L"LangOut"] = langOut;
    }

    int& Reads = HostReads;
};

class LangTest : public testing::Test {
protected:
    LangTest() {
        test::MakeFolders(folder_ / L"Command\\Ferry");
        test::MakeFolders(folder_ / L"Lang");
    }

    test::TempFolder folder_;
    std::wstring modulePath_ = folder_ / L"Command\\Ferry\\Ferry.exe";
};

class MessageFileTest : public LangTest {
protected:
    LanguageStore store_{L"", 0};
    MessageFile file_{store_, modulePath_};
    std::wstring path_ = folder_ / L"Lang\\Msg.ja-JP.txt";
    Catalogue catalogue_{file_};
};

TEST_F(MessageFileTest, LiesInTheHostsLanguageFolder) {
    EXPECT_EQ(file_.Path(), path_);
    LanguageStore english(L".en-US", 0);
    EXPECT_EQ(MessageFile(english, modulePath_).Path(), folder_ / L"Lang\\Msg.en-US.txt");
}

TEST_F(MessageFileTest, AsksForTheLanguageOnce) {
    file_.Path();
    file_.ReadMessageFile();
    file_.Path();
    EXPECT_EQ(store_.Reads, 1);
}

TEST_F(MessageFileTest, PathThatCannotBeMadeAbsoluteStaysAsItIs) {
    const test::WatchedImport<&_wfullpath> full(
        "_wfullpath", [](wchar_t*, const wchar_t*, size_t) { return static_cast<wchar_t*>(nullptr); });
    EXPECT_EQ(file_.Path(), folder_ / L"Command\\Ferry\\..\\..\\Lang\\Msg.ja-JP.txt");
    EXPECT_EQ(full.Calls().size(), 1U);
}

TEST_F(MessageFileTest, IsReadAtAPathOfAnyLength) {
    const std::wstring path = folder_.LongFolder() + L"\\Msg.ja-JP.txt";
    test::WriteUnits(path, L"62325\tfar away\r\n");
    // Some C libraries make no path of this length absolute.
    const test::WatchedImport<&_wfullpath> full(
        "_wfullpath", [&](wchar_t*, const wchar_t*, size_t) { return _wcsdup(path.c_str()); });
    // Not every system refuses such a path without its prefix.
    const test::WatchedImport<&_wfsopen> open("_wfsopen",
                                              [&](const wchar_t* opened, const wchar_t* mode, int sharing) {
                                                  EXPECT_EQ(opened, L"\\\\?\\" + path);
                                                  return open.CallReal(opened, mode, sharing);
                                              });
    EXPECT_EQ(catalogue_.Fetch(62325), L"far away");
    EXPECT_EQ(open.Calls().size(), 1U);
}

TEST_F(MessageFileTest, GivesTheTextsOfTheFile) {
    test::WriteUnits(path_,
                     L"\xFEFF// comment\r\n62325\tFirst\\nSecond\r\n62326\ta\tb\r\nEOF\r\n62327\tlate\r\n");
    EXPECT_EQ(catalogue_.Fetch(62325), L"First\nSecond");
    EXPECT_EQ(catalogue_.Fetch(62326), kMissingText);
    EXPECT_EQ(catalogue_.Fetch(62327), kMissingText);
}

TEST_F(MessageFileTest, MissingFileIsReportedAtEveryFetch) {
    for (int round = 0; round < 2; ++round) {
        auto box = test::AnswerNextBox(IDOK);
        EXPECT_EQ(catalogue_.Fetch(62325), kMissingText);
        EXPECT_EQ(box.get(), L"Cannot open message file.\n" + path_);
    }
}

TEST_F(MessageFileTest, FileThatSomebodyWritesCannotBeOpened) {
    test::WriteUnits(path_, L"1\ttext\r\n");
    {
        const base::FileHandle writer(CreateFileW(path_.c_str(), GENERIC_WRITE,
                                                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                                  0, nullptr));
        EXPECT_FALSE(file_.ReadMessageFile());
    }
    EXPECT_TRUE(file_.ReadMessageFile());
}

TEST_F(MessageFileTest, NobodyWritesWhileItIsRead) {
    test::WriteUnits(path_, L"1\ttext\r\n");
    const auto opens = [&](DWORD access) {
        const base::FileHandle file(CreateFileW(path_.c_str(), access,
                                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                                nullptr, OPEN_EXISTING, 0, nullptr));
        return static_cast<bool>(file);
    };
    const test::WatchedImport<&_wfsopen> open("_wfsopen",
                                              [&](const wchar_t* path, const wchar_t* mode, int sharing) {
                                                  EXPECT_EQ(std::wstring(mode), L"rbS");
                                                  std::FILE* const file = open.CallReal(path, mode, sharing);
                                                  EXPECT_FALSE(opens(GENERIC_WRITE));
                                                  EXPECT_TRUE(opens(GENERIC_READ));
                                                  return file;
                                              });
    EXPECT_TRUE(file_.ReadMessageFile());
    EXPECT_EQ(open.Calls().size(), 1U);
    EXPECT_TRUE(opens(GENERIC_WRITE));
}

TEST_F(MessageFileTest, AnyBytesAreReadAsUnits) {
    test::WriteBytes(path_, {std::byte{0x41}, std::byte{0}, std::byte{0x1A}, std::byte{0}, std::byte{0x0A},
                             std::byte{0x0D}, std::byte{0x42}});
    EXPECT_EQ(file_.ReadMessageFile(), std::wstring(L"A\x1A\x0D0A"));
    test::WriteBytes(path_, {});
    EXPECT_EQ(file_.ReadMessageFile(), std::wstring());
}

constexpr int kLabel = 1001;
constexpr int kButton = 1002;
constexpr int kCombo = 1170;
constexpr int kEdit = 1003;
constexpr int kList = 1201;

/// A dialog with one control of each kind that the text files treat in a way of its own.
class DialogLocaliserTest : public LangTest {
protected:
    DialogLocaliserTest() {
        dialog_.Reset(CreateWindowExW(0, L"#32770", L"題名", WS_POPUP, 0, 0, 300, 200, nullptr, nullptr,
                                      GetModuleHandleW(nullptr), nullptr));
        Add(L"Static", L"fixed", -1);
        Add(L"Static", L"label\twith\r\nbreaks", kLabel);
        Add(L"Button", L"", 1005);
        Add(L"Button", L"開始(&S)", kButton);
        const HWND combo = Add(L"ComboBox", L"", kCombo, CBS_DROPDOWNLIST);
        for (const wchar_t* item : {L"one", L"two", L""}) {
            SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
        }
        Add(L"Edit", L"typed", kEdit);
        Add(L"SysListView32", L"list", kList);
    }

    HWND Add(const wchar_t* className, const wchar_t* text, int id, DWORD style = 0) {
        return CreateWindowExW(0, className, text, WS_CHILD | style, 0, 0, 100, 100, dialog_.Get(),
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr),
                               nullptr);
    }

    std::wstring Text(int id) const { return test::TextOfWindow(GetDlgItem(dialog_.Get(), id)); }

    std::vector<std::wstring> ComboItems() const {
        const HWND combo = GetDlgItem(dialog_.Get(), kCombo);
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

    void Localise(LanguageStore& store) { DialogLocaliser(store, modulePath_).Localise(102, dialog_.Get()); }

    void WriteFile(std::wstring_view units) {
        test::MakeFolders(folder_ / L"Command\\Ferry\\.en-US\\Ferry");
        test::WriteUnits(path_, units);
    }

    std::wstring path_ = folder_ / L"Command\\Ferry\\.en-US\\Ferry\\102.txt";
    LanguageStore english_{L".en-US", 0};
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
    EXPECT_EQ(Text(kButton), L"開始(&S)");
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
    SetDlgItemTextW(dialog_.Get(), kLabel, L"other");
    SetDlgItemTextW(dialog_.Get(), kButton, L"other");
    const std::wstring written = test::ReadUnits(path_);
    Localise(english_);
    EXPECT_EQ(test::TextOfWindow(dialog_.Get()), L"題名");
    EXPECT_EQ(Text(kLabel), L"label\twith\r\nbreaks");
    EXPECT_EQ(Text(kButton), L"開始(&S)");
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
    EXPECT_EQ(Text(kButton), L"&Start");
    EXPECT_EQ(Text(kLabel), L"label\twith\r\nbreaks");
    EXPECT_EQ(ComboItems(), (std::vector<std::wstring>{L"uno"}));
    const HWND unnumbered = FindWindowExW(dialog_.Get(), nullptr, L"Static", L"fixed");
    EXPECT_NE(unnumbered, nullptr);
}

TEST_F(DialogLocaliserTest, AsksForTheLanguageOnce) {
    DialogLocaliser localiser(english_, modulePath_);
    localiser.Localise(102, dialog_.Get());
    localiser.Localise(131, dialog_.Get());
    EXPECT_EQ(english_.Reads, 2);
}

TEST_F(DialogLocaliserTest, CutsTextsAtTheirLimit) {
    const std::wstring longText(40000, L'x');
    ASSERT_TRUE(SetWindowTextW(dialog_.Get(), longText.c_str()));
    ASSERT_TRUE(SetDlgItemTextW(dialog_.Get(), kButton, longText.c_str()));
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
    EXPECT_EQ(Text(kButton), L"開始(&S)");
}

TEST_F(DialogLocaliserTest, FileThatCannotBeMadeIsSkipped) {
    test::WriteUnits(folder_ / L"Command\\Ferry\\.en-US", L"a file where the folder should be");
    Localise(english_);
    EXPECT_FALSE(test::Exists(path_));
    EXPECT_EQ(Text(kButton), L"開始(&S)");
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
}  // namespace ferry::lang
