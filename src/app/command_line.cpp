// The switches on the program's command line.
#include "app/command_line.h"

#include <vector>

#include "base/text.h"

namespace ferry::app {

namespace {

void ApplySwitch(std::wstring_view argument, CommandLineOptions& options) {
    if (base::EqualsIgnoringAsciiCase(argument, L"/c")) {
        options.TransferMode = 0;
    } else if (base::EqualsIgnoringAsciiCase(argument, L"/m")) {
        options.TransferMode = 1;
    } else if (base::EqualsIgnoringAsciiCase(argument, L"/t")) {
        options.TabListMode = 1;
    }
}

void ApplyNumber(std::wstring_view key, int number, CommandLineOptions& options) {
    if (base::EqualsIgnoringAsciiCase(key, L"/f")) {
        options.FocusMode = number;
    } else if (base::EqualsIgnoringAsciiCase(key, L"/s")) {
        options.TabFolderIndex = number;
    }
}

}  // namespace

CommandLineOptions ParseCommandLine(std::span<const std::wstring_view> arguments) {
    CommandLineOptions options;
    for (const std::wstring_view argument : arguments) {
        const std::vector<std::wstring_view> pieces = base::Split(argument, L'=');
        if (pieces.size() == 2) {
            ApplyNumber(pieces[0], base::ToInt(pieces[1]), options);
        } else {
            ApplySwitch(argument, options);
        }
    }
    return options;
}

}  // namespace ferry::app
