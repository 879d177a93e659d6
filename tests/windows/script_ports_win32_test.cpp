// What reaches Windows for scripts keeps the contracts of their world.
#include <windows.h>
#include <gtest/gtest.h>

#include <chrono>
#include <list>

#include "base/handles_win32.h"
#include "core/script/file_contract.h"
#include "core/script/program_contract.h"
#include "core/script/system_contract.h"
#include "core/script/window_contract.h"
#include "desktop/host_messages.h"
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
#include "windows/child_process_win32.h"
#include "windows/current_folder_win32.h"
#include "windows/recording_window_win32.h"
#include "windows/support_win32.h"
#include "windows/waiting_children_win32.h"

namespace ferry::script::contract {
namespace {

class DiskPlace final : public FilePlace {
public:
    ByteFiles& Files() override { return files_; }
    std::wstring Root() override { return folder_.Path(); }
    std::wstring LongFolder() override { return folder_.LongFolder(); }

    void Write(const std::wstring& path, const std::string& content) override {
        const auto bytes = std::as_bytes(std::span(content));
        test::WriteBytes(path, {bytes.begin(), bytes.end()});
    }

    std::optional<std::string> Content(const std::wstring& path) override {
        const auto bytes = test::ReadBytes(path);
        if (!bytes)
            return std::nullopt;
        return std::string(reinterpret_cast<const char*>(bytes->data()), bytes->size());
    }

private:
    test::TempFolder folder_;
    test::CurrentFolder current_{folder_.Path()};
    DiskByteFiles files_;
};

INSTANTIATE_TEST_SUITE_P(Disk, FileContract, testing::Values(&test::Make<FilePlace, DiskPlace>));

class SystemProgramPlace final : public ProgramPlace {
public:
    Programs& ThePrograms() override { return programs_; }
    std::wstring Ending(std::uint32_t exitCode) override {
        return Own() + test::ExitArguments(static_cast<int>(exitCode));
    }
    std::wstring Staying() override { return Own() + children_.Arguments(); }
    std::wstring Missing() override { return folder_ / L"missing.exe"; }

private:
    static std::wstring Own() { return L"\"" + process::ModulePath() + L"\" "; }

    test::TempFolder folder_;
    test::WaitingChildren children_;
    process::SystemPrograms starter_;
    desktop::ScriptPace pace_;
    desktop::ScriptPrograms programs_{starter_, pace_};
};

INSTANTIATE_TEST_SUITE_P(System, ProgramContract,
                         testing::Values(&test::Make<ProgramPlace, SystemProgramPlace>));

class DesktopHostPlace final : public HostPlace {
public:
    HostWindow& Present() override { return present_; }
    HostWindow& Absent() override { return absent_; }
    ScreenBox Stands() override {
        RECT place{};
        GetWindowRect(window_.Handle(), &place);
        return {place.left, place.top, place.right, place.bottom};
    }
    std::vector<ArrivedRecord> TakeRecords() override { return window_.TakeRecords(); }
    std::vector<ArrivedMessage> TakeMessages() override { return window_.TakeMessages(); }

private:
    static HWND Gone() {
        const test::RecordingWindow window(test::UniqueName(L"FerryGone"), L"gone");
        return window.Handle();
    }

    HWND gone_ = Gone();
    test::RecordingWindow window_{desktop::kHostWindowClass, L"host"};
    desktop::ScriptHost present_;
    desktop::ScriptHost absent_{gone_};
};

INSTANTIATE_TEST_SUITE_P(Desktop, HostContract, testing::Values(&test::Make<HostPlace, DesktopHostPlace>));

class DesktopTracePlace final : public TracePlace {
public:
    TraceWindow& Trace() override { return trace_; }
    const wchar_t* Title() override { return L"Script trace Kiv"; }
    std::vector<ArrivedRecord> TakeRecords() override { return window_.TakeRecords(); }

private:
    test::RecordingWindow window_{test::UniqueName(L"FerryTrace"), Title()};
    desktop::ScriptTrace trace_;
};

INSTANTIATE_TEST_SUITE_P(Desktop, TraceContract, testing::Values(&test::Make<TracePlace, DesktopTracePlace>));

class DesktopBoxPlace final : public BoxPlace {
public:
    Boxes& TheBoxes() override { return boxes_; }
    std::wstring ReadDuring(const std::function<void()>& show, int button) override {
        auto answer = test::AnswerNextBox(button);
        show();
        return answer.get();
    }

private:
    desktop::ScriptBoxes boxes_;
};

INSTANTIATE_TEST_SUITE_P(Desktop, BoxContract, testing::Values(&test::Make<BoxPlace, DesktopBoxPlace>));

/// Another program, as far as the clipboard goes.
class DesktopClipboardPlace final : public ClipboardPlace {
public:
    DesktopClipboardPlace() { before_ = Pasted(); }
    ~DesktopClipboardPlace() override { Copy(before_); }

    Clipboard& TheClipboard() override { return clipboard_; }

    void Copy(const std::wstring& text) override {
        const std::size_t byteCount = (text.size() + 1) * sizeof(wchar_t);
        HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, byteCount);
        std::copy_n(text.c_str(), text.size() + 1, static_cast<wchar_t*>(GlobalLock(memory)));
        GlobalUnlock(memory);
        Open();
        EmptyClipboard();
        EXPECT_NE(SetClipboardData(CF_UNICODETEXT, memory), nullptr);
        CloseClipboard();
    }

    void Clear() override {
        Open();
        EXPECT_TRUE(EmptyClipboard());
        CloseClipboard();
    }

    std::wstring Pasted() override {
        Open();
        HANDLE const memory = GetClipboardData(CF_UNICODETEXT);
        const std::wstring text = memory == nullptr ? L"" : static_cast<const wchar_t*>(GlobalLock(memory));
        if (memory != nullptr)
            GlobalUnlock(memory);
        CloseClipboard();
        return text;
    }

private:
    void Open() {
        EXPECT_TRUE(test::WaitUntil([this] { return OpenClipboard(window_.Get()) != FALSE; }));
    }

    test::TestWindow window_{CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                             GetModuleHandleW(nullptr), nullptr)};
    std::wstring before_;
    desktop::UserClipboard clipboard_;
};

INSTANTIATE_TEST_SUITE_P(Desktop, ClipboardContract,
                         testing::Values(&test::Make<ClipboardPlace, DesktopClipboardPlace>));

class SystemSurroundingsPlace final : public SurroundingsPlace {
public:
    ~SystemSurroundingsPlace() override {
        for (const std::wstring& name : names_)
            SetEnvironmentVariableW(name.c_str(), nullptr);
    }

    Surroundings& TheSurroundings() override { return surroundings_; }
    void SetVariable(const std::wstring& name, const std::wstring& value) override {
        names_.push_back(name);
        EXPECT_TRUE(SetEnvironmentVariableW(name.c_str(), value.c_str()));
    }
    std::wstring CurrentFolder() override { return folder_.Path(); }
    bool IsNarrowComplete() override { return GetACP() == CP_UTF8; }

private:
    test::TempFolder folder_;
    test::CurrentFolder current_{folder_.Path()};
    std::vector<std::wstring> names_;
    SystemSurroundings surroundings_;
};

INSTANTIATE_TEST_SUITE_P(System, SurroundingsContract,
                         testing::Values(&test::Make<SurroundingsPlace, SystemSurroundingsPlace>));

class SystemSmallPlace final : public SmallPlace {
public:
    Homes& TheHomes() override { return homes_; }
    Chance& TheChance() override { return chance_; }
    Pace& ThePace() override { return pace_; }
    Speech& TheSpeech() override { return speech_; }

private:
    SystemHomes homes_{process::ModulePath()};
    SystemChance chance_;
    desktop::ScriptPace pace_;
    SystemSpeech speech_;
};

INSTANTIATE_TEST_SUITE_P(System, SmallContract, testing::Values(&test::Make<SmallPlace, SystemSmallPlace>));

}  // namespace
}  // namespace ferry::script::contract
