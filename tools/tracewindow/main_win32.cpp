// FerryTrace: shows what scripts with a line "debug" do while they run.
#include <windows.h>

#include "framework/app.h"
#include "framework/common_controls.h"
#include "trace_dialog_win32.h"
#include "trace_ids.h"

namespace ferry::tracewindow {
namespace {

const Texts& TextsOfUser() noexcept {
    return PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_JAPANESE ? kJapanese : kEnglish;
}

/// Scripts send to one window, so a second one would hear nothing.
bool ShowRunningOne() noexcept {
    const HWND running = FindWindowW(kTraceClass, kTraceTitle);
    if (running == nullptr)
        return false;
    ShowWindow(running, IsIconic(running) ? SW_RESTORE : SW_SHOW);
    SetForegroundWindow(running);
    return true;
}

class CTraceApp final : public framework::CWinApp {
public:
    bool InitInstance() override {
        // What the program loads later lies in the system's folder and nowhere else.
        SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32);
        if (ShowRunningOne())
            return false;
        const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_LISTVIEW_CLASSES | ICC_STANDARD_CLASSES};
        framework::CommonControls::Get().Init(&classes);
        framework::CDialog::UseIcon(IDI_TRACE);
        if (CTraceDialog::Register())
            CTraceDialog(TextsOfUser()).DoModal();
        return false;
    }
};

}  // namespace
}  // namespace ferry::tracewindow

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    return ferry::tracewindow::CTraceApp().Run();
}
