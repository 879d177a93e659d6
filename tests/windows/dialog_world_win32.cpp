#include "windows/dialog_world_win32.h"

#include <array>

#include "framework/common_controls.h"
#include "process/module_path_win32.h"
#include "windows/support_win32.h"

namespace ferry::test {
namespace {

template <class Value>
Value Read(const std::map<std::wstring, Value>& values, std::wstring_view name, Value defaultValue) {
    const auto found = values.find(std::wstring(name));
    return found == values.end() ? defaultValue : found->second;
}

/// A program of the product's name beside the test, where the build puts the dialog texts.
std::wstring InstalledProgram() {
    const std::wstring module = process::ModulePath();
    return module.substr(0, module.rfind(L'\\') + 1) + L"Ferry.exe";
}

}  // namespace

std::wstring MemoryStore::ReadText(std::wstring_view name, std::wstring_view defaultText) {
    return Read(Texts, name, std::wstring(defaultText));
}

std::uint32_t MemoryStore::ReadNumber(std::wstring_view name, std::uint32_t defaultNumber) {
    return Read(Numbers, name, defaultNumber);
}

std::wstring MemoryStore::ReadHostText(std::wstring_view name, std::wstring_view defaultText) {
    return Read(HostTexts, name, std::wstring(defaultText));
}

bool MemoryStore::WriteText(std::wstring_view name, std::wstring_view text) {
    Writes.emplace_back(name);
    Texts[std::wstring(name)] = text;
    return true;
}

bool MemoryStore::WriteNumber(std::wstring_view name, std::uint32_t number) {
    Writes.emplace_back(name);
    Numbers[std::wstring(name)] = number;
    return true;
}

std::optional<naming::CalendarFields> StandingClock::ItemTime(std::wstring_view path,
                                                              naming::DateSource source) {
    AskedPath = path;
    return naming::CalendarFields{2000 + static_cast<int>(source), 1, 2, 3, 4, 5};
}

DialogWorld::DialogWorld() : localiser_(Store, InstalledProgram()), services_(ServicesWith(Clock)) {
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES};
    framework::CommonControls::Get().Init(&controls);
    HoldKeys({});
}

DialogWorld::~DialogWorld() {
    HoldKeys({});
}

dialogs::Services DialogWorld::ServicesWith(naming::Clock& clock) {
    return {host_, Store, messages_, localiser_, shell_, clock};
}

void HoldKeys(std::initializer_list<int> keys) {
    std::array<BYTE, 256> state{};
    for (const int key : keys) {
        state[static_cast<std::size_t>(key)] = 0x80;
    }
    SetKeyboardState(state.data());
}

void Click(HWND dialog, int id) {
    SendMessageW(GetDlgItem(dialog, id), BM_CLICK, 0, 0);
}

std::wstring TextOfControl(HWND dialog, int id) {
    return TextOfWindow(GetDlgItem(dialog, id));
}

bool IsShown(HWND dialog, int id) {
    return (GetWindowLongPtrW(GetDlgItem(dialog, id), GWL_STYLE) & WS_VISIBLE) != 0;
}

}  // namespace ferry::test
