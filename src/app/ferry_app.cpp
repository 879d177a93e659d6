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
#include "dialogs/ferry_dialog.h"
#include "dialogs/services.h"
#include "framework/common_controls.h"
#include "hostlink/host_link_win32.h"
#include "hostlink/host_messages_win32.h"
#include "hostlink/window_placement_win32.h"
#include "lang/message_file_win32.h"
#include "naming/clock_win32.h"
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
    if (const HWND host = hostlink::FindHostWindow(); host != nullptr) {
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
    hostlink::HostData host = hostlink::ReadHostData();
    auto shell = std::make_unique<framework::CShellManager>();
    settings::RegistryStore settings(ProgramKey());
    lang::MessageFile messageFile(settings, modulePath);
    messageFile.Path();
    lang::Catalogue messages(messageFile);
    lang::DialogLocaliser localiser(settings, modulePath);
    naming::SystemClock clock;
    dialogs::Services services{host, settings, messages, localiser, *shell, clock};
    const HWND owner = host.WindowMode == hostlink::kOwnedWindowMode ? hostlink::FindHostWindow() : nullptr;
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
