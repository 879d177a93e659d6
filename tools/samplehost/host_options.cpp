#include "host_options.h"

#include <algorithm>

#include "host_option_rules.h"

namespace ferry::samplehost {
namespace {

constexpr std::wstring_view kUsage =
    L"samplehost [options] [-- switches for Ferry]\n"
    L"\n"
    L"Opens a window of the host's class, hands a selection over to Ferry, shows and logs what\n"
    L"comes back, and ends with Ferry's exit code. 120: Ferry could not be started,\n"
    L"121: the block could not be made, 2: the command line is wrong.\n"
    L"\n";

constexpr std::size_t kHelpColumn = 30;

bool IsOption(const std::wstring& argument) {
    return argument.starts_with(L"--");
}

std::size_t CountValues(const OptionRule& rule, std::span<const std::wstring> rest) {
    if (rule.ValueCount != kUpToNextOption)
        return rule.ValueCount;
    return static_cast<std::size_t>(std::find_if(rest.begin(), rest.end(), IsOption) - rest.begin());
}

}  // namespace

std::wstring ParseHostOptions(std::span<const std::wstring> arguments, HostOptions& options) {
    std::size_t index = 0;
    while (index < arguments.size()) {
        const std::wstring& name = arguments[index++];
        const auto rest = arguments.subspan(index);
        if (name == L"--") {
            options.FerryArguments.assign(rest.begin(), rest.end());
            return {};
        }
        const auto rules = OptionRules();
        const auto rule = std::find_if(rules.begin(), rules.end(),
                                       [&](const OptionRule& each) { return each.Name == name; });
        if (rule == rules.end())
            return L"unknown option " + name;
        const std::size_t count = CountValues(*rule, rest);
        if (count > rest.size())
            return L"too few values for " + name;
        if (!rule->Apply(options, rest.first(count)))
            return L"wrong value for " + name;
        index += count;
    }
    return {};
}

std::wstring HostOptionsHelp() {
    std::wstring help(kUsage);
    for (const OptionRule& rule : OptionRules()) {
        std::wstring head = L"  " + std::wstring(rule.Name);
        if (!rule.ValueNames.empty()) {
            head += L' ';
            head += rule.ValueNames;
        }
        head.resize(std::max(head.size() + 2, kHelpColumn), L' ');
        help += head;
        help += rule.Help;
        help += L'\n';
    }
    return help;
}

}  // namespace ferry::samplehost
