#include "e2e/launcher_fixture.h"

#include <windows.h>
// After windows.h, which it builds on.
#include <tlhelp32.h>

#include "base/utf16.h"
#include "e2e/driver/app_copy.h"
#include "e2e/driver/surroundings.h"
#include "samplehost/delivery_win32.h"

namespace ferry::e2e {
namespace {

using SnapshotHandle = base::UniqueResource<base::FileReleasedBy<&CloseHandle>>;

/// The Ferry.exe that the process `parent` has started; 0 when there is none.
DWORD FerryOf(DWORD parent) {
    const SnapshotHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof(entry);
    for (BOOL found = Process32FirstW(snapshot.Get(), &entry); found;
         found = Process32NextW(snapshot.Get(), &entry)) {
        if (entry.th32ParentProcessID == parent && std::wstring_view(entry.szExeFile) == L"Ferry.exe")
            return entry.th32ProcessID;
    }
    return 0;
}

}  // namespace

std::wstring LauncherPath(const std::wstring& appFolder) {
    return ProgramFolder(appFolder) + L"\\FerryOpen.exe";
}

void Launcher::Start(const Words& arguments, HANDLE input) {
    dialog_ = RemoteDialog();
    ferry_.Reset();
    launcher_ = std::make_unique<ChildProcess>(LauncherPath(AppFolder()), arguments, input);
}

testing::AssertionResult Launcher::FerryOpens() {
    DWORD id = 0;
    WaitUntil([&] { return (id = FerryOf(LauncherId())) != 0 || !launcher_->IsRunning(); });
    ferry_.Reset(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION | PROCESS_TERMINATE, FALSE, id));
    if (!ferry_)
        return testing::AssertionFailure()
               << "no Ferry was started; message box: " << base::ToUtf8(FindMessageBox(LauncherId()).Text);
    HWND window = nullptr;
    WaitUntil([&] {
        window = samplehost::FindFerryDialog(id);
        return window != nullptr || WaitForEnding(ferry_, 0).HasEnded;
    });
    dialog_ = RemoteDialog(window);
    if (!dialog_.IsOpen())
        return testing::AssertionFailure() << "no dialog came";
    WaitForIdleProcess(id, kPatienceMs);
    return testing::AssertionSuccess();
}

Launcher::Words Launcher::Items() const {
    Words names;
    for (int index = 0; index < dialog_.SourceCount(); ++index) {
        names.push_back(dialog_.SourceText(index));
    }
    return names;
}

Launcher::Words Launcher::BlockFields() const {
    const std::wstring name = L"ShareMem_" + std::to_wstring(LauncherId()) + L"_1";
    const base::MappingHandle mapping(OpenFileMappingW(FILE_MAP_READ, FALSE, name.c_str()));
    const base::MappedView view(MapViewOfFile(mapping.Get(), FILE_MAP_READ, 0, 0, 0));
    MEMORY_BASIC_INFORMATION pages = {};
    if (!view || VirtualQuery(view.Get(), &pages, sizeof(pages)) == 0)
        return {};
    const std::wstring units(static_cast<const wchar_t*>(view.Get()), pages.RegionSize / sizeof(wchar_t));
    Words fields(1);
    for (const wchar_t unit : units) {
        // Ferry has put a NUL where each TAB was.
        if (unit != L'\0' && unit != L'\t')
            fields.back() += unit;
        else if (!fields.back().empty())
            fields.emplace_back();
    }
    if (fields.back().empty())
        fields.pop_back();
    return fields;
}

testing::AssertionResult Launcher::Says(const std::wstring& text, int id) {
    const ShownBox box = WaitForMessageBox(LauncherId());
    if (box.Window == nullptr)
        return testing::AssertionFailure() << "no message box came";
    if (!DismissMessageBox(box, id))
        return testing::AssertionFailure() << "the message box stays";
    if (box.Text != text)
        return testing::AssertionFailure() << base::ToUtf8(box.Text) << " instead of " << base::ToUtf8(text);
    return testing::AssertionSuccess();
}

testing::AssertionResult Launcher::EndsWith(DWORD code) {
    const Ending ending = launcher_->WaitForEnd(kPatienceMs);
    if (ending.HasEnded && ending.ExitCode == code)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << TextOf(ending) << "; message box: " << base::ToUtf8(FindMessageBox(LauncherId()).Text);
}

testing::AssertionResult Launcher::CancelEndsBoth() {
    dialog_.Click(kCancel);
    if (const Ending ending = WaitForEnding(ferry_, kPatienceMs); !ending.IsGood())
        return testing::AssertionFailure() << "Ferry: " << TextOf(ending);
    return EndsWith(0);
}

}  // namespace ferry::e2e
