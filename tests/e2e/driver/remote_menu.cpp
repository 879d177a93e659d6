#include "e2e/driver/remote_menu.h"

#include <algorithm>
#include <cstddef>

#include "e2e/driver/ask.h"
#include "e2e/driver/keys.h"
#include "e2e/driver/message_box.h"
#include "e2e/driver/remote_calls.h"
#include "e2e/driver/remote_memory.h"
#include "samplehost/process_windows_win32.h"
#include "support/menus_win32.h"

namespace ferry::e2e {
namespace {

/// Longer than any name of a file, each "&" of which is doubled.
constexpr std::size_t kTextUnits = 600;
constexpr wchar_t kUser[] = L"user32.dll";

std::uintptr_t Number(HMENU menu) {
    return reinterpret_cast<std::uintptr_t>(menu);
}

std::uintptr_t Number(const std::byte* place) {
    return reinterpret_cast<std::uintptr_t>(place);
}

POINT MiddleOf(const RECT& place) {
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

bool HasFlag(std::uintptr_t state, UINT flag) {
    // A menu without this entry answers -1.
    return static_cast<UINT>(state) != static_cast<UINT>(-1) && (state & flag) != 0;
}

}  // namespace

RemoteMenu::RemoteMenu(HWND owner) : owner_(owner) {
    GetWindowThreadProcessId(owner, &processId_);
}

bool RemoteMenu::FindFunctions() {
    const auto find = [this](const char* name) { return RemoteFunction(processId_, kUser, name); };
    if (countFunction_ == 0) {
        countFunction_ = find("GetMenuItemCount");
        stateFunction_ = find("GetMenuState");
        textFunction_ = find("GetMenuItemInfoW");
        placeFunction_ = find("GetMenuItemRect");
        submenuFunction_ = find("GetSubMenu");
    }
    return countFunction_ != 0 && stateFunction_ != 0 && textFunction_ != 0 && placeFunction_ != 0 &&
           submenuFunction_ != 0;
}

std::vector<RemoteMenu::Shown> RemoteMenu::AllShown() const {
    std::vector<Shown> all;
    samplehost::FindVisibleWindow(processId_, [&all](HWND window) {
        if (ClassOf(window) == test::kMenuClass)
            all.push_back({window, nullptr});
        return false;
    });
    for (Shown& shown : all)
        shown.Menu = reinterpret_cast<HMENU>(Ask(shown.Window, test::kGetMenuMessage));
    // One that closed meanwhile has answered nothing.
    std::erase_if(all, [](const Shown& shown) { return shown.Menu == nullptr; });
    return all;
}

bool RemoteMenu::IsMenuShown(HMENU menu) const {
    return std::ranges::any_of(AllShown(), [menu](const Shown& shown) { return shown.Menu == menu; });
}

bool RemoteMenu::IsShown() const {
    return !AllShown().empty();
}

bool RemoteMenu::WaitUntilShown() {
    open_.clear();
    if (!WaitUntil([this] { return IsShown(); }) || !FindFunctions())
        return false;
    const std::vector<Shown> all = AllShown();
    if (!all.empty())
        open_ = {all.back().Menu};  // the lowest one, should another have opened over it
    return !all.empty();
}

bool RemoteMenu::WaitUntilOpen() {
    if (!WaitUntilShown())
        return false;
    MovePointerTo({0, 0});
    // The program moved the mouse to the middle, and may hear of that only now: it selects what is there, and
    // opens it when it is a folder, which closes again below.
    constexpr int kSettledAfter = 4;
    for (int round = 0; round < kSettledAfter; ++round) {
        Sleep(test::kStepMs);
        HasHandledAll(owner_);
    }
    for (std::size_t shown = AllShown().size(); shown > 1; --shown) {
        PressKey(VK_LEFT);
        if (!WaitUntil([&] { return AllShown().size() < shown; }))
            return false;
    }
    return IsMenuShown(open_.front());
}

bool RemoteMenu::WaitUntilClosed() const {
    return WaitUntil([this] { return !IsShown(); });
}

std::vector<std::uintptr_t> RemoteMenu::ResultsForEach(std::uintptr_t function,
                                                       std::uintptr_t lastArgument) const {
    std::vector<RemoteCall> calls(static_cast<std::size_t>(std::max(Count(), 0)));
    for (std::size_t index = 0; index < calls.size(); ++index)
        calls[index] = {function, {Number(open_.back()), index, lastArgument, 0}, 0};
    std::vector<std::uintptr_t> results;
    if (!calls.empty() && CallRemotely(owner_, calls)) {
        for (const RemoteCall& call : calls)
            results.push_back(call.Result);
    }
    return results;
}

int RemoteMenu::Count() const {
    RemoteCall call{countFunction_, {Number(open_.back()), 0, 0, 0}, 0};
    return CallRemotely(owner_, {&call, 1}) ? static_cast<int>(call.Result) : -1;
}

std::vector<MenuEntry> RemoteMenu::Entries() const {
    const std::vector<std::uintptr_t> states = ResultsForEach(stateFunction_, MF_BYPOSITION);
    // A question and the room for its answer, for each entry.
    struct Question {
        MENUITEMINFOW Info;
        wchar_t Text[kTextUnits];
    };
    std::vector<Question> questions(states.size());
    const RemoteMemory memory(processId_, std::max<std::size_t>(questions.size(), 1) * sizeof(Question));
    std::vector<RemoteCall> calls(states.size());
    for (std::size_t index = 0; index < questions.size(); ++index) {
        std::byte* const place = memory.Place() + index * sizeof(Question);
        MENUITEMINFOW& info = questions[index].Info;
        info.cbSize = sizeof(info);
        info.fMask = MIIM_STRING | MIIM_SUBMENU;
        info.dwTypeData = reinterpret_cast<wchar_t*>(place + offsetof(Question, Text));
        info.cch = kTextUnits;
        calls[index] = {textFunction_, {Number(open_.back()), index, TRUE, Number(place)}, 0};
    }
    const std::size_t size = questions.size() * sizeof(Question);
    if (calls.empty() || !memory.Write(questions.data(), size) || !CallRemotely(owner_, calls) ||
        !memory.Read(0, questions.data(), size))
        return {};
    std::vector<MenuEntry> entries;
    for (std::size_t index = 0; index < questions.size(); ++index) {
        questions[index].Text[kTextUnits - 1] = L'\0';
        const bool isDisabled = HasFlag(states[index], MF_GRAYED | MF_DISABLED);
        entries.push_back({questions[index].Text, questions[index].Info.hSubMenu != nullptr, isDisabled});
    }
    return entries;
}

std::vector<std::wstring> RemoteMenu::Texts() const {
    std::vector<std::wstring> texts;
    for (const MenuEntry& entry : Entries())
        texts.push_back(entry.Text);
    return texts;
}

int RemoteMenu::IndexOf(const std::wstring& text) const {
    const std::vector<std::wstring> texts = Texts();
    const auto found = std::ranges::find(texts, text);
    return found == texts.end() ? -1 : static_cast<int>(found - texts.begin());
}

int RemoteMenu::Highlighted() const {
    const std::vector<std::uintptr_t> states = ResultsForEach(stateFunction_, MF_BYPOSITION);
    const auto found =
        std::ranges::find_if(states, [](std::uintptr_t state) { return HasFlag(state, MF_HILITE); });
    return found == states.end() ? -1 : static_cast<int>(found - states.begin());
}

bool RemoteMenu::Highlights(int index) const {
    return WaitUntil([&] { return Highlighted() == index; });
}

RECT RemoteMenu::PlaceOf(int index) const {
    RECT place = {};
    const RemoteMemory memory(processId_, sizeof(place));
    RemoteCall call{placeFunction_,
                    {0, Number(open_.back()), static_cast<std::uintptr_t>(index), Number(memory.Place())},
                    0};
    if (CallRemotely(owner_, {&call, 1}))
        memory.Read(0, &place, sizeof(place));
    return place;
}

RECT RemoteMenu::Place() const {
    RECT place = {};
    for (const Shown& shown : AllShown()) {
        if (shown.Menu == open_.front())
            GetWindowRect(shown.Window, &place);
    }
    return place;
}

HMENU RemoteMenu::SubmenuOf(int index) const {
    RemoteCall call{submenuFunction_, {Number(open_.back()), static_cast<std::uintptr_t>(index), 0, 0}, 0};
    return CallRemotely(owner_, {&call, 1}) ? reinterpret_cast<HMENU>(call.Result) : nullptr;
}

bool RemoteMenu::MoveTo(int index) const {
    const int count = Count();
    if (index < 0 || index >= count)
        return false;
    if (index == count - 1) {
        PressKey(VK_END);
        return Highlights(index);
    }
    PressKey(VK_HOME);
    if (!Highlights(0))
        return false;
    int at = 0;
    while (at < index) {
        const int before = at;
        PressKey(VK_DOWN);
        if (!WaitUntil([&] { return (at = Highlighted()) > before; }))
            return false;
    }
    return at == index;
}

bool RemoteMenu::WaitForSubmenu(int index) {
    const HMENU submenu = SubmenuOf(index);
    if (submenu == nullptr || !WaitUntil([&] { return IsMenuShown(submenu); }))
        return false;
    open_.push_back(submenu);
    return true;
}

bool RemoteMenu::Enter(int index) {
    if (!MoveTo(index))
        return false;
    PressKey(VK_RIGHT);
    return WaitForSubmenu(index) && Highlights(0);
}

bool RemoteMenu::Leave(WORD key) {
    PressKey(key);
    const HMENU left = open_.back();
    open_.pop_back();
    return WaitUntil([&] { return !IsMenuShown(left); });
}

bool RemoteMenu::Choose(std::span<const std::wstring> path) {
    for (std::size_t step = 0; step + 1 < path.size(); ++step) {
        if (!Enter(IndexOf(path[step])))
            return false;
    }
    if (!MoveTo(IndexOf(path.back())))
        return false;
    PressKey(VK_RETURN);
    return WaitUntilClosed();
}

bool RemoteMenu::PointAt(int index) const {
    POINT at = MiddleOf(PlaceOf(index));
    return WaitUntil([&] {
        // A hand is never quite still: an earlier place of the mouse that arrives late is put right so.
        at.x ^= 1;
        MovePointerTo(at);
        return HasHandledAll(owner_) && Highlighted() == index;
    });
}

bool RemoteMenu::ChooseWithMouse(std::span<const std::wstring> path, DWORD button) {
    for (std::size_t step = 0; step + 1 < path.size(); ++step) {
        const int index = IndexOf(path[step]);
        if (index < 0)
            return false;
        if (!PointAt(index) || !WaitForSubmenu(index))
            return false;
    }
    const int index = IndexOf(path.back());
    if (index < 0 || !PointAt(index))
        return false;
    ClickAt(MiddleOf(PlaceOf(index)), 1, button);
    return WaitUntilClosed();
}

bool RemoteMenu::Cancel() {
    // A key that comes when no menu is left would be the window's.
    for (std::size_t left = AllShown().size(); left > 0; left = AllShown().size()) {
        PressKey(VK_ESCAPE);
        if (!WaitUntil([&] { return AllShown().size() < left; }))
            return false;
    }
    open_.clear();
    return true;
}

}  // namespace ferry::e2e
