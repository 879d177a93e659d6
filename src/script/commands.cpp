#include "script/commands.h"

#include <algorithm>
#include <array>
#include <span>

#include "base/text.h"
#include "base/utf16.h"
#include "script/limits.h"
#include "script/numbers.h"
#include "script/source.h"

namespace ferry::script {

namespace {

/// The key below which scripts write values.
constexpr std::wstring_view kScriptKey = L"Software\\Marrowby\\Kiv\\Main001\\";

/// Styles of boxes: OK with the mark of a warning, Yes and No with that of a question.
constexpr std::uint32_t kStyleOk = 48;
constexpr std::uint32_t kStyleYesNo = 36;
constexpr int kButtonNo = 7;

/// The messages that the host's main window takes.
constexpr std::uint32_t kCommandMessage = 273;  // WM_COMMAND
constexpr std::uint32_t kMessageAll = 32776;
constexpr std::uint32_t kMessage1 = 32777;
constexpr std::uint32_t kMessage2 = 32778;
constexpr std::uint32_t kMessageWait = 32779;
constexpr std::uint32_t kMessageBar = 32780;

/// The parts of an argument at its first comma.
struct Fields {
    std::wstring_view First;
    std::wstring_view Rest;
    bool HasRest = false;
};

Fields SplitField(std::wstring_view text) noexcept {
    const std::size_t comma = text.find(L',');
    if (comma == std::wstring_view::npos) {
        return {base::Trim(text), {}, false};
    }
    return {base::Trim(text.substr(0, comma)), base::Trim(text.substr(comma + 1)), true};
}

/// A command's handler; `code` tells apart the commands that share one.
using Handler = Outcome (*)(CommandScope& scope, std::wstring_view argument, std::uint32_t code);

// --- a person

Outcome ShowBox(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    const Fields fields = SplitField(argument);
    if (!fields.HasRest) {
        return Outcome::Done;
    }
    if (fields.First.empty() || fields.Rest.empty()) {
        return Outcome::SyntaxError;
    }
    const auto style = static_cast<std::uint32_t>(ToStyle(fields.First));
    scope.Result = std::to_wstring(scope.World.Boxes.Show(std::wstring(fields.Rest), style));
    return Outcome::Done;
}

Outcome ShowBoxOfStyle(CommandScope& scope, std::wstring_view argument, std::uint32_t style) {
    const int button = scope.World.Boxes.Show(std::wstring(argument), style);
    scope.Result = std::to_wstring(button);
    return style == kStyleYesNo && button == kButtonNo ? Outcome::EndRun : Outcome::Done;
}

Outcome Speak(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    scope.World.Speech.Speak(std::wstring(argument));
    return Outcome::Done;
}

template <void (Speech::*kSet)(int)>
Outcome SetSpeech(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    (scope.World.Speech.*kSet)(base::ToInt(argument));
    return Outcome::Done;
}

Outcome SetClipboard(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    scope.World.Clipboard.SetText(std::wstring(argument));
    return Outcome::Done;
}

Outcome Sleep(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    scope.World.Pace.Sleep(static_cast<std::uint32_t>(std::max(base::ToInt(argument), 0)));
    return Outcome::Done;
}

/// Accepted and kept in the script, without an effect.
Outcome Accept(CommandScope&, std::wstring_view, std::uint32_t) {
    return Outcome::Done;
}

// --- programs and scripts

/// The pieces that are not empty, with one blank between them.
std::wstring JoinByBlanks(std::initializer_list<std::wstring_view> pieces) {
    std::wstring text;
    for (const std::wstring_view piece : pieces) {
        if (!text.empty() && !piece.empty()) {
            text += L' ';
        }
        text += piece;
    }
    return text;
}

ProgramStart StartOf(const CommandScope& scope, const Fields& fields) {
    const Options& options = scope.Options;
    ProgramStart start;
    start.CommandLine = JoinByBlanks({fields.First, fields.Rest, options[OptionId::CommandLineOption]});
    start.WorkingFolder = options[OptionId::BootDir];
    start.ShowMode = static_cast<std::uint16_t>(options.Number(OptionId::ShowWindow));
    return start;
}

/// Waits for `program`; the text of its exit code.
std::wstring WaitFor(CommandScope& scope, RunningProgram& program) {
    // -1 waits without limit, and is that as an unsigned number, too.
    if (!program.Wait(static_cast<std::uint32_t>(scope.Options.Number(OptionId::Timeout)))) {
        if (!scope.World.Speaker.Ask(process::kKillQuestion, lang::Tone::Plain)) {
            return std::to_wstring(process::kStillRuns);
        }
        program.Kill(process::kKilledExitCode);
        return std::to_wstring(process::kKilledExitCode);
    }
    return std::to_wstring(static_cast<std::int32_t>(program.ExitCode()));
}

/// Starts a program; `isCall`: waits for it whatever the options say.
Outcome Start(CommandScope& scope, std::wstring_view argument, std::uint32_t isCall) {
    const Fields fields = SplitField(argument);
    if (fields.First.empty()) {
        return Outcome::SyntaxError;
    }
    ProgramStart start = StartOf(scope, fields);
    start.IsWaitedFor = isCall != 0 || scope.Options[OptionId::RunWait] == L"1";
    const std::unique_ptr<RunningProgram> program = scope.World.Programs.Start(start);
    if (program == nullptr) {
        return Outcome::NotStarted;
    }
    if (start.IsWaitedFor) {
        scope.Result = WaitFor(scope, *program);
    }
    return Outcome::Done;
}

Outcome OpenByShell(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    const Fields fields = SplitField(argument);
    if (fields.First.empty()) {
        return Outcome::SyntaxError;
    }
    return scope.World.Programs.Open(StartOf(scope, fields)) ? Outcome::Done : Outcome::NotStarted;
}

Outcome Include(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    scope.Run.Include(argument);
    return Outcome::Done;
}

// --- the script's file

Outcome OpenFile(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    return scope.Output.Open(argument) ? Outcome::Done : Outcome::NotOpen;
}

Outcome SetOpenMode(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    scope.Output.OverwriteNext(base::ToInt(argument) != 0);
    return Outcome::Done;
}

Outcome SetMark(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    scope.Output.MarkNext(base::ToInt(argument) != 0);
    return Outcome::Done;
}

Outcome Write(CommandScope& scope, std::span<const std::byte> bytes) {
    return scope.Output.Write(bytes) ? Outcome::Done : Outcome::NotWritten;
}

Outcome WriteWide(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    return scope.Output.IsOpen() ? Write(scope, base::BytesFromUnits(argument)) : Outcome::NotOpen;
}

Outcome WriteNarrow(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    if (!scope.Output.IsOpen()) {
        return Outcome::NotOpen;
    }
    const std::string text = scope.World.Surroundings.Narrow(std::wstring(argument));
    return Write(scope, std::as_bytes(std::span(text)));
}

// --- the host

struct MessageNumbers {
    int WParam = 0;
    int LParam = 0;
};

MessageNumbers NumbersOf(std::wstring_view argument) noexcept {
    const Fields fields = SplitField(argument);
    return {base::ToInt(fields.First), base::ToInt(fields.Rest.substr(0, fields.Rest.find(L',')))};
}

template <void (HostWindow::*kGive)(std::uint32_t, int, int)>
Outcome GiveMessage(CommandScope& scope, std::wstring_view argument, std::uint32_t message) {
    if (!scope.World.Host.Exists()) {
        return Outcome::Done;
    }
    const MessageNumbers numbers = NumbersOf(argument);
    if (numbers.WParam == 0) {
        return Outcome::SyntaxError;
    }
    (scope.World.Host.*kGive)(message, numbers.WParam, numbers.LParam);
    return Outcome::Done;
}

/// The host knows this message no longer, and scripts are told so.
Outcome Refuse(CommandScope&, std::wstring_view, std::uint32_t) {
    return Outcome::SyntaxError;
}

Outcome HandOver(CommandScope& scope, std::wstring text, std::uint32_t code) {
    if (scope.World.Host.Exists()) {
        scope.World.Host.HandOver({code, std::move(text)});
    }
    return Outcome::Done;
}

Outcome HandOverText(CommandScope& scope, std::wstring_view argument, std::uint32_t code) {
    return HandOver(scope, std::wstring(argument), code);
}

Outcome HandOverNumbered(CommandScope& scope, std::wstring_view argument, std::uint32_t code) {
    const Fields fields = SplitField(argument);
    if (fields.First.empty() || fields.Rest.empty()) {
        return Outcome::SyntaxError;
    }
    return HandOver(scope, std::to_wstring(base::ToInt(fields.First)).append(1, L'/').append(fields.Rest),
                    code);
}

Outcome HandOverWithCode(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    const Fields fields = SplitField(argument);
    if (fields.First.empty() || fields.Rest.empty()) {
        return Outcome::SyntaxError;
    }
    return HandOverText(scope, fields.Rest, static_cast<std::uint32_t>(base::ToInt(fields.First)));
}

Outcome HandOverState(CommandScope& scope, std::wstring_view argument, std::uint32_t code) {
    const Fields fields = SplitField(argument);
    if (fields.First.empty()) {
        return Outcome::SyntaxError;
    }
    std::wstring text(fields.First);
    if (!fields.Rest.empty()) {
        text.append(1, L',').append(fields.Rest);
    }
    return HandOver(scope, std::move(text), code);
}

/// The codes of the four panes lie this far from each other.
constexpr std::uint32_t kPaneStep = 100;
constexpr int kPaneCount = 4;

Outcome JumpInPane(CommandScope& scope, std::wstring_view argument, std::uint32_t firstCode) {
    const Fields fields = SplitField(argument);
    const int pane = base::ToInt(fields.First);
    if (fields.First.empty() || fields.Rest.empty() || pane < 0 || pane >= kPaneCount) {
        return Outcome::SyntaxError;
    }
    return HandOver(scope, scope.World.Surroundings.FullPath(std::wstring(fields.Rest)),
                    firstCode + kPaneStep * static_cast<std::uint32_t>(pane));
}

/// The code for a start in the present place, and in the two others of "bootmode".
std::uint32_t CodeOfBootMode(const Options& options) noexcept {
    switch (options.Number(OptionId::BootMode)) {
        case 1:
            return 200;
        case 2:
            return 300;
        default:
            return 100;
    }
}

Outcome RunByHost(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    if (argument.ends_with(L':') && scope.Run.JumpTo(LabelName(argument))) {
        return Outcome::Done;
    }
    return HandOverText(scope, argument, CodeOfBootMode(scope.Options));
}

// --- registry

struct RegistryValue {
    std::wstring Key;
    std::wstring_view Name;
    std::wstring_view Value;
};

/// The three fields of a registry write; the last one is empty when one is missing.
RegistryValue RegistryValueOf(std::wstring_view argument) {
    const Fields key = SplitField(argument);
    const Fields name = SplitField(key.Rest);
    if (key.First.empty() || name.First.empty()) {
        return {};
    }
    return {std::wstring(kScriptKey).append(key.First), name.First, name.Rest};
}

Outcome WriteNumberValue(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    const RegistryValue value = RegistryValueOf(argument);
    if (value.Value.empty()) {
        return Outcome::SyntaxError;
    }
    // best effort: a registry that refuses is never reported
    scope.World.Settings.WriteNumberToKey(value.Key, value.Name,
                                          static_cast<std::uint32_t>(base::ToInt(value.Value)));
    return Outcome::Done;
}

Outcome WriteTextValue(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    const RegistryValue value = RegistryValueOf(argument);
    if (value.Value.empty()) {
        return Outcome::SyntaxError;
    }
    // best effort, as above
    scope.World.Settings.WriteTextToKey(value.Key, value.Name, value.Value);
    return Outcome::Done;
}

// --- the selection

Outcome AppendItem(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    return scope.Selection.Append({&argument, 1}) ? Outcome::Done : Outcome::TooManyItems;
}

Outcome AppendItems(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    std::vector<std::wstring_view> items = base::Split(argument, L',');
    std::ranges::transform(items, items.begin(), base::Trim);
    std::erase_if(items, [](std::wstring_view item) { return item.empty(); });
    return scope.Selection.Append(items) ? Outcome::Done : Outcome::TooManyItems;
}

Outcome TakeItems(CommandScope& scope, std::wstring_view argument, std::uint32_t) {
    std::wstring text;
    for (const std::wstring& item : scope.Selection.Items()) {
        if (text.size() + item.size() > kMaxValueUnits) {
            return Outcome::TooLong;
        }
        text.append(item).append(1, L',');
    }
    if (!text.empty()) {
        text.pop_back();
    }
    return scope.Run.Assign(argument, text);
}

/// Which handler carries out a command, and the code that it gets.
struct Route {
    CommandId Id;
    Handler Handle;
    std::uint32_t Code = 0;
};

constexpr auto kRoutes = std::to_array<Route>({
    {CommandId::AppendCsvSelectItem, AppendItems},
    {CommandId::AppendSelectItem, AppendItem},
    {CommandId::BackgroundImage, HandOverText, 1200},
    {CommandId::BomOut, SetMark},
    {CommandId::Call, Start, 1},
    {CommandId::Exec, Start, 0},
    {CommandId::ExRun, RunByHost},
    {CommandId::FavoriteJump, HandOverNumbered, 901},
    {CommandId::FileJump, JumpInPane, 103},
    {CommandId::FileOpen, OpenFile},
    {CommandId::FileOpenMode, SetOpenMode},
    {CommandId::FileWriteA, WriteNarrow},
    {CommandId::FileWriteW, WriteWide},
    {CommandId::FolderJump, JumpInPane, 100},
    {CommandId::FullStateOpen, HandOverText, 201},
    {CommandId::FullStateOpenEx, HandOverState, 201},
    {CommandId::GetSelectItems, TakeItems},
    {CommandId::Icon, Accept},
    {CommandId::Include, Include},
    {CommandId::ListInnerParam, HandOverText, 910},
    {CommandId::Box, ShowBox},
    {CommandId::BoxOk, ShowBoxOfStyle, kStyleOk},
    {CommandId::BoxYesNo, ShowBoxOfStyle, kStyleYesNo},
    {CommandId::OperationMode, HandOverText, 911},
    {CommandId::PostToHost, GiveMessage<&HostWindow::Post>, kCommandMessage},
    {CommandId::PostToHost1, GiveMessage<&HostWindow::Post>, kMessage1},
    {CommandId::PostToHost2, GiveMessage<&HostWindow::Post>, kMessage2},
    {CommandId::PostToHostAll, GiveMessage<&HostWindow::Post>, kMessageAll},
    {CommandId::PostToHostBar, GiveMessage<&HostWindow::Post>, kMessageBar},
    {CommandId::PostToHostTab, Refuse},
    {CommandId::PostWait, GiveMessage<&HostWindow::Post>, kMessageWait},
    {CommandId::Select, HandOverText, 800},
    {CommandId::SendToHost, GiveMessage<&HostWindow::Send>, kCommandMessage},
    {CommandId::SendToHostAll, GiveMessage<&HostWindow::Send>, kMessageAll},
    {CommandId::SetClipboardText, SetClipboard},
    {CommandId::Shell, OpenByShell},
    {CommandId::Speach, Speak},
    {CommandId::SpeachFlag, SetSpeech<&Speech::SetFlags>},
    {CommandId::SpeachPitch, SetSpeech<&Speech::SetPitch>},
    {CommandId::SpeachRateSpeed, SetSpeech<&Speech::SetRate>},
    {CommandId::SpeachVolume, SetSpeech<&Speech::SetVolume>},
    {CommandId::SystemCommand, HandOverWithCode},
    {CommandId::TabletMode, HandOverText, 912},
    {CommandId::UbJump, HandOverNumbered, 1003},
    {CommandId::Wait, Sleep},
    {CommandId::WriteRegNum, WriteNumberValue},
    {CommandId::WriteRegString, WriteTextValue},
});

/// Whether the table has a row for each command, in the order of their numbers.
constexpr bool HasEveryCommand() {
    for (std::size_t index = 0; index < kRoutes.size(); ++index) {
        if (kRoutes[index].Id != static_cast<CommandId>(index)) {
            return false;
        }
    }
    return kRoutes.back().Id == CommandId::WriteRegString;
}

static_assert(HasEveryCommand());

}  // namespace

Outcome RunCommand(CommandScope& scope, CommandId id, std::wstring_view argument) {
    const Route& route = kRoutes[static_cast<std::size_t>(id)];
    return route.Handle(scope, argument, route.Code);
}

}  // namespace ferry::script
