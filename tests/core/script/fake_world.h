// A world for scripts in tests: it writes down what scripts do, and answers from what a test put into it.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/utf16.h"
#include "script/engine.h"

namespace ferry::script {

/// Everything that a script may touch, in one object. `Effects` are UTF-8 lines in the order of what
/// happened.
class FakeWorld final : public Boxes,
                        public lang::Speaker,
                        public Programs,
                        public HostWindow,
                        public TraceWindow,
                        public settings::SettingsStore,
                        public files::FileInfo,
                        public files::FolderSearch,
                        public files::FileChanges,
                        public ByteFiles,
                        public Clipboard,
                        public Speech,
                        public calendar::Clock,
                        public Chance,
                        public Surroundings,
                        public Homes,
                        public Pace {
public:
    std::vector<std::string> Effects;
    std::map<std::wstring, std::wstring> Texts;   ///< Files by path; without a mark.
    std::map<std::wstring, std::uint32_t> Found;  ///< Attributes by path.
    std::vector<std::wstring> Names;              ///< What every folder holds.
    std::deque<int> Answers;
    std::optional<ScreenBox> Place;
    std::wstring TraceTitle;
    std::wstring Held;  ///< By the clipboard.
    std::uint32_t ExitCodeOfAll = 0;
    bool HasHost = true;
    bool StartsPrograms = true;
    bool ProgramsEnd = true;
    bool Writes = true;
    long long StepsLeft = 1'000'000'000;
    std::map<std::wstring, std::uint32_t> HostNumbers;
    std::function<void()> Listen = [] {};  ///< Called while a person reads what the program says.
    std::optional<std::wstring> Login = L"u";
    std::optional<std::wstring> Local = L"C:\\Local";

    World All() {
        return {*this, *this, *this, *this, *this, *this, *this, *this, *this,
                *this, *this, *this, *this, *this, *this, *this, *this};
    }

    void Note(std::string_view kind, std::wstring_view text) {
        Effects.push_back(std::string(kind) + ' ' + base::ToUtf8(text));
    }

    // --- a person
    int Show(const std::wstring& text, std::uint32_t style) override {
        Note("msg", std::to_wstring(style) + L' ' + text);
        return Answer(1);
    }
    void Tell(const std::wstring& text, lang::Tone) override {
        Note("err", text);
        Listen();
    }
    bool Ask(const std::wstring& question, lang::Tone) override {
        Note("ask", question);
        Listen();
        return Answer(6) == 6;
    }
    int Answer(int other) {
        if (Answers.empty()) {
            return other;
        }
        const int answer = Answers.front();
        Answers.pop_front();
        return answer;
    }

    // --- programs
    struct Program final : RunningProgram {
        explicit Program(FakeWorld& world) : World(world) {}
        bool Wait(std::uint32_t limitMs) override {
            World.Note("wait", std::to_wstring(limitMs));
            return World.ProgramsEnd;
        }
        std::uint32_t ExitCode() override { return World.ExitCodeOfAll; }
        void Kill(std::uint32_t exitCode) override { World.Note("kill", std::to_wstring(exitCode)); }
        FakeWorld& World;
    };
    std::unique_ptr<RunningProgram> Start(const ProgramStart& start) override {
        Note("run", start.CommandLine + L'|' + start.WorkingFolder + L'|' + std::to_wstring(start.ShowMode) +
                        (start.IsWaitedFor ? L"|wait" : L"|nowait"));
        return StartsPrograms ? std::make_unique<Program>(*this) : nullptr;
    }
    bool StartHelper(const std::wstring& commandLine) override {
        Note("start", commandLine);
        return true;
    }
    bool Open(const ProgramStart& what) override {
        Note("shell", what.CommandLine);
        return StartsPrograms;
    }

    // --- other windows
    bool Exists() override { return HasHost; }
    void HandOver(const Record& record) override {
        Note("send", std::to_wstring(record.Code) + L' ' + record.Text);
    }
    void Post(std::uint32_t message, int wParam, int lParam) override {
        NoteMessage("post", message, wParam, lParam);
    }
    void Send(std::uint32_t message, int wParam, int lParam) override {
        NoteMessage("sendm", message, wParam, lParam);
    }
    void NoteMessage(std::string_view kind, std::uint32_t message, int wParam, int lParam) {
        Note(kind,
             std::to_wstring(message) + L' ' + std::to_wstring(wParam) + L' ' + std::to_wstring(lParam));
    }
    std::optional<ScreenBox> Position() override { return Place; }
    bool Find(const wchar_t* title) override { return TraceTitle == title; }
    void Send(const Record& record) override {
        Note("trace", std::to_wstring(record.Code) + L' ' + record.Text);
    }

    // --- settings
    std::wstring ReadText(std::wstring_view, std::wstring_view defaultText) override {
        return std::wstring(defaultText);
    }
    std::uint32_t ReadNumber(std::wstring_view, std::uint32_t defaultNumber) override {
        return defaultNumber;
    }
    bool WriteText(std::wstring_view, std::wstring_view) override { return false; }
    bool WriteNumber(std::wstring_view, std::uint32_t) override { return false; }
    std::wstring ReadHostText(std::wstring_view, std::wstring_view) override { return L"D:\\mine\\"; }
    std::uint32_t ReadHostNumber(std::wstring_view name) override { return HostNumbers[std::wstring(name)]; }
    bool WriteTextToKey(std::wstring_view key, std::wstring_view name, std::wstring_view text) override {
        Note("reg", std::wstring(key).append(L"|").append(name).append(L"|sz ").append(text));
        return true;
    }
    bool WriteNumberToKey(std::wstring_view key, std::wstring_view name, std::uint32_t number) override {
        Note("reg", std::wstring(key).append(L"|").append(name).append(L"|dword ") + std::to_wstring(number));
        return true;
    }

    // --- files
    std::uint32_t Attributes(std::wstring_view path) override {
        const auto found = Found.find(std::wstring(path));
        return found != Found.end() ? found->second : files::kInvalidAttributes;
    }
    std::optional<files::FoundItem> Find(std::wstring_view) override { return std::nullopt; }
    std::uint64_t Size(std::wstring_view) override { return 0; }
    bool IsRoot(std::wstring_view) override { return false; }
    std::optional<files::ItemId> Identity(std::wstring_view) override { return std::nullopt; }
    std::uint32_t Search(std::wstring_view, const std::function<bool(const files::Match&)>& visit) override {
        for (const std::wstring& name : Names) {
            const bool isFolder = name.ends_with(L'\\');
            if (!visit({std::wstring_view(name).substr(0, name.size() - isFolder),
                        isFolder ? 0x10U : 0x20U,
                        {}})) {
                break;
            }
        }
        return 0;
    }
    bool SetAttributes(std::wstring_view, std::uint32_t) override { return false; }
    int MakeFolder(std::wstring_view path) override {
        Note("mkdir", path);
        return 0;
    }
    bool RemoveFolder(std::wstring_view) override { return false; }
    bool Rename(std::wstring_view, std::wstring_view) override { return false; }
    void LetOthersClose() override {}

    struct Input final : InFile {
        Input(std::wstring_view text, int& readers) : Bytes(base::BytesFromUnits(text)), Readers(readers) {
            ++Readers;
        }
        Input(const Input&) = delete;
        Input& operator=(const Input&) = delete;
        ~Input() override { --Readers; }
        std::size_t Read(std::span<std::byte> bytes) override {
            const std::size_t count = std::min(bytes.size(), Bytes.size() - Next);
            std::copy_n(Bytes.begin() + static_cast<std::ptrdiff_t>(Next), count, bytes.begin());
            Next += count;
            return count;
        }
        std::vector<std::byte> Bytes;
        int& Readers;
        std::size_t Next = 0;
    };
    struct Output final : OutFile {
        Output(FakeWorld& world, std::wstring_view path) : World(world), Path(path) {}
        Output(const Output&) = delete;
        Output& operator=(const Output&) = delete;
        ~Output() override { World.Note("close", Path); }
        bool Write(std::span<const std::byte> bytes) override {
            std::wstring text = Path + L'|';
            for (const std::byte byte : bytes) {
                constexpr const wchar_t* kDigits = L"0123456789abcdef";
                text.append(1, kDigits[std::to_integer<int>(byte) / 16])
                    .append(1, kDigits[std::to_integer<int>(byte) % 16]);
            }
            World.Note("write", text);
            return World.Writes;
        }
        FakeWorld& World;
        std::wstring Path;
    };
    std::unique_ptr<InFile> OpenToRead(std::wstring_view path) override {
        const auto found = Texts.find(std::wstring(path));
        return found != Texts.end() ? std::make_unique<Input>(found->second, Readers[found->first]) : nullptr;
    }
    std::unique_ptr<OutFile> OpenToWrite(std::wstring_view path, OpenMode mode) override {
        Note("open", std::wstring(path) + (mode == OpenMode::Append ? L"|ab+S" : L"|wbS"));
        const bool isFree = Readers[std::wstring(path)] == 0;
        return Writes && isFree ? std::make_unique<Output>(*this, path) : nullptr;
    }
    std::map<std::wstring, int> Readers;  ///< How many read the file at a path.

    // --- the system
    std::wstring Text() override { return Held; }
    void SetText(const std::wstring& text) override { Note("clip", text); }
    void Speak(const std::wstring& text) override { Note("speak", text); }
    void SetFlags(int flags) override { Note("speech", L"flags " + std::to_wstring(flags)); }
    void SetVolume(int percent) override { Note("speech", L"volume " + std::to_wstring(percent)); }
    void SetRate(int rate) override { Note("speech", L"rate " + std::to_wstring(rate)); }
    void SetPitch(int pitch) override { Note("speech", L"pitch " + std::to_wstring(pitch)); }
    calendar::CalendarFields Now() override { return {2026, 2, 3, 4, 5, 6}; }
    std::optional<calendar::CalendarFields> LocalTime(std::uint64_t) override { return std::nullopt; }
    double LocalDate(std::uint64_t) override { return 0; }
    std::size_t Below(std::size_t count) override { return count - 1; }
    std::wstring ExpandEnvironment(const std::wstring& text) override {
        const std::size_t at = text.find(L"%HOME%");
        return at == std::wstring::npos ? text : std::wstring(text).replace(at, 6, L"C:\\home");
    }
    std::wstring FullPath(const std::wstring& path) override {
        if (path == L"C:\\Kiv\\Command\\Ferry\\..\\..\\") {
            return L"C:\\Kiv\\";
        }
        return path.find(L':') == std::wstring::npos ? L"C:\\cur\\" + path : path;
    }
    std::wstring CurrentFolder() override { return L"C:\\cur"; }
    std::string Narrow(const std::wstring& text) override {
        std::string narrow;
        for (const wchar_t unit : text) {
            narrow += unit < 0x80 ? static_cast<char>(unit) : '?';
        }
        return narrow;
    }
    int Metric(int index) override { return index * 100; }
    std::optional<std::wstring> LoginName() override { return Login; }
    std::optional<std::wstring> LocalAppData() override { return Local; }
    std::wstring ProgramFolder() override { return L"C:\\Kiv\\Command\\Ferry\\"; }
    void Sleep(std::uint32_t milliseconds) override { Note("sleep", std::to_wstring(milliseconds)); }
    bool GoesOn() override { return --StepsLeft >= 0; }
};

}  // namespace ferry::script
