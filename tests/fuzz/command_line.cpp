// The program's switches, one argument per line of the input, against the rules written out plainly.
#include "app/command_line.h"

#include <cwctype>
#include <vector>

#include "base/text.h"
#include "fuzz_input.h"

namespace {

using namespace ferry;

std::wstring Lower(std::wstring_view text) {
    std::wstring result(text);
    for (wchar_t& unit : result) {
        unit = unit < 0x80 ? static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(unit))) : unit;
    }
    return result;
}

app::CommandLineOptions ParseNaively(const std::vector<std::wstring_view>& arguments) {
    app::CommandLineOptions options;
    for (const std::wstring_view raw : arguments) {
        const std::wstring argument = Lower(raw);
        const std::size_t sign = argument.find(L'=');
        const bool isPair = sign != std::wstring::npos && argument.find(L'=', sign + 1) == std::wstring::npos;
        if (isPair && argument.substr(0, sign) == L"/f") {
            options.FocusMode = base::ToInt(argument.substr(sign + 1));
        } else if (isPair && argument.substr(0, sign) == L"/s") {
            options.TabFolderIndex = base::ToInt(argument.substr(sign + 1));
        } else if (argument == L"/c") {
            options.TransferMode = 0;
        } else if (argument == L"/m") {
            options.TransferMode = 1;
        } else if (argument == L"/t") {
            options.TabListMode = 1;
        }
    }
    return options;
}

bool Same(const app::CommandLineOptions& left, const app::CommandLineOptions& right) {
    return left.TransferMode == right.TransferMode && left.TabListMode == right.TabListMode &&
           left.FocusMode == right.FocusMode && left.TabFolderIndex == right.TabFolderIndex;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::wstring text = base::FromUtf8({reinterpret_cast<const char*>(data), size});
    std::erase(text, L'\0');  // no argument of a process holds one
    const std::vector<std::wstring_view> arguments = base::Split(text, L'\n');
    const app::CommandLineOptions options = app::ParseCommandLine(arguments);
    fuzz::Require(Same(options, ParseNaively(arguments)), "as the plain reader");
    fuzz::Require(options.TransferMode == 0 || options.TransferMode == 1, "copy or move");
    fuzz::Require(options.TabListMode == 0 || options.TabListMode == 1, "a flag");

    std::vector<std::wstring_view> twice = arguments;
    twice.insert(twice.end(), arguments.begin(), arguments.end());
    fuzz::Require(Same(app::ParseCommandLine(twice), options), "repeating the arguments changes nothing");
    return 0;
}
