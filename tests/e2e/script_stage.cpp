#include "e2e/script_stage.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "base/case_order.h"
#include "base/text.h"
#include "base/utf16.h"
#include "e2e/driver/clipboard.h"
#include "e2e/driver/contents.h"
#include "e2e/driver/file_op_log.h"
#include "e2e/driver/surroundings.h"
#include "e2e/driver/temp_tree.h"
#include "e2e/stand_in.h"
#include "support/poll_win32.h"

namespace ferry::e2e {

using scripttools::Bytes;
using scripttools::Effect;
using test::WaitUntil;
namespace {

constexpr std::wstring_view kKeyOfHosts = L"Software\\Marrowby\\Kiv\\Main001";

std::wstring ParentOf(const std::wstring& path) {
    return path.substr(0, path.rfind(L'\\'));
}

void WriteBytes(const std::wstring& path, const Bytes& bytes) {
    MakeFolders(ParentOf(path));
    const base::FileHandle file(
        CreateFileW(LongForm(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    DWORD written = 0;
    WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

std::string Hex(std::string_view bytes) {
    return base::ToUtf8(scripttools::HexDigits(std::as_bytes(std::span(bytes))));
}

/// The program that a command line names, without quotes; every test script writes its whole file name.
std::wstring ProgramOf(const std::wstring& commandLine) {
    constexpr std::wstring_view kEnd = L".exe";
    const std::size_t end = base::SmallLetters(commandLine).find(kEnd);
    std::wstring program = commandLine.substr(0, end == std::wstring::npos ? end : end + kEnd.size());
    std::erase(program, L'"');
    return program;
}

/// The system may put quotes around the program that it found.
std::wstring WithoutFirstQuotes(const std::wstring& commandLine) {
    const std::size_t end = commandLine.starts_with(L'"') ? commandLine.find(L'"', 1) : std::wstring::npos;
    return end == std::wstring::npos ? commandLine
                                     : commandLine.substr(1, end - 1) + commandLine.substr(end + 1);
}

/// How a start is compared: a folder is the same in any case and with a separator at its end.
std::wstring StartText(const std::wstring& commandLine, std::wstring folder, const std::wstring& showMode) {
    while (folder.ends_with(L'\\'))
        folder.pop_back();
    return WithoutFirstQuotes(commandLine) + L'|' + base::SmallLetters(folder) + L'|' + showMode;
}

/// The parts of a "reg" effect.
struct RegistryEffect {
    std::wstring Key;
    std::wstring Name;
    std::wstring Value;  ///< "sz TEXT" or "dword NUMBER".
};

std::vector<RegistryEffect> RegistryEffects(const std::vector<Effect>& effects) {
    std::vector<RegistryEffect> all;
    for (const Effect& effect : effects) {
        if (effect.Kind != L"reg")
            continue;
        const std::size_t name = effect.Text.find(L'|') + 1;
        const std::size_t value = effect.Text.find(L'|', name) + 1;
        all.push_back({effect.Text.substr(0, name - 1), effect.Text.substr(name, value - name - 1),
                       effect.Text.substr(value)});
    }
    return all;
}

/// The value in the form of effects; nothing when there is none.
std::optional<std::wstring> StoredForm(const RegistryEffect& effect) {
    if (const auto text = ReadText(effect.Key.c_str(), effect.Name))
        return L"sz " + *text;
    if (const auto number = ReadNumber(effect.Key.c_str(), effect.Name))
        return L"dword " + std::to_wstring(*number);
    return std::nullopt;
}

bool HasKey(const std::wstring& path) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

/// Removes what lies in `folder`, but neither `kept` nor the folders around it. False when something stays.
bool RemoveAround(const std::wstring& folder, const std::wstring& kept) {
    bool isEmpty = true;
    test::VisitEntries(LongForm(folder), [&](const test::FolderEntry& entry) {
        const std::wstring path = folder + L'\\' + entry.Name;
        if ((base::SmallLetters(kept) + L'\\').starts_with(base::SmallLetters(path) + L'\\')) {
            isEmpty = RemoveAround(path, kept) && isEmpty;
        } else {
            RemoveAll(path);
            isEmpty = !Exists(path) && isEmpty;
        }
    });
    return isEmpty;
}

}  // namespace

ScriptStage::ScriptStage(const StagedScript& script, scripttools::MovedPlaces places, std::wstring programLog)
    : script_(script), places_(std::move(places)), programLog_(std::move(programLog)) {
    KeepKeys();
    MakeFiles();
    MakePrograms();
    if (UsesClipboard())
        SetClipboardText(script_.File.World.Clipboard);
}

ScriptStage::~ScriptStage() {
    PutKeysBack();
    for (const std::wstring& program : programs_)
        RemoveAll(program + kPlanEnd);
    DeleteFileW(programLog_.c_str());
    // The programs end now, and can be removed then.
    const std::wstring& kept = script_.File.World.CurrentFolder;
    WaitUntil([&] { return RemoveAround(places_.Drives, kept) && RemoveAround(places_.Scripts, kept); });
}

void ScriptStage::MakeFiles() const {
    for (const std::wstring& folder : script_.File.World.Folders)
        MakeFolders(folder);
    for (const auto& [path, content] : script_.File.World.Files)
        WriteBytes(path, content);
}

void ScriptStage::MakePrograms() {
    for (const script::ProgramStart& start : script_.Rehearsed.Started) {
        if (!start.WorkingFolder.empty())
            MakeFolders(start.WorkingFolder);
        const std::wstring program = ProgramOf(start.CommandLine);
        const std::wstring fileName = program.substr(program.rfind(L'\\') + 1);
        const std::wstring path =
            fileName == program ? script_.File.World.CurrentFolder + L'\\' + program : program;
        scripttools::PretendedProgram plan;
        for (const auto& [name, described] : script_.File.World.Programs) {
            if (base::SmallLetters(name) == base::SmallLetters(fileName))
                plan = described;
        }
        MakeFolders(ParentOf(path));
        CopyFileW((OwnFolder() + L"\\stand_in.exe").c_str(), path.c_str(), FALSE);
        const std::string text = std::to_string(plan.ExitCode) + ' ' + std::to_string(plan.DurationMs);
        const auto bytes = std::as_bytes(std::span(text));
        WriteBytes(path + kPlanEnd, {bytes.begin(), bytes.end()});
        programs_.push_back(path);
    }
}

void ScriptStage::KeepKeys() {
    for (const RegistryEffect& effect : RegistryEffects(script_.Rehearsed.Effects)) {
        KeptKey kept{effect.Key, ReadValues(effect.Key.c_str()), {}};
        for (std::wstring key = effect.Key; key.size() > kKeyOfHosts.size() && !HasKey(key);
             key = ParentOf(key))
            kept.NewKeys.push_back(key);
        keys_.push_back(std::move(kept));
    }
}

void ScriptStage::PutKeysBack() const {
    for (const KeptKey& kept : keys_) {
        for (const auto& [name, value] : ReadValues(kept.Path.c_str()))
            DeleteValue(kept.Path.c_str(), name);
        for (const auto& [name, value] : kept.Values)
            WriteValue(kept.Path.c_str(), name, value);
        for (const std::wstring& key : kept.NewKeys)
            RegDeleteKeyW(HKEY_CURRENT_USER, key.c_str());
    }
}

bool ScriptStage::UsesClipboard() const {
    const std::wstring text = base::UnitsFromBytes(script_.File.World.Files.at(script_.File.World.Script));
    return base::SmallLetters(text).find(L"clipboard") != std::wstring::npos;
}

std::string ScriptStage::Differences() const {
    return FileDifferences() + ProgramDifferences() + RegistryDifferences() + ClipboardDifferences();
}

std::string ScriptStage::FileDifferences() const {
    std::string differences;
    std::set<std::wstring> expected;
    for (const auto& [path, content] : script_.Rehearsed.Files) {
        expected.insert(base::SmallLetters(path));
        const std::string found = ReadBytes(path);
        if (!Exists(path))
            differences += "there is no file " + base::ToUtf8(path) + '\n';
        else if (!std::ranges::equal(std::as_bytes(std::span(found)), content))
            differences += base::ToUtf8(path) + " holds " + Hex(found) + '\n';
    }
    for (const std::wstring& program : programs_) {
        expected.insert(base::SmallLetters(program));
        expected.insert(base::SmallLetters(program + kPlanEnd));
    }
    for (const std::wstring& folder : {places_.Drives, places_.Scripts}) {
        for (const std::wstring& path : FilesBelow(folder)) {
            if (!expected.contains(base::SmallLetters(path)))
                differences += "there is a file " + base::ToUtf8(path) + '\n';
        }
    }
    return differences;
}

std::string ScriptStage::ProgramDifferences() const {
    std::multiset<std::wstring> expected;
    for (const script::ProgramStart& start : script_.Rehearsed.Started) {
        const std::wstring& folder =
            start.WorkingFolder.empty() ? script_.File.World.CurrentFolder : start.WorkingFolder;
        expected.insert(StartText(start.CommandLine, folder, std::to_wstring(start.ShowMode)));
    }
    // Those that nobody waits for have just been started.
    std::multiset<std::wstring> found;
    WaitUntil([&] {
        found.clear();
        for (FileOpLine line : ReadFileOpLog(programLog_)) {
            line.resize(3);
            found.insert(StartText(line[0], line[1], line[2]));
        }
        return found.size() >= expected.size();
    });
    std::string differences;
    if (found != expected) {
        for (const std::wstring& start : expected)
            differences += "- started: " + base::ToUtf8(start) + '\n';
        for (const std::wstring& start : found)
            differences += "+ started: " + base::ToUtf8(start) + '\n';
    }
    const auto isKill = [](const Effect& effect) { return effect.Kind == L"kill"; };
    if (std::ranges::any_of(script_.Rehearsed.Effects, isKill)) {
        const std::wstring& program = programs_.front();
        const std::wstring mutex = StandInMutex(program.substr(program.rfind(L'\\') + 1));
        // It would run for much longer.
        constexpr int kKillMs = 1500;
        const auto isGone = [&] { return !base::MutexHandle(OpenMutexW(SYNCHRONIZE, FALSE, mutex.c_str())); };
        if (!WaitUntil(isGone, kKillMs))
            differences += base::ToUtf8(program) + " was not killed\n";
    }
    return differences;
}

std::string ScriptStage::RegistryDifferences() const {
    std::map<std::pair<std::wstring, std::wstring>, RegistryEffect> last;
    for (const RegistryEffect& effect : RegistryEffects(script_.Rehearsed.Effects))
        last[{effect.Key, effect.Name}] = effect;
    std::string differences;
    for (const auto& [place, effect] : last) {
        const auto stored = StoredForm(effect);
        if (stored != effect.Value)
            differences += base::ToUtf8(effect.Key + L'|' + effect.Name) + " is " +
                           (stored ? base::ToUtf8(*stored) : "missing") + ", not " +
                           base::ToUtf8(effect.Value) + '\n';
    }
    return differences;
}

std::string ScriptStage::ClipboardDifferences() const {
    std::optional<std::wstring> expected;
    for (const Effect& effect : script_.Rehearsed.Effects) {
        if (effect.Kind == L"clip")
            expected = effect.Text;
    }
    if (!expected || WaitUntil([&] { return ClipboardText() == *expected; }))
        return {};
    return "the clipboard holds " + base::ToUtf8(ClipboardText()) + ", not " + base::ToUtf8(*expected) + '\n';
}

}  // namespace ferry::e2e
