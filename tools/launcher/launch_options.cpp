#include "launcher/launch_options.h"

#include <algorithm>
#include <optional>

#include "base/text.h"

namespace ferry::launcher {
namespace {

/// Takes the value of a switch; false for one that it cannot be.
using TakeValue = bool (*)(LaunchOptions& options, std::wstring_view value);
using Apply = void (*)(LaunchOptions& options);

/// A switch with or without a value.
struct Rule {
    std::wstring_view Name;
    Apply Do;
    TakeValue Take;
};

void Copy(LaunchOptions& options) {
    options.IsMove = false;
}

void Move(LaunchOptions& options) {
    options.IsMove = true;
}

void KeepQuiet(LaunchOptions& options) {
    options.IsQuiet = true;
}

void AskForHelp(LaunchOptions& options) {
    options.What = Deed::Help;
}

/// For those who like to write it: the launcher always waits.
void Wait(LaunchOptions&) {}

bool TakeDestination(LaunchOptions& options, std::wstring_view value) {
    options.Destination = value;
    return true;
}

bool TakeTab(LaunchOptions& options, std::wstring_view value) {
    options.Tabs.emplace_back(value);
    return true;
}

bool TakeList(LaunchOptions& options, std::wstring_view value) {
    options.Lists.emplace_back(value);
    return true;
}

bool TakeSendTo(LaunchOptions& options, std::wstring_view value) {
    const bool isInstall = base::EqualsIgnoringAsciiCase(value, L"install");
    options.What = isInstall ? Deed::AddSendTo : Deed::RemoveSendTo;
    return isInstall || base::EqualsIgnoringAsciiCase(value, L"remove");
}

constexpr Rule kRules[] = {
    {L"c", &Copy, nullptr},          {L"copy", &Copy, nullptr},         {L"m", &Move, nullptr},
    {L"move", &Move, nullptr},       {L"d", nullptr, &TakeDestination}, {L"tab", nullptr, &TakeTab},
    {L"list", nullptr, &TakeList},   {L"sendto", nullptr, &TakeSendTo}, {L"quiet", &KeepQuiet, nullptr},
    {L"wait", &Wait, nullptr},       {L"?", &AskForHelp, nullptr},      {L"h", &AskForHelp, nullptr},
    {L"help", &AskForHelp, nullptr},
};

/// A switch taken apart.
struct Switch {
    std::wstring_view Name;
    std::optional<std::wstring_view> Value;
};

/// The switch that `argument` is; nothing for a path. "-" alone is no switch.
std::optional<Switch> SwitchOf(std::wstring_view argument) {
    if (argument.size() < 2 || (argument.front() != L'/' && argument.front() != L'-'))
        return std::nullopt;
    const bool hasTwoDashes = argument.starts_with(L"--");
    argument.remove_prefix(hasTwoDashes ? 2 : 1);
    const std::size_t end = argument.find_first_of(L":=");
    if (end == std::wstring_view::npos)
        return Switch{argument, std::nullopt};
    return Switch{argument.substr(0, end), argument.substr(end + 1)};
}

const Rule* RuleOf(std::wstring_view name) {
    const auto* const found = std::ranges::find_if(
        kRules, [&](const Rule& rule) { return base::EqualsIgnoringAsciiCase(rule.Name, name); });
    return found == std::end(kRules) ? nullptr : found;
}

/// Walks over the arguments.
class Reader {
public:
    Reader(std::span<const std::wstring_view> arguments, LaunchOptions& options)
        : arguments_(arguments), options_(options) {}

    Mistake Read() {
        while (next_ < arguments_.size()) {
            const std::wstring_view argument = arguments_[next_++];
            const auto found = isPastSwitches_ ? std::nullopt : SwitchOf(argument);
            if (argument == L"--" && !isPastSwitches_) {
                isPastSwitches_ = true;
            } else if (!found) {
                options_.Paths.emplace_back(argument);
            } else if (const MistakeKind kind = Obey(*found); kind != MistakeKind::None) {
                return {kind, std::wstring(argument)};
            }
        }
        if (options_.What == Deed::Open && options_.Paths.empty() && options_.Lists.empty())
            options_.What = Deed::Help;
        return {};
    }

private:
    MistakeKind Obey(const Switch& given) {
        const Rule* const rule = RuleOf(given.Name);
        if (rule == nullptr || (rule->Take == nullptr && given.Value))
            return MistakeKind::UnknownSwitch;
        if (rule->Take == nullptr) {
            rule->Do(options_);
            return MistakeKind::None;
        }
        std::wstring_view value;
        if (given.Value)
            value = *given.Value;
        else if (next_ < arguments_.size())
            value = arguments_[next_++];
        if (value.empty())
            return MistakeKind::MissingValue;
        return rule->Take(options_, value) ? MistakeKind::None : MistakeKind::WrongValue;
    }

    std::span<const std::wstring_view> arguments_;
    LaunchOptions& options_;
    std::size_t next_ = 0;
    bool isPastSwitches_ = false;
};

}  // namespace

Mistake ParseLaunchOptions(std::span<const std::wstring_view> arguments, LaunchOptions& options) {
    return Reader(arguments, options).Read();
}

}  // namespace ferry::launcher
