// What scripts have Windows do, call by call.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which it builds on.
#include <shellapi.h>

#include <cstdio>
#include <set>
#include <string>
#include <vector>

#include "desktop/script_boxes_win32.h"
#include "desktop/script_pace_win32.h"
#include "desktop/script_programs_win32.h"
#include "desktop/script_windows_win32.h"
#include "desktop/user_clipboard_win32.h"
#include "process/module_path_win32.h"
#include "process/program_runner_win32.h"
#include "script/byte_files_win32.h"
#include "script/chance_win32.h"
#include "script/homes_win32.h"
#include "script/speech_win32.h"
#include "script/surroundings_win32.h"
#include "windows/answered_boxes_win32.h"
#include "windows/child_process_win32.h"
#include "windows/recording_voice_win32.h"
#include "windows/recording_window_win32.h"
#include "windows/support_win32.h"
#include "windows/waiting_children_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::script {
namespace {

std::wstring OwnProgram() {
    return L"\"" + process::ModulePath() + L"\" ";
}

TEST(ScriptByteFiles, GiveTheSystemLongPathsInTheirPrefixedForm) {
    const std::wstring path = L"C:\\" + std::wstring(200, L'd') + L"\\" + std::wstring(100, L'f');
    std::vector<std::wstring> seen;
    const test::WatchedImport<&_wfsopen> open{"_wfsopen", [&](const wchar_t* name, const wchar_t*, int) {
                                                  seen.emplace_back(name);
                                                  return static_cast<FILE*>(nullptr);
                                              }};
    DiskByteFiles files;
    EXPECT_EQ(files.OpenToRead(path), nullptr);
    EXPECT_EQ(files.OpenToWrite(path, OpenMode::Append), nullptr);
    EXPECT_EQ(seen, std::vector(2, L"\\\\?\\" + path));
}

TEST(ScriptBoxes, BearTheNameOfTheHostAndTheStyleAsItIs) {
    const test::AnsweredBoxes boxes(IDCANCEL);
    EXPECT_EQ(desktop::ScriptBoxes().Show(L"text", 0x123), IDCANCEL);
    EXPECT_EQ(boxes.Only().Title, L"Kiv");
    EXPECT_EQ(boxes.Only().Style, 0x123U);
}

TEST(ScriptBoxes, StandOverTheActiveWindow) {
    const test::TestWindow window(CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                                  nullptr, nullptr, nullptr, nullptr));
    SetActiveWindow(window.Get());
    const test::AnsweredBoxes boxes;
    desktop::ScriptBoxes().Show(L"text", 0);
    EXPECT_EQ(boxes.Only().Owner, window.Get());
}

TEST(ScriptBoxes, StandOverTheGivenWindowWhileNoneIsActive) {
    const test::TestWindow window(
        CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr));
    const test::WatchedImport<&GetActiveWindow> active("GetActiveWindow", [] { return HWND{}; });
    const test::AnsweredBoxes boxes;
    desktop::ScriptBoxes(window.Get()).Show(L"text", 0);
    EXPECT_EQ(boxes.Only().Owner, window.Get());
}

TEST(ScriptHost, RecordsNameTheOwnWindowAndAreZeroBehindTheText) {
    const test::RecordingWindow window(test::UniqueName(L"FerryHost"), L"host");
    desktop::ScriptHost(window.Handle(), GetDesktopWindow()).HandOver({.Code = 100, .Text = L"ab"});
    EXPECT_EQ(window.LastSender(), reinterpret_cast<WPARAM>(GetDesktopWindow()));
    std::vector<std::byte> expected(24);
    expected[0] = std::byte{'a'};
    expected[2] = std::byte{'b'};
    EXPECT_EQ(window.LastBytes(), expected);
    desktop::ScriptHost(window.Handle()).HandOver({.Code = 100, .Text = L"ab"});
    EXPECT_EQ(window.LastSender(), 0U);
}

TEST(ScriptHost, TheWindowThatIsGivenIsTakenWhateverItsClass) {
    const test::RecordingWindow window(test::UniqueName(L"FerryHost"), L"host");
    EXPECT_TRUE(desktop::ScriptHost(window.Handle()).Exists());
    EXPECT_FALSE(desktop::ScriptHost().Exists());
}

TEST(ScriptPrograms, AreStartedWhereAndAsTheScriptSays) {
    const test::TempFolder folder;
    process::SystemPrograms starter;
    desktop::ScriptPace pace;
    desktop::ScriptPrograms programs(starter, pace);
    const std::wstring report = folder / L"report";
    const auto program = programs.Start({.CommandLine = OwnProgram() + test::ReportArguments(report),
                                         .WorkingFolder = folder.Path(),
                                         .ShowMode = SW_SHOWMINIMIZED});
    ASSERT_TRUE(program);
    EXPECT_TRUE(program->Wait(kNoTimeLimit));
    EXPECT_EQ(test::ReadUnits(report), folder.Path() + L"\n" + std::to_wstring(SW_SHOWMINIMIZED));
}

/// A clock that moves on by a millisecond whenever somebody looks at it, and by as much as somebody sleeps.
class MadeUpTime {
public:
    ULONGLONG Now = 1'000'000;

private:
    test::WatchedImport<&GetTickCount64> clock_{"GetTickCount64", [this] { return ++Now; }};
    test::WatchedImport<&Sleep> sleep_{"Sleep", [this](DWORD milliseconds) { Now += milliseconds; }};
};

/// A sign whose button is pressed by whoever holds it.
class TestSign final : public desktop::ScriptSign {
public:
    explicit TestSign(const bool& isPressed) : isPressed_(isPressed) {}
    bool TakesMessage(MSG& message) override { return message.message == WM_APP + 1; }
    bool IsStopped() override { return isPressed_; }

private:
    const bool& isPressed_;
};

constexpr ULONGLONG kLongerThanUntilTheSign = desktop::ScriptPace::kSignAfterMs + 400;

/// A pace with a sign, and what the test knows of the sign.
class ScriptPaceTest : public testing::Test {
protected:
    /// The script runs for so long.
    bool RunFor(ULONGLONG milliseconds) {
        const ULONGLONG end = time_.Now + milliseconds;
        bool goesOn = true;
        while (time_.Now < end && goesOn)
            goesOn = pace_.GoesOn();
        return goesOn;
    }

    MadeUpTime time_;
    int signs_ = 0;
    bool isPressed_ = false;
    desktop::ScriptPace pace_{[this]() -> std::unique_ptr<desktop::ScriptSign> {
        ++signs_;
        return std::make_unique<TestSign>(isPressed_);
    }};
};

TEST_F(ScriptPaceTest, AShortRunHasNoSignAndALongOneGetsOne) {
    EXPECT_TRUE(RunFor(desktop::ScriptPace::kSignAfterMs - 100));
    EXPECT_EQ(signs_, 0);
    EXPECT_TRUE(RunFor(200));
    EXPECT_EQ(signs_, 1);
    EXPECT_TRUE(RunFor(kLongerThanUntilTheSign));
    EXPECT_EQ(signs_, 1);
}

TEST_F(ScriptPaceTest, AWaitCountsAsRunning) {
    pace_.Sleep(static_cast<std::uint32_t>(kLongerThanUntilTheSign));
    EXPECT_EQ(signs_, 1);
}

TEST_F(ScriptPaceTest, OneLongStatementIsNoLongRun) {
    EXPECT_TRUE(pace_.GoesOn());
    // As long as somebody reads a box.
    time_.Now += 60'000;
    EXPECT_TRUE(pace_.GoesOn());
    EXPECT_EQ(signs_, 0);
}

TEST_F(ScriptPaceTest, ThePersonStopsTheRunForGood) {
    EXPECT_TRUE(RunFor(kLongerThanUntilTheSign));
    isPressed_ = true;
    EXPECT_FALSE(RunFor(200));
    isPressed_ = false;
    time_.Now += 1000;
    EXPECT_FALSE(RunFor(200));
}

TEST_F(ScriptPaceTest, TheNextRunIsNotStoppedAndHasASignOfItsOwn) {
    EXPECT_TRUE(RunFor(kLongerThanUntilTheSign));
    isPressed_ = true;
    EXPECT_FALSE(RunFor(200));
    isPressed_ = false;
    int others = 0;
    pace_.Begin([&]() -> std::unique_ptr<desktop::ScriptSign> {
        ++others;
        return std::make_unique<TestSign>(isPressed_);
    });
    time_.Now += 60'000;  // nothing ran meanwhile
    pace_.Begin([&]() -> std::unique_ptr<desktop::ScriptSign> {
        ++others;
        return std::make_unique<TestSign>(isPressed_);
    });
    EXPECT_TRUE(RunFor(desktop::ScriptPace::kSignAfterMs - 100));
    EXPECT_EQ(others, 0);
    EXPECT_TRUE(RunFor(200));
    EXPECT_EQ(others, 1);
    EXPECT_EQ(signs_, 1);
}

TEST_F(ScriptPaceTest, TheSignGoesWithTheRun) {
    bool stands = false;
    struct Standing final : desktop::ScriptSign {
        explicit Standing(bool& stands) : Stands(stands) { Stands = true; }
        ~Standing() override { Stands = false; }
        bool TakesMessage(MSG&) override { return false; }
        bool IsStopped() override { return false; }
        bool& Stands;
    };
    pace_.Begin([&] { return std::make_unique<Standing>(stands); });
    EXPECT_TRUE(RunFor(kLongerThanUntilTheSign));
    EXPECT_TRUE(stands);
    pace_.End();
    EXPECT_FALSE(stands);
}

TEST_F(ScriptPaceTest, AWaitEndsWhenThePersonStopsTheRun) {
    EXPECT_TRUE(RunFor(kLongerThanUntilTheSign));
    isPressed_ = true;
    const ULONGLONG start = time_.Now;
    pace_.Sleep(60'000);
    EXPECT_LT(time_.Now - start, 200U);
}

TEST_F(ScriptPaceTest, AWaitTakesItsTimeAndNotMuchMore) {
    for (const std::uint32_t milliseconds : {0U, 20U, 130U, 5000U}) {
        const ULONGLONG start = time_.Now;
        pace_.Sleep(milliseconds);
        EXPECT_GE(time_.Now - start, milliseconds);
        EXPECT_LT(time_.Now - start, milliseconds + 100U);
    }
}

TEST_F(ScriptPaceTest, MessagesAreHandledOnceThereIsASignWhichSeesThemFirst) {
    test::RecordingWindow window(test::UniqueName(L"FerryBusy"), L"busy");
    PostMessageW(window.Handle(), WM_APP, 0, 0);
    EXPECT_TRUE(RunFor(300));
    MSG waiting{};
    EXPECT_TRUE(PeekMessageW(&waiting, window.Handle(), WM_APP, WM_APP, PM_NOREMOVE));
    PostMessageW(window.Handle(), WM_APP + 1, 0, 0);
    EXPECT_TRUE(RunFor(kLongerThanUntilTheSign));
    EXPECT_FALSE(PeekMessageW(&waiting, window.Handle(), WM_APP, WM_APP + 1, PM_NOREMOVE));
    const auto messages = window.TakeMessages();
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages.front().Number, UINT{WM_APP});
}

TEST_F(ScriptPaceTest, MessagesAreNotLookedForBeforeEveryStatement) {
    EXPECT_TRUE(RunFor(kLongerThanUntilTheSign));
    const test::WatchedImport<&PeekMessageW> look("PeekMessageW");
    EXPECT_TRUE(RunFor(1000));
    EXPECT_GE(look.Calls().size(), 10U);
    EXPECT_LE(look.Calls().size(), 50U);
}

TEST_F(ScriptPaceTest, WithoutASignMessagesAreHandledFromTheStart) {
    const test::RecordingWindow window(test::UniqueName(L"FerryBusy"), L"busy");
    desktop::ScriptPace pace;
    PostMessageW(window.Handle(), WM_APP, 0, 0);
    pace.Sleep(200);
    MSG waiting{};
    EXPECT_FALSE(PeekMessageW(&waiting, window.Handle(), WM_APP, WM_APP, PM_NOREMOVE));
}

TEST_F(ScriptPaceTest, TheEndOfTheThreadStopsTheRunAndIsPassedOn) {
    desktop::ScriptPace pace;
    PostQuitMessage(5);
    pace.Sleep(200);
    EXPECT_FALSE(pace.GoesOn());
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 5U);
}

/// A person who stops the run as soon as anybody asks.
class StoppedPace final : public Pace {
public:
    void Sleep(std::uint32_t) override {}
    bool GoesOn() override { return false; }
};

TEST(ScriptPrograms, AWaitEndsWhenThePersonStopsTheRunAndTheProgramRunsOn) {
    const test::WaitingChildren children;
    process::SystemPrograms starter;
    StoppedPace pace;
    desktop::ScriptPrograms programs(starter, pace);
    const auto program =
        programs.Start({.CommandLine = OwnProgram() + children.Arguments(), .WorkingFolder = {}});
    ASSERT_TRUE(program);
    EXPECT_TRUE(program->Wait(kNoTimeLimit));
    EXPECT_EQ(program->ExitCode(), process::kStillRuns);
    EXPECT_TRUE(children.HasStarted());
}

struct AskedOpening {
    std::wstring File, Parameters, Folder;
    int ShowMode = -1;
    HWND Owner = nullptr;
};

class WatchedShell {
public:
    explicit WatchedShell(BOOL answer)
        : execute_("ShellExecuteExW", [this, answer](SHELLEXECUTEINFOW* info) {
              Asked = {info->lpFile, info->lpParameters, info->lpDirectory, info->nShow, info->hwnd};
              return answer;
          }) {}

    AskedOpening Asked;

private:
    test::WatchedImport<&ShellExecuteExW> execute_;
};

TEST(ScriptPrograms, WhatTheShellOpensIsTheFirstPartOfTheCommandLine) {
    process::SystemPrograms starter;
    desktop::ScriptPace pace;
    desktop::ScriptPrograms programs(starter, pace, GetDesktopWindow());
    const WatchedShell shell(TRUE);
    EXPECT_TRUE(programs.Open({.CommandLine = L"\"C:\\My Tools\\a.txt\" -x \"y z\"",
                               .WorkingFolder = L"D:\\work",
                               .ShowMode = SW_SHOWMAXIMIZED}));
    EXPECT_EQ(shell.Asked.File, L"C:\\My Tools\\a.txt");
    EXPECT_EQ(shell.Asked.Parameters, L"-x \"y z\"");
    EXPECT_EQ(shell.Asked.Folder, L"D:\\work");
    EXPECT_EQ(shell.Asked.ShowMode, SW_SHOWMAXIMIZED);
    EXPECT_EQ(shell.Asked.Owner, GetDesktopWindow());
}

TEST(ScriptPrograms, ARefusalOfTheShellIsTold) {
    process::SystemPrograms starter;
    desktop::ScriptPace pace;
    desktop::ScriptPrograms programs(starter, pace);
    const WatchedShell shell(FALSE);
    EXPECT_FALSE(programs.Open({.CommandLine = L"https://host.invalid/", .WorkingFolder = {}}));
    EXPECT_EQ(shell.Asked.File, L"https://host.invalid/");
}

TEST(UserClipboard, ItsOwnerIsAWindowWhenItIsFilled) {
    const test::WatchedImport<&OpenClipboard> open("OpenClipboard", [&](HWND owner) -> BOOL {
        EXPECT_TRUE(IsWindow(owner));
        return open.CallReal(owner);
    });
    desktop::UserClipboard().SetText(L"text");
    EXPECT_EQ(open.Calls().size(), 1U);
}

TEST(UserClipboard, ABusyOneIsAskedAgainAndGivenUpInTheEnd) {
    desktop::UserClipboard clipboard;
    clipboard.SetText(L"before");
    int refusals = 3;
    const test::WatchedImport<&OpenClipboard> open(
        "OpenClipboard", [&](HWND owner) -> BOOL { return refusals-- > 0 ? FALSE : open.CallReal(owner); });
    EXPECT_EQ(clipboard.Text(), L"before");
    refusals = 1'000'000;
    const ULONGLONG start = GetTickCount64();
    clipboard.SetText(L"after");
    EXPECT_EQ(clipboard.Text(), L"");
    EXPECT_LT(GetTickCount64() - start, ULONGLONG{test::kPatienceMs});
    refusals = 0;
    EXPECT_EQ(clipboard.Text(), L"before");
}

TEST(UserClipboard, MemoryThatItRefusesIsGivenBack) {
    const test::WatchedImport<&SetClipboardData> set("SetClipboardData",
                                                     [](UINT, HANDLE) -> HANDLE { return nullptr; });
    const test::WatchedImport<&GlobalFree> release("GlobalFree");
    desktop::UserClipboard().SetText(L"text");
    ASSERT_EQ(set.Calls().size(), 1U);
    ASSERT_EQ(release.Calls().size(), 1U);
    EXPECT_EQ(std::get<0>(release.OnlyCall()), std::get<1>(set.OnlyCall()));
}

TEST(UserClipboard, ATextWithoutATerminatorEndsWithItsMemory) {
    const test::TestWindow window(CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                                  GetModuleHandleW(nullptr), nullptr));
    HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, 64);
    const test::WatchedImport<&GetClipboardData> get("GetClipboardData",
                                                     [memory](UINT) -> HANDLE { return memory; });
    const std::size_t units = GlobalSize(memory) / sizeof(wchar_t);
    std::fill_n(static_cast<wchar_t*>(GlobalLock(memory)), units, L'x');
    GlobalUnlock(memory);
    EXPECT_EQ(desktop::UserClipboard().Text(), std::wstring(units, L'x'));
    GlobalFree(memory);
}

TEST(SystemChance, ReachesEveryNumberAlsoOfMany) {
    SystemChance chance;
    std::set<std::size_t> drawn;
    for (int draw = 0; draw < 1000; ++draw)
        drawn.insert(chance.Below(5));
    EXPECT_EQ(drawn.size(), 5U);
    std::size_t greatest = 0;
    for (int draw = 0; draw < 200; ++draw)
        greatest = std::max(greatest, chance.Below(10'000'000));
    EXPECT_GT(greatest, 5'000'000U);
}

TEST(SystemChance, BeginsWhereTheTimeSays) {
    DWORD time = 1;
    const test::WatchedImport<&GetTickCount> clock("GetTickCount", [&time] { return time; });
    const auto draws = [] {
        SystemChance chance;
        std::vector<std::size_t> numbers(10);
        for (std::size_t& number : numbers)
            number = chance.Below(1000);
        return numbers;
    };
    const auto first = draws();
    EXPECT_EQ(draws(), first);
    time = 77;
    EXPECT_NE(draws(), first);
}

TEST(SystemSurroundings, AMetricIsTheSystems) {
    EXPECT_EQ(SystemSurroundings().Metric(SM_CXSCREEN), GetSystemMetrics(SM_CXSCREEN));
    EXPECT_GT(SystemSurroundings().Metric(SM_CXSCREEN), 0);
}

TEST(SystemSurroundings, AnEmptyVariableIsReplaced) {
    ASSERT_TRUE(SetEnvironmentVariableW(L"FERRY_EMPTY", L""));
    EXPECT_EQ(SystemSurroundings().ExpandEnvironment(L"%FERRY_EMPTY%"), L"");
    SetEnvironmentVariableW(L"FERRY_EMPTY", nullptr);
}

/// The value of a variable that is there.
std::wstring Variable(const wchar_t* name) {
    std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

TEST(SystemHomes, AreThoseOfTheUserAndOfTheProgram) {
    SystemHomes homes(L"D:\\Kiv\\Command\\Ferry\\Ferry.exe");
    EXPECT_EQ(homes.ProgramFolder(), L"D:\\Kiv\\Command\\Ferry\\");
    EXPECT_EQ(homes.LoginName(), Variable(L"USERNAME"));
    EXPECT_EQ(homes.LocalAppData(), Variable(L"LOCALAPPDATA"));
}

TEST(SystemSpeech, TheVoiceIsToldWhatTheScriptSays) {
    test::RecordingVoice voice;
    const test::WatchedImport<&CoCreateInstance> create(
        "CoCreateInstance", [&](REFCLSID type, LPUNKNOWN, DWORD, REFIID wanted, LPVOID* object) {
            EXPECT_TRUE(IsEqualCLSID(type, __uuidof(SpVoice)));
            EXPECT_TRUE(IsEqualIID(wanted, __uuidof(ISpVoice)));
            *object = &voice;
            return S_OK;
        });
    {
        SystemSpeech speech;
        EXPECT_TRUE(create.Calls().empty());
        speech.Speak(L"one");
        speech.SetFlags(3);
        speech.SetVolume(80);
        speech.SetRate(-4);
        speech.SetPitch(5);
        speech.Speak(L"two & <three>");
        for (const int number : {-1000, 1000}) {
            speech.SetVolume(number);
            speech.SetRate(number);
            speech.SetPitch(number);
        }
    }
    const std::vector<std::wstring> expected{L"speak 0 one",
                                             L"volume 80",
                                             L"rate -4",
                                             L"speak 41 <pitch absmiddle=\"5\"/>",
                                             L"speak 3 two & <three>",
                                             L"volume 0",
                                             L"rate -10",
                                             L"speak 41 <pitch absmiddle=\"-10\"/>",
                                             L"volume 100",
                                             L"rate 10",
                                             L"speak 41 <pitch absmiddle=\"10\"/>",
                                             L"wait 10000"};
    EXPECT_EQ(voice.Calls, expected);
    EXPECT_EQ(voice.References, 0U);
    EXPECT_EQ(create.Calls().size(), 1U);
}

TEST(SystemSpeech, WithoutAServiceNothingIsSaidAndNobodyIsTold) {
    const test::AnsweredBoxes boxes;
    const test::WatchedImport<&CoCreateInstance> create(
        "CoCreateInstance",
        [](REFCLSID, LPUNKNOWN, DWORD, REFIID, LPVOID*) -> HRESULT { return REGDB_E_CLASSNOTREG; });
    SystemSpeech speech;
    speech.Speak(L"one");
    speech.SetVolume(1);
    speech.SetRate(1);
    speech.SetPitch(1);
    EXPECT_EQ(create.Calls().size(), 1U);
    EXPECT_TRUE(boxes.Asked.empty());
}

}  // namespace
}  // namespace ferry::script
