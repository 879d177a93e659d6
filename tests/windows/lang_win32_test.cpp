// Message files on a real disk.
#include <windows.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <vector>

#include "base/handles_win32.h"
#include "core/lang/heard_speech.h"
#include "lang/catalogue.h"
#include "lang/message_path_win32.h"
#include "lang/text_files_win32.h"
#include "windows/language_world_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::lang {
namespace {

using test::LangTest;
using test::LanguageStore;

class MessageFileTest : public LangTest {
protected:
    /// A text by its number, as a start of the program finds it.
    std::wstring Fetch(std::uint16_t number) {
        return Catalogue(files_, MessageFilePath(store_, modulePath_), speech_).Fetch(number);
    }

    LanguageStore store_{L"", 0};
    std::wstring path_ = folder_ / L"Lang\\Msg.ja-JP.txt";
    DiskTextFiles files_;
    test::HeardSpeech speech_;
};

TEST_F(MessageFileTest, LiesInTheHostsLanguageFolder) {
    EXPECT_EQ(MessageFilePath(store_, modulePath_), path_);
    LanguageStore english(L".en-US", 0);
    EXPECT_EQ(MessageFilePath(english, modulePath_), folder_ / L"Lang\\Msg.en-US.txt");
}

TEST_F(MessageFileTest, AsksForTheLanguageOnce) {
    MessageFilePath(store_, modulePath_);
    EXPECT_EQ(store_.Reads, 1);
}

TEST_F(MessageFileTest, PathThatCannotBeMadeAbsoluteStaysAsItIs) {
    const test::WatchedImport<&_wfullpath> full(
        "_wfullpath", [](wchar_t*, const wchar_t*, size_t) { return static_cast<wchar_t*>(nullptr); });
    EXPECT_EQ(MessageFilePath(store_, modulePath_), folder_ / L"Command\\Ferry\\..\\..\\Lang\\Msg.ja-JP.txt");
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
    EXPECT_EQ(Fetch(62325), L"far away");
    EXPECT_EQ(open.Calls().size(), 1U);
}

TEST_F(MessageFileTest, GivesTheTextsOfTheFile) {
    test::WriteUnits(path_,
                     L"\xFEFF// comment\r\n62325\tFirst\\nSecond\r\n62326\ta\tb\r\nEOF\r\n62327\tlate\r\n");
    EXPECT_EQ(Fetch(62325), L"First\nSecond");
    EXPECT_EQ(Fetch(62326), kMissingText);
    EXPECT_EQ(Fetch(62327), kMissingText);
}

TEST_F(MessageFileTest, FileThatSomebodyWritesCannotBeOpened) {
    test::WriteUnits(path_, L"1\ttext\r\n");
    {
        const base::FileHandle writer(CreateFileW(path_.c_str(), GENERIC_WRITE,
                                                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                                  0, nullptr));
        EXPECT_FALSE(files_.Read(path_));
    }
    EXPECT_TRUE(files_.Read(path_));
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
    EXPECT_TRUE(files_.Read(path_));
    EXPECT_EQ(open.Calls().size(), 1U);
    EXPECT_TRUE(opens(GENERIC_WRITE));
}

TEST_F(MessageFileTest, AnyBytesAreReadAsUnits) {
    test::WriteBytes(path_, {std::byte{0x41}, std::byte{0}, std::byte{0x1A}, std::byte{0}, std::byte{0x0A},
                             std::byte{0x0D}, std::byte{0x42}});
    EXPECT_EQ(files_.Read(path_), std::wstring(L"A\x1A\x0D0A"));
    test::WriteBytes(path_, {});
    EXPECT_EQ(files_.Read(path_), std::wstring());
}

}  // namespace
}  // namespace ferry::lang
