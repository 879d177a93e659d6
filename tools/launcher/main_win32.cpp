// FerryOpen: opens Ferry with the paths of its command line, for whoever cannot play the host.
#include <windows.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "completion/history.h"
#include "desktop/system_error.h"
#include "lang/catalogue.h"
#include "launcher/launch_options.h"
#include "launcher/launch_session_win32.h"
#include "launcher/launch_texts.h"
#include "launcher/selection.h"
#include "launcher/send_to_win32.h"
#include "launcher/system_surroundings_win32.h"
#include "paths/path_grammar.h"
#include "process/module_path_win32.h"
#include "settings/registry_store_win32.h"

namespace ferry::launcher {
namespace {

// Exit codes beside Ferry's own; those of the sample host are the same.
constexpr int kExitNotOpened = 1;  ///< There was nothing to hand over, or the person did not want to go on.
constexpr int kExitWrongCommandLine = 2;
constexpr int kExitCannotStart = 120;
constexpr int kExitCannotShare = 121;
constexpr int kExitCannotSendTo = 122;

/// Speaks to the person, unless nothing shall be said.
class Voice {
public:
    Voice(const Texts& texts, bool isQuiet) : texts_(texts), isQuiet_(isQuiet) {}

    const Texts& Words() const noexcept { return texts_; }

    void Tell(const std::wstring& text, UINT icon) const { Show(text, MB_OK | icon); }

    /// Whether the answer is yes; a quiet voice hears a no.
    bool Ask(const std::wstring& text) const { return Show(text, MB_YESNO | MB_ICONEXCLAMATION) == IDYES; }

    /// Tells of a system error in the form `form`, and passes `exitCode` on.
    int Fail(std::wstring_view form, DWORD error, int exitCode) const {
        Tell(Filled(form, desktop::SystemErrorText(error)), MB_ICONERROR);
        return exitCode;
    }

private:
    int Show(const std::wstring& text, UINT style) const {
        return isQuiet_ ? IDNO : MessageBoxW(nullptr, text.c_str(), kStandInTitle, style | MB_SETFOREGROUND);
    }

    const Texts& texts_;
    bool isQuiet_;
};

Selection Select(const LaunchOptions& options, settings::SettingsStore& settings) {
    SystemSurroundings surroundings;
    SelectionMaker maker(surroundings);
    for (const std::wstring& path : options.Paths) {
        maker.AddItem(path);
    }
    for (const std::wstring& list : options.Lists) {
        const auto paths = ReadList(list);
        if (!paths)
            maker.AddUnreadableList(list);
        else
            for (const std::wstring& path : *paths) {
                maker.AddItem(path);
            }
    }
    // The first folder is the one that Ferry presets.
    if (!options.Destination.empty())
        maker.AddTab(options.Destination);
    for (const std::wstring& folder : options.Tabs) {
        maker.AddTab(folder);
    }
    completion::History history;
    history.Load(settings);
    maker.AddLastFolders(history.Entries());
    return maker.Take();
}

/// Whether to go on with the selection; a person is asked only when something cannot be taken.
bool IsWanted(const Voice& voice, const Selection& selection) {
    const bool isWhole = selection.Refusals.empty() && selection.TooMany == 0;
    if (isWhole && !selection.Items.empty())
        return true;
    const std::wstring text =
        isWhole ? std::wstring(voice.Words().NothingLeft) : RefusalText(voice.Words(), selection);
    if (!selection.Items.empty())
        return voice.Ask(text);
    voice.Tell(text, MB_ICONEXCLAMATION);
    return false;
}

int Open(const Voice& voice, const LaunchOptions& options, settings::SettingsStore& settings,
         const std::wstring& modulePath) {
    Start start;
    start.Program = std::wstring(paths::ParentWithSeparator(modulePath)) + L"Ferry.exe";
    start.CurrentFolder = CurrentFolder();
    start.IsMove = options.IsMove;
    if (GetFileAttributesW(paths::LongPathText(start.Program).c_str()) == INVALID_FILE_ATTRIBUTES) {
        voice.Tell(Filled(voice.Words().NoFerry, start.Program), MB_ICONERROR);
        return kExitCannotStart;
    }
    Selection selection = Select(options, settings);
    if (!IsWanted(voice, selection))
        return kExitNotOpened;
    LaunchSession session;
    const SessionEnd end = session.Run(start, std::move(selection));
    switch (end.Failed) {
        case FailedStep::Share:
            return voice.Fail(voice.Words().CannotShare, end.Error, kExitCannotShare);
        case FailedStep::Start:
            return voice.Fail(voice.Words().CannotStart, end.Error, kExitCannotStart);
        case FailedStep::None:
            break;
    }
    return static_cast<int>(end.ExitCode);
}

/// The exit code of a change to "Send to". The texts of the system know its kind of numbers, too.
int EndOf(HRESULT result, const Voice& voice, std::wstring_view form) {
    return FAILED(result) ? voice.Fail(form, static_cast<DWORD>(result), kExitCannotSendTo) : 0;
}

int Do(const Voice& voice, const LaunchOptions& options, settings::SettingsStore& settings) {
    const std::wstring modulePath = process::ModulePath();
    switch (options.What) {
        case Deed::Help:
            voice.Tell(std::wstring(voice.Words().Help), MB_ICONINFORMATION);
            return 0;
        case Deed::AddSendTo:
            return EndOf(AddSendTo(voice.Words(), modulePath), voice, voice.Words().CannotAddSendTo);
        case Deed::RemoveSendTo:
            return EndOf(RemoveSendTo(modulePath), voice, voice.Words().CannotRemoveSendTo);
        case Deed::Open:
            break;
    }
    try {
        return Open(voice, options, settings, modulePath);
    } catch (const std::bad_alloc&) {
        return voice.Fail(voice.Words().CannotShare, ERROR_NOT_ENOUGH_MEMORY, kExitCannotShare);
    }
}

int Run() {
    // A look at a drive without a disk fails; the system shall not ask the person to put one in first.
    SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS);
    // What the program loads later lies in the system's folder and nowhere else.
    SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
    settings::RegistryStore settings(std::wstring(settings::kProgramKeyPrefix) + settings::kProgramName);
    const std::vector<std::wstring> given = ArgumentsOfThisProcess();
    const std::vector<std::wstring_view> arguments(given.begin(), given.end());
    LaunchOptions options;
    const Mistake mistake = ParseLaunchOptions(arguments, options);
    const Voice voice(TextsFor(settings.ReadHostText(L"NLS", lang::kBuiltInSuffix)), options.IsQuiet);
    if (mistake.Kind == MistakeKind::None)
        return Do(voice, options, settings);
    voice.Tell(MistakeText(voice.Words(), mistake), MB_ICONERROR);
    return kExitWrongCommandLine;
}

}  // namespace
}  // namespace ferry::launcher

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return ferry::launcher::Run();
}
