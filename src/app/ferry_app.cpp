#include "app/ferry_app.h"

#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>

#include <clocale>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/command_line.h"
#include "app/dll_search_path.h"
#include "app/favourites_win32.h"
#include "base/language_win32.h"
#include "calendar/clock_win32.h"
#include "desktop/host_messages.h"
#include "desktop/message_boxes_win32.h"
#include "desktop/shell_operations_win32.h"
#include "desktop/system_error.h"
#include "desktop/window_placement.h"
#include "dialogs/ferry_dialog.h"
#include "dialogs/services.h"
#include "files/disk_win32.h"
#include "framework/common_controls.h"
#include "framework/dialog.h"
#include "framework/fields.h"
#include "hostlink/host_link_win32.h"
#include "ids.h"
#include "lang/limit_text.h"
#include "lang/message_path_win32.h"
#include "lang/text_files_win32.h"
#include "process/module_path_win32.h"
#include "settings/registry_store_win32.h"

namespace ferry::app {

namespace {

// All the Windows 95 classes, list view and progress bar among them. The extended combo box is of a later
// day; the manifest lets the system find its class when a dialog asks for it.
constexpr DWORD kControlClasses = 0xFF;

CommandLineOptions OptionsOfThisProcess() {
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (arguments == nullptr) {
        return {};
    }
    const std::vector<std::wstring_view> switches(arguments + (count > 0 ? 1 : 0), arguments + count);
    const CommandLineOptions options = ParseCommandLine(switches);
    LocalFree(arguments);
    return options;
}

std::wstring ProgramKey() {
    return std::wstring(settings::kProgramKeyPrefix) + settings::kProgramName;
}

void ActivateHost() {
    if (const HWND host = desktop::FindHostWindow(); host != nullptr) {
        SetForegroundWindow(host);
    }
}

}  // namespace

CFerryApp::CFerryApp() {
    if (_wsetlocale(LC_ALL, L"") == nullptr) {
        language_.emplace(base::kSystemLanguage);
    }
}

bool CFerryApp::InitInstance() {
    // A look at a drive without a disk fails; the system shall not ask the person to put one in first.
    SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS);
    RestrictDllSearchPath();
    const INITCOMMONCONTROLSEX controls{sizeof controls, kControlClasses};
    framework::CommonControls::Get().Init(&controls);
    CWinApp::InitInstance();
    framework::CDialog::UseIcon(IDI_FERRY);
    // A run may list a slow folder for longer than Windows waits before it calls a window hung; a click on
    // the window that it then puts in its place would end the process in the middle of a file.
    DisableProcessWindowsGhosting();
    const std::wstring modulePath = process::ModulePath();
    hostlink::PresenceMutex presence(modulePath);
    desktop::MessageBoxes speaker;
    auto [host, blockError] = hostlink::ReadHostData();
    if (blockError != 0)
        speaker.Tell(desktop::SystemErrorMessage(blockError), lang::Tone::Plain);
    auto shell = std::make_unique<framework::CShellManager>();
    settings::RegistryStore settings(ProgramKey());
    lang::DiskTextFiles texts;
    lang::Catalogue messages(texts, lang::MessageFilePath(settings, modulePath), speaker);
    const framework::LimitTextInForce limitText([&](int limit) {
        return lang::TooLongText(messages, settings.ReadHostText(L"NLS", lang::kBuiltInSuffix), limit);
    });
    calendar::SystemClock clock;
    files::DiskInfo files;
    files::DiskSearch folders;
    files::DiskChanges changes;
    dialogs::DialogLocaliser localiser(settings, files, changes, texts, modulePath);
    dialogs::Services services{modulePath,
                               host,
                               settings,
                               speaker,
                               messages,
                               localiser,
                               *shell,
                               clock,
                               files,
                               folders,
                               changes,
                               [&files](HWND owner) -> std::unique_ptr<transfer::ShellOperations> {
                                   return std::make_unique<desktop::WindowsShellOperations>(owner, files);
                               },
                               [&localiser](HWND window) -> std::unique_ptr<dialogs::Favourites> {
                                   return std::make_unique<ScriptFavourites>(localiser, window);
                               }};
    const HWND owner = host.WindowMode == desktop::kOwnedWindowMode ? desktop::FindHostWindow() : nullptr;
    dialogs::CFerryDlg dialog(services, OptionsOfThisProcess(), owner);
    dialog.DoModal();
    shell.reset();
    if (host.ActivateHostOnExit == 1) {
        ActivateHost();
    }
    presence.Close();
    return false;
}

}  // namespace ferry::app
