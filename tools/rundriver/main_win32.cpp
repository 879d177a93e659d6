// rundriver: lets Ferry copy or move files and presses its buttons.
//
// rundriver [--move] [--individual] [--policy N] [--tab FOLDER]... [--tab-list] [--pause] --log FILE
//     DESTINATION ITEM...
// FERRY_E2E_APP and FERRY_E2E_HOST name the installed layout and the sample host.
#include <cstdio>
#include <cwchar>
#include <exception>
#include <string_view>

#include "e2e/driver/surroundings.h"
#include "watched_run_win32.h"

namespace {

using ferry::rundriver::Wishes;

/// Reads the options before the paths. The result is the index of the first path.
int ReadOptions(int count, wchar_t** arguments, Wishes& wishes) {
    int index = 1;
    for (; index < count; ++index) {
        const std::wstring_view argument = arguments[index];
        if (argument == L"--move") {
            wishes.Moves = true;
        } else if (argument == L"--individual") {
            wishes.IsIndividual = true;
        } else if (argument == L"--pause") {
            wishes.PausesAt = true;
        } else if (argument == L"--tab-list") {
            wishes.ListsTabs = true;
        } else if (argument == L"--tab" && index + 1 < count) {
            wishes.Tabs.emplace_back(arguments[++index]);
        } else if (argument == L"--policy" && index + 1 < count) {
            wishes.Policy = static_cast<int>(std::wcstol(arguments[++index], nullptr, 10));
        } else if (argument == L"--log" && index + 1 < count) {
            wishes.LogFile = arguments[++index];
        } else {
            break;
        }
    }
    return index;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    Wishes wishes;
    int index = ReadOptions(count, arguments, wishes);
    if (count - index < 2 || wishes.LogFile.empty() || wishes.Policy > 7) {
        std::fputs(
            "usage: rundriver [--move] [--individual] [--policy N] [--tab FOLDER]... [--tab-list] [--pause]"
            " --log FILE DESTINATION ITEM...\n",
            stderr);
        return 2;
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
