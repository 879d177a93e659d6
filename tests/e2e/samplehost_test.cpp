// The sample host by itself, with the command interpreter in Ferry's place.
#include <gtest/gtest.h>

#include "base/handles_win32.h"
#include "e2e/driver/child_process.h"
#include "e2e/driver/file_op_log.h"
#include "e2e/driver/surroundings.h"
#include "e2e/driver/temp_tree.h"
#include "samplehost/delivery_win32.h"
#include "samplehost/host_block_writer.h"
#include "support/poll_win32.h"

namespace ferry::e2e {
namespace {

using test::kPatienceMs;
using test::WaitUntil;

using Arguments = std::vector<std::wstring>;

class SampleHost : public testing::Test {
protected:
    static std::wstring Interpreter() { return Variable(L"ComSpec"); }

    /// The host's log lines of one kind.
    std::vector<FileOpLine> Lines(const std::wstring& kind) const {
        return LinesOf(ReadFileOpLog(log_), kind);
    }

    /// Starts the host, logging, with these options.
    ChildProcess Start(Arguments arguments) const {
        arguments.insert(arguments.begin(), {L"--log", log_});
        return {HostPath(), arguments};
    }

    HWND HostWindow() const {
        WaitUntil([&] { return !Lines(L"WINDOW").empty(); });
        const auto lines = Lines(L"WINDOW");
        return lines.empty() ? nullptr : reinterpret_cast<HWND>(std::stoull(lines[0][1], nullptr, 16));
    }

    /// The exit code of the host; that of a running process when it does not end in time.
    static DWORD EndOf(const ChildProcess& host, int timeoutMs = kPatienceMs) {
        return host.WaitForEnd(timeoutMs).ExitCode;
    }

    TempTree tree_;
    std::wstring log_ = tree_.Path(L"host.log");
};

TEST_F(SampleHost, PassesTheExitCodeOn) {
    const ChildProcess host = Start({L"--ferry", Interpreter(), L"--", L"/c", L"exit", L"7"});
    EXPECT_EQ(EndOf(host), 7U);
    ASSERT_EQ(Lines(L"ENDED").size(), 1U);
    EXPECT_EQ(Lines(L"ENDED")[0][1], L"7");
}

TEST_F(SampleHost, AnnouncesTenFieldsToTheProgramItStarts) {
    const std::wstring seen = tree_.Path(L"seen.txt");
    const ChildProcess host =
        Start({L"--ferry",    Interpreter(), L"--mode", L"2",  L"--activate",
               L"1",          L"--numbers",  L"10",     L"20", L"--size",
               L"4096",       L"--reserved", L"x",      L"y",  L"z",
               L"--trailing", L"end",        L"--",     L"/c", L"echo %KIV_ExCommand%>" + seen});
    ASSERT_EQ(EndOf(host), 0U);
    EXPECT_TRUE(ReadBytes(seen).starts_with("2:1:10:20:4096:x:y:z:Share:end"));
}

TEST_F(SampleHost, SharesTheBlockUnderItsName) {
    const ChildProcess host = Start({L"--stay", L"--numbers", L"77", L"3", L"--item", L"C:\\あ.txt", L"--tab",
                                     L"D:\\b", L"--current", L"C:\\w", L"--option", L"o"});
    const HWND window = HostWindow();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(FindWindowW(samplehost::kHostWindowClass, nullptr), window);
    const base::MappingHandle mapping(OpenFileMappingW(FILE_MAP_READ, FALSE, L"ShareMem_77_3"));
    ASSERT_TRUE(mapping);
    const base::MappedView view(MapViewOfFile(mapping.Get(), FILE_MAP_READ, 0, 0, 0));
    ASSERT_TRUE(view);
    EXPECT_EQ(std::wstring(static_cast<const wchar_t*>(view.Get())), L"1\t1\tC:\\w\to\tC:\\あ.txt\tD:\\b\t");
    EXPECT_TRUE(base::MutexHandle(OpenMutexW(SYNCHRONIZE, FALSE, L"ShareMem_77_3_Mutex")));
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(EndOf(host), 0U);
}

TEST_F(SampleHost, LogsDataUpToItsNul) {
    const ChildProcess host = Start({L"--stay"});
    const HWND window = HostWindow();
    ASSERT_NE(window, nullptr);
    auto bytes = samplehost::TextPayload(L"C:\\行き先\\");
    bytes.resize(bytes.size() * 4, std::byte{'x'});
    ASSERT_TRUE(samplehost::SendData(window, nullptr, 200, bytes, kPatienceMs));
    const auto lines = Lines(L"COPYDATA");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0], (FileOpLine{L"COPYDATA", L"200", L"64", L"0x0", L"C:\\行き先\\"}));
}

TEST_F(SampleHost, PlaysTheTraceWindowWhichIsNotTheHost) {
    const ChildProcess host = Start({L"--stay", L"--trace", L"Script trace Kiv"});
    const HWND window = HostWindow();
    ASSERT_NE(window, nullptr);
    const HWND trace = FindWindowW(nullptr, L"Script trace Kiv");
    ASSERT_NE(trace, nullptr);
    EXPECT_EQ(FindWindowW(samplehost::kHostWindowClass, nullptr), window);
    ASSERT_TRUE(samplehost::SendData(trace, nullptr, 2, samplehost::TextPayload(L"7"), kPatienceMs));
    const auto lines = Lines(L"TRACE");
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0], (FileOpLine{L"TRACE", L"2", L"4", L"0x0", L"7"}));
    EXPECT_TRUE(Lines(L"COPYDATA").empty());
}

TEST_F(SampleHost, HandsOverAMillionItemsFromAFile) {
    std::string text;
    for (int index = 0; index < 1000000; ++index) {
        text += "C:\\t\\" + std::to_string(index) + "\r\n";
    }
    const std::wstring items = tree_.WriteFile(L"items.txt", text);
    const ChildProcess host =
        Start({L"--ferry", Interpreter(), L"--items-file", items, L"--", L"/c", L"exit", L"0"});
    EXPECT_EQ(EndOf(host, 4 * kPatienceMs), 0U);
    ASSERT_EQ(Lines(L"BLOCK").size(), 1U);
    EXPECT_GT(std::stoul(Lines(L"BLOCK")[0][2]), 20000000U);
}

TEST_F(SampleHost, SaysWhenItCannotStartAProgram) {
    const ChildProcess host = Start({L"--ferry", tree_.Path(L"none.exe")});
    EXPECT_EQ(EndOf(host), 120U);
}

TEST_F(SampleHost, RefusesAnOptionThatItDoesNotKnow) {
    const ChildProcess host = Start({L"--nonsense"});
    EXPECT_EQ(EndOf(host), 2U);
}

TEST_F(SampleHost, EndsAfterTheSecondsItWasGiven) {
    const ChildProcess host = Start({L"--stay", L"--seconds", L"1"});
    EXPECT_EQ(EndOf(host), 0U);
}

}  // namespace
}  // namespace ferry::e2e
