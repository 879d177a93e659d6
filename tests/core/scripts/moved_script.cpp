#include "core/scripts/moved_script.h"

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <utility>

#include "base/case_order.h"
#include "base/text.h"

namespace ferry::scripttools {

namespace {

/// The longest that a script or a program of one takes part with.
constexpr std::uint32_t kLongestMs = 5000;

/// How much longer a program takes where the machine is busy.
constexpr std::uint32_t kSlowStartMs = 1000;

bool IsWordUnit(wchar_t unit) noexcept {
    return base::IsDriveLetter(unit) || base::IsDigit(unit) || unit == L'_';
}

/// Whether the path of a drive begins at `at`.
bool IsDrivePath(std::wstring_view text, std::size_t at) noexcept {
    return at + 2 < text.size() && base::IsDriveLetter(text[at]) && text[at + 1] == L':' &&
           (text[at + 2] == L'\\' || text[at + 2] == L'/') && (at == 0 || !IsWordUnit(text[at - 1]));
}

/// Whether the path that begins at `at` is that of the scripts or of something in it.
bool IsInScripts(std::wstring_view text, std::size_t at) {
    constexpr std::wstring_view kScripts = L"c:\\s";
    const std::size_t end = at + kScripts.size();
    return base::SmallLetters(text.substr(at, kScripts.size())) == kScripts &&
           (end == text.size() || !IsWordUnit(text[end]));
}

/// The last candidate each time, where the pretended world takes one after the other.
class LastChance final : public script::Chance {
public:
    std::size_t Below(std::size_t count) override { return count - 1; }
};

class NotedBoxes final : public script::Boxes {
public:
    NotedBoxes(script::Boxes& boxes, std::vector<RehearsedBox>& notes) : boxes_(boxes), notes_(notes) {}

    int Show(const std::wstring& text, std::uint32_t style) override {
        const int button = boxes_.Show(text, style);
        notes_.push_back({L"msg", text, style, button});
        return button;
    }

private:
    script::Boxes& boxes_;
    std::vector<RehearsedBox>& notes_;
};

class NotedSpeaker final : public lang::Speaker {
public:
    NotedSpeaker(lang::Speaker& speaker, std::vector<RehearsedBox>& notes)
        : speaker_(speaker), notes_(notes) {}

    void Tell(const std::wstring& text, lang::Tone tone) override {
        constexpr int kOk = 1;
        speaker_.Tell(text, tone);
        notes_.push_back({L"err", text, 0, kOk});
    }
    bool Ask(const std::wstring& question, lang::Tone tone) override {
        constexpr int kYes = 6;
        constexpr int kNo = 7;
        const bool isYes = speaker_.Ask(question, tone);
        notes_.push_back({L"ask", question, 0, isYes ? kYes : kNo});
        return isYes;
    }

private:
    lang::Speaker& speaker_;
    std::vector<RehearsedBox>& notes_;
};

class NotedPrograms final : public script::Programs {
public:
    NotedPrograms(script::Programs& programs, std::vector<script::ProgramStart>& notes)
        : programs_(programs), notes_(notes) {}

    bool HasAskedTheShell() const noexcept { return hasAskedTheShell_; }

    std::unique_ptr<script::RunningProgram> Start(const script::ProgramStart& start) override {
        auto program = programs_.Start(start);
        if (program)
            notes_.push_back(start);
        return program;
    }
    bool StartHelper(const std::wstring& commandLine) override {
        const bool isStarted = programs_.StartHelper(commandLine);
        if (isStarted)
            notes_.push_back({.CommandLine = commandLine, .WorkingFolder = {}});
        return isStarted;
    }
    bool Open(const script::ProgramStart& what) override {
        hasAskedTheShell_ = true;
        return programs_.Open(what);
    }

private:
    script::Programs& programs_;
    std::vector<script::ProgramStart>& notes_;
    bool hasAskedTheShell_ = false;
};

/// The pretended surroundings but for what the installed ones know better.
class InstalledSurroundings final : public script::Surroundings {
public:
    InstalledSurroundings(script::Surroundings& pretended, const InstalledWorld& installed)
        : pretended_(pretended), installed_(installed) {}

    std::wstring ExpandEnvironment(const std::wstring& text) override {
        return pretended_.ExpandEnvironment(text);
    }
    std::wstring FullPath(const std::wstring& path) override { return pretended_.FullPath(path); }
    std::wstring CurrentFolder() override { return pretended_.CurrentFolder(); }
    std::string Narrow(const std::wstring& text) override { return installed_.Narrow(text); }
    int Metric(int index) override { return installed_.Metric(index); }

private:
    script::Surroundings& pretended_;
    const InstalledWorld& installed_;
};

/// What `file` describes, as far as it can be had where it is installed.
WorldDescription WorldOf(const ScriptFile& file, const InstalledWorld& installed) {
    WorldDescription world = file.World;
    world.Selection.clear();
    world.Clock = {2031, 10, 12, 23, 58, 59};
    world.HostSettings = installed.HostSettings;
    world.Environment = installed.Environment;
    world.Trace = TraceKind::None;
    world.HasHostWindow = true;
    // The settings name the user's folder, which would else be below these.
    world.LoginName.clear();
    world.LocalAppData.clear();
    world.ProgramFolder = installed.ProgramFolder;
    return world;
}

/// Runs the script, as it is described or with other luck and slower programs; whether it asked the shell.
bool RehearseOnce(const ScriptFile& file, const InstalledWorld& installed, bool isOtherwise,
                  Rehearsal& rehearsal) {
    WorldDescription description = WorldOf(file, installed);
    for (auto& [name, program] : description.Programs)
        program.DurationMs += isOtherwise ? kSlowStartMs : 0;
    PretendedWorld world(std::move(description));
    const script::World ports = world.Ports();
    LastChance lastChance;
    NotedBoxes boxes(ports.Boxes, rehearsal.Boxes);
    NotedSpeaker speaker(ports.Speaker, rehearsal.Boxes);
    NotedPrograms programs(ports.Programs, rehearsal.Started);
    InstalledSurroundings surroundings(ports.Surroundings, installed);
    std::vector<std::wstring> selection;
    script::Engine({.Boxes = boxes,
                    .Speaker = speaker,
                    .Programs = programs,
                    .Host = ports.Host,
                    .Trace = ports.Trace,
                    .Settings = ports.Settings,
                    .Files = ports.Files,
                    .Folders = ports.Folders,
                    .Changes = ports.Changes,
                    .ByteFiles = ports.ByteFiles,
                    .Clipboard = ports.Clipboard,
                    .Speech = ports.Speech,
                    .Clock = ports.Clock,
                    .Chance = isOtherwise ? lastChance : ports.Chance,
                    .Surroundings = surroundings,
                    .Homes = ports.Homes,
                    .Pace = ports.Pace})
        .Run(file.World.Script, selection);
    rehearsal.Effects = world.Effects();
    rehearsal.Files = world.Files();
    return programs.HasAskedTheShell();
}

bool DoesWhatItsLinesSay(const ScriptFile& file, const Rehearsal& rehearsal) {
    const auto isThere = [&](const auto& expected) {
        const auto found = rehearsal.Files.find(expected.first);
        return found != rehearsal.Files.end() && found->second == expected.second;
    };
    return rehearsal.Effects == file.Effects && std::ranges::all_of(file.Files, isThere);
}

bool HasKind(const ScriptFile& file, std::initializer_list<std::wstring_view> kinds) {
    return std::ranges::any_of(file.Effects, [&](const Effect& effect) {
        return std::ranges::find(kinds, std::wstring_view(effect.Kind)) != kinds.end();
    });
}

bool TouchesTheWorld(const ScriptFile& file) {
    // Nearly every script shows what it has found out in a box of this style; the others are about boxes.
    constexpr std::wstring_view kUsualStyle = L"48 ";
    const auto isSpecialBox = [&](const Effect& effect) {
        return effect.Kind == L"msg" && !effect.Text.starts_with(kUsualStyle);
    };
    return HasKind(file, {L"ask", L"send", L"post", L"sendm", L"reg", L"run", L"start", L"kill", L"sleep",
                          L"clip", L"open", L"write", L"mkdir"}) ||
           !file.Files.empty() || std::ranges::any_of(file.Effects, isSpecialBox);
}

bool TakesLong(const ScriptFile& file) {
    const auto isLongProgram = [](const auto& program) { return program.second.DurationMs > kLongestMs; };
    const auto isLongWait = [](const Effect& effect) {
        return effect.Kind == L"sleep" && std::stoll(effect.Text) > static_cast<long long>(kLongestMs);
    };
    return std::ranges::any_of(file.World.Programs, isLongProgram) ||
           std::ranges::any_of(file.Effects, isLongWait);
}

bool HasUnknownButtons(const RehearsedBox& box) {
    constexpr std::uint32_t kButtonsMask = 0xF;
    constexpr std::uint32_t kLastButtons = 6;  // cancel, try again, continue
    return (box.Style & kButtonsMask) > kLastButtons;
}

}  // namespace

std::wstring WithMovedPaths(std::wstring_view text, const MovedPlaces& places) {
    constexpr std::size_t kRoot = 3;  // C:\.
    constexpr std::size_t kScripts = 4;
    std::wstring moved;
    for (std::size_t at = 0; at < text.size();) {
        if (!IsDrivePath(text, at)) {
            moved += text[at++];
        } else if (IsInScripts(text, at)) {
            moved += places.Scripts;
            at += kScripts;
        } else {
            moved += places.Drives + L'\\' + text[at] + text[at + 2];
            at += kRoot;
        }
    }
    return moved;
}

ScriptFile ReadMovedScript(std::wstring_view text, const MovedPlaces& places) {
    ScriptFile file = ReadScriptFile(WithMovedPaths(text, places));
    // What a test script does not say has not been moved with it.
    const ScriptFile usual = ReadScriptFile({});
    if (file.World.Script == usual.World.Script) {
        auto content = file.World.Files.extract(file.World.Script);
        content.key() = file.World.Script = WithMovedPaths(file.World.Script, places);
        file.World.Files.insert(std::move(content));
    }
    if (file.World.CurrentFolder == usual.World.CurrentFolder)
        file.World.CurrentFolder = WithMovedPaths(file.World.CurrentFolder, places);
    return file;
}

Hindrance Rehearse(const ScriptFile& file, bool isAboutBoxes, const InstalledWorld& installed,
                   Rehearsal& rehearsal) {
    rehearsal = {};
    const std::wstring& script = file.World.Script;
    if (script.substr(0, script.rfind(L'\\')) != installed.MenuFolder)
        return Hindrance::NotInTheMenu;
    if (!isAboutBoxes && !TouchesTheWorld(file))
        return Hindrance::TouchesNothing;
    if (HasKind(file, {L"speak", L"speech"}))
        return Hindrance::Speaks;
    if (TakesLong(file))
        return Hindrance::TakesLong;
    const bool asksTheShell = RehearseOnce(file, installed, false, rehearsal);
    if (asksTheShell)
        return Hindrance::AsksTheShell;
    if (std::ranges::any_of(rehearsal.Boxes, HasUnknownButtons))
        return Hindrance::AsksForNoSuchBox;
    Rehearsal otherwise;
    if (!DoesWhatItsLinesSay(file, rehearsal))
        return Hindrance::NeedsAnotherWorld;
    RehearseOnce(file, installed, true, otherwise);
    return DoesWhatItsLinesSay(file, otherwise) ? Hindrance::None : Hindrance::NeedsAnotherWorld;
}

}  // namespace ferry::scripttools
