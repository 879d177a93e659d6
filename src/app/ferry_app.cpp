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
#include "hostlink/host_link_win32.h"
#include "lang/message_path_win32.h"
#include "lang/text_files_win32.h"
#include "process/module_path_win32.h"
#include "settings/registry_store_win32.h"

namespace ferry::app {

namespace {

// All the Windows 95 classes: list view, extended combo box and progress bar are among them.
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
    _wsetlocale(LC_ALL, L"");
}

bool CFerryApp::InitInstance() {
    RestrictDllSearchPath();
    const INITCOMMONCONTROLSEX controls{sizeof controls, kControlClasses};
    framework::CommonControls::Get().Init(&controls);
    CWinApp::InitInstance();
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
    calendar::SystemClock clock;
    files::DiskInfo files;
    files::DiskSearch folders;
    files::DiskChanges changes;
    dialogs::DialogLocaliser localiser(settings, changes, texts, modulePath);
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
                               [](HWND owner) -> std::unique_ptr<transfer::ShellOperations> {
                                   return std::make_unique<desktop::WindowsShellOperations>(owner);
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
