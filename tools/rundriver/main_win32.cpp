// rundriver: lets Ferry copy or move files and presses its buttons.
//
// rundriver [OPTION]... --log FILE DESTINATION ITEM...
// rundriver [--pause] --show [--beside LINE] PROGRAM [ARGUMENT]...
// FERRY_E2E_APP and FERRY_E2E_HOST name the installed layout and the sample host.
#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <exception>
#include <iterator>
#include <string_view>

#include "e2e/driver/surroundings.h"
#include "shown_program_win32.h"
#include "watched_run_win32.h"

namespace {

using ferry::rundriver::Wishes;

constexpr char kUsage[] =
    "usage: rundriver [--move] [--individual] [--policy N] [--choose N] [--tab FOLDER]... [--tab-list]\n"
    "           [--favourites] [--last-favourite] [--progress] [--pause] --log FILE DESTINATION ITEM...\n"
    "       rundriver [--pause] --show [--beside LINE] PROGRAM [ARGUMENT]...\n";

constexpr struct {
    std::wstring_view Name;
    bool Wishes::* Flag;
} kFlags[] = {
    {L"--move", &Wishes::Moves},
    {L"--individual", &Wishes::IsIndividual},
    {L"--pause", &Wishes::PausesAt},
    {L"--tab-list", &Wishes::ListsTabs},
    {L"--favourites", &Wishes::OpensFavourites},
    {L"--last-favourite", &Wishes::RunsLastFavourite},
    {L"--progress", &Wishes::WatchesProgress},
    {L"--show", &Wishes::ShowsProgram},
};

bool SetFlag(std::wstring_view argument, Wishes& wishes) {
    const auto* const found = std::ranges::find(kFlags, argument, [](const auto& row) { return row.Name; });
    if (found == std::end(kFlags))
        return false;
    wishes.*found->Flag = true;
    return true;
}

bool SetValue(std::wstring_view argument, const wchar_t* value, Wishes& wishes) {
    const int number = static_cast<int>(std::wcstol(value, nullptr, 10));
    if (argument == L"--tab") {
        wishes.Tabs.emplace_back(value);
    } else if (argument == L"--policy") {
        wishes.Policy = number;
    } else if (argument == L"--choose") {
        wishes.Choice = number;
    } else if (argument == L"--log") {
        wishes.LogFile = value;
    } else if (argument == L"--beside") {
        wishes.Beside = value;
    } else {
        return false;
    }
    return true;
}

/// Reads the options before the paths. The result is the index of the first path.
int ReadOptions(int count, wchar_t** arguments, Wishes& wishes) {
    int index = 1;
    while (index < count) {
        if (SetFlag(arguments[index], wishes))
            ++index;
        else if (index + 1 < count && SetValue(arguments[index], arguments[index + 1], wishes))
            index += 2;
        else
            break;
    }
    return index;
}

/// Whether the wishes and so many paths behind them can be fulfilled.
bool CanBe(const Wishes& wishes, int paths) {
    if (wishes.ShowsProgram)
        return paths >= 1;
    return paths >= 2 && !wishes.LogFile.empty() && wishes.Policy <= 7 && wishes.Choice <= 6;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    Wishes wishes;
    int index = ReadOptions(count, arguments, wishes);
    if (!CanBe(wishes, count - index)) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    if (wishes.ShowsProgram) {
        wishes.Items.assign(arguments + index, arguments + count);
        return ferry::rundriver::ShowProgram(wishes) ? 0 : 1;
    }
    if (const std::wstring missing = ferry::e2e::MissingSurroundings(); !missing.empty()) {
        std::fprintf(stderr, "rundriver: %ls\n", missing.c_str());
        return 2;
    }
    wishes.Destination = arguments[index++];
    wishes.Items.assign(arguments + index, arguments + count);
    try {
        return ferry::rundriver::WatchedRun(wishes).Perform() ? 0 : 1;
    } catch (const std::exception& mishap) {
        std::fprintf(stderr, "rundriver: %s\n", mishap.what());
        return 1;
    }
}
