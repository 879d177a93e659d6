// How long the menu of a folder of 5,000 favourites takes until it stands open, against a bare menu of the
// same names.
//
// Prints one line of JSON and ends with 1 when it could not be measured.
#include <windows.h>

#include <cstddef>
#include <string>

#include "base/handles_win32.h"
#include "bench_ground_win32.h"
#include "comparison.h"
#include "dirmenu/dir_menu_window.h"
#include "files/disk_win32.h"
#include "framework/handles.h"
#include "support/menus_win32.h"

namespace {

using ferry::base::FindHandle;
using ferry::bench::Counting;
using ferry::framework::MenuHandle;
using ferry::framework::WindowHandle;

constexpr std::size_t kFavourites = 5000;
constexpr double kMenuGoal = 1.2;

/// The entries of the menu that closed last.
std::size_t closedEntries = 0;

/// Closes the menu as soon as it waits for its first message: it stands open then.
LRESULT CALLBACK CloseMenu(int code, WPARAM wParam, LPARAM lParam) {
    const HWND window = code == MSGF_MENU ? FindWindowW(ferry::test::kMenuClass, nullptr) : nullptr;
    if (window != nullptr && IsWindowVisible(window)) {
        const LRESULT menu = SendMessageW(window, ferry::test::kGetMenuMessage, 0, 0);
        closedEntries = static_cast<std::size_t>(GetMenuItemCount(reinterpret_cast<HMENU>(menu)));
        EndMenu();
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void MakeFavourites(const std::wstring& folder) {
    for (std::size_t number = 1; number <= kFavourites; ++number) {
        const std::wstring path = folder + L"favourite " + std::to_wstring(number) + L".txt";
        const ferry::base::FileHandle file(
            CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    }
}

/// `open` shows a menu. The number of its entries.
template <class Open>
std::size_t EntriesOf(HWND owner, Open open) {
    closedEntries = 0;
    // The message that the menu waits for.
    PostMessageW(owner, WM_NULL, 0, 0);
    open();
    return closedEntries;
}

/// What a program would write that wants the names and nothing else: no order, no limit, no room for long
/// ones.
std::size_t ShowByHand(HWND owner, const std::wstring& folder) {
    return EntriesOf(owner, [&] {
        const MenuHandle menu(CreatePopupMenu());
        WIN32_FIND_DATAW found;
        const FindHandle search(FindFirstFileExW((folder + L"*").c_str(), FindExInfoBasic, &found,
                                                 FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
        UINT_PTR command = 0;
        do {
            if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
                AppendMenuW(menu.Get(), MF_STRING, ++command, found.cFileName);
        } while (FindNextFileW(search.Get(), &found));
        TrackPopupMenu(menu.Get(), TPM_RETURNCMD, 0, 0, 0, owner, nullptr);
    });
}

std::size_t ShowByFerry(HWND owner, const std::wstring& folder) {
    return EntriesOf(owner, [&] {
        ferry::files::DiskSearch search;
        ferry::dirmenu::CDirMenuWnd menu(owner, search, {});
        menu.Track(folder, {.ListFiles = 1});
    });
}

bool MeasureMenu() {
    ferry::bench::BenchGround ground;
    const std::wstring folder = ground.NewFolder();
    MakeFavourites(folder);
    const WindowHandle window(CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 300,
                                              nullptr, nullptr, nullptr, nullptr));
    const ferry::test::HookHandle hook(
        SetWindowsHookExW(WH_MSGFILTER, &CloseMenu, nullptr, GetCurrentThreadId()));
    return ferry::bench::Compare({Counting(kFavourites, [&] { return ShowByFerry(window.Get(), folder); }),
                                  Counting(kFavourites, [&] { return ShowByHand(window.Get(), folder); })},
                                 {{"menu of 5000 favourites, against a bare menu", 0, 1, kMenuGoal}});
}

}  // namespace

int main() {
    return ferry::bench::ResultOf(MeasureMenu);
}
