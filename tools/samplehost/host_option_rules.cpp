#include "host_option_rules.h"

#include <cwchar>
#include <limits>

namespace ferry::samplehost {
namespace {

using Values = std::span<const std::wstring>;

template <class Number>
bool ReadNumber(const std::wstring& text, Number& number) {
    wchar_t* end = nullptr;
    const long long value = std::wcstoll(text.c_str(), &end, 0);
    if (text.empty() || *end != L'\0' || value < 0)
        return false;
    if (static_cast<unsigned long long>(value) >
        static_cast<unsigned long long>(std::numeric_limits<Number>::max())) {
        return false;
    }
    number = static_cast<Number>(value);
    return true;
}

bool ReadPlace(const std::wstring& text, WindowPlace& place) {
    const wchar_t* at = text.c_str();
    for (int* const number : {&place.Left, &place.Top, &place.Width, &place.Height}) {
        wchar_t* end = nullptr;
        *number = static_cast<int>(std::wcstol(at, &end, 10));
        if (end == at || *end != (number == &place.Height ? L'\0' : L','))
            return false;
        at = end + 1;
    }
    return true;
}

/// The delivery that is being described: --after prepares one, the next --send or --drop fills it.
Delivery& NextDelivery(HostOptions& options) {
    const bool isPrepared =
        !options.Deliveries.empty() && options.Deliveries.back().Kind == DeliveryKind::Undecided;
    if (!isPrepared)
        options.Deliveries.emplace_back();
    return options.Deliveries.back();
}

bool AddDelay(HostOptions& options, Values values) {
    return ReadNumber(values[0], NextDelivery(options).DelayMs);
}

bool AddSend(HostOptions& options, DeliveryKind kind, const std::wstring& tag, const std::wstring& text) {
    Delivery& delivery = NextDelivery(options);
    delivery.Kind = kind;
    delivery.Text = text;
    return ReadNumber(tag, delivery.Tag);
}

bool AddDrop(HostOptions& options, Values values) {
    Delivery& delivery = NextDelivery(options);
    delivery.Kind = DeliveryKind::Drop;
    delivery.Paths.assign(values.begin(), values.end());
    return true;
}

template <auto field>
bool SetField(HostOptions& options, Values values) {
    options.Variable.*field = values[0];
    return true;
}

template <auto member>
bool SetText(HostOptions& options, Values values) {
    options.*member = values[0];
    return true;
}

template <auto member>
bool SetFlag(HostOptions& options, Values) {
    options.*member = true;
    return true;
}

template <auto member>
bool SetNumber(HostOptions& options, Values values) {
    return ReadNumber(values[0], options.*member);
}

template <auto member>
bool SetBlockText(HostOptions& options, Values values) {
    options.Block.*member = values[0];
    return true;
}

template <auto member>
bool AddBlockText(HostOptions& options, Values values) {
    (options.Block.*member).push_back(values[0]);
    return true;
}

constexpr OptionRule kRules[] = {
    {L"--help", 0, L"", L"Prints this text.", SetFlag<&HostOptions::Help>},
    {L"--ferry", 1, L"PATH", L"The program to start; without it the host only announces and waits.",
     SetText<&HostOptions::FerryPath>},
    {L"--log", 1, L"FILE", L"Writes the log lines to FILE too (UTF-8).", SetText<&HostOptions::LogFile>},
    {L"--stay", 0, L"", L"Stays when Ferry has ended, until the window is closed.",
     SetFlag<&HostOptions::Stay>},
    {L"--seconds", 1, L"N", L"Ends after N seconds in any case.", SetNumber<&HostOptions::Seconds>},
    {L"--window", 1, L"X,Y,W,H", L"Where the host's window stands, in pixels.",
     [](HostOptions& options, Values values) { return ReadPlace(values[0], options.Window); }},
    {L"--trace", 1, L"TITLE", L"Also plays the trace window of scripts that has this title.",
     SetText<&HostOptions::TraceTitle>},

    {L"--mode", 1, L"N", L"Field 0, the window mode (0).", SetField<&VariableFields::WindowMode>},
    {L"--activate", 1, L"N", L"Field 1, 1: the host gets the foreground back (0).",
     SetField<&VariableFields::ActivateHost>},
    {L"--numbers", 2, L"A B", L"Fields 2 and 3, the numbers in the block's name (process id, 1).",
     [](HostOptions& options, Values values) {
         options.Variable.FirstNumber = values[0];
         options.Variable.SecondNumber = values[1];
         return true;
     }},
    {L"--size", 1, L"BYTES", L"Field 4, the announced size (the block's own).",
     [](HostOptions& options, Values values) {
         options.HasSizeOverride = true;
         options.Variable.BlockSize = values[0];
         return true;
     }},
    {L"--reserved", 3, L"X Y Z", L"Fields 5, 6 and 7 (0 0 0).",
     [](HostOptions& options, Values values) {
         for (std::size_t index = 0; index < 3; ++index) {
             options.Variable.Reserved[index] = values[index];
         }
         return true;
     }},
    {L"--transport", 1, L"WORD", L"Field 8, the transport word (Share).",
     SetField<&VariableFields::Transport>},
    {L"--trailing", 1, L"TEXT", L"Field 9 (empty).", SetField<&VariableFields::Trailing>},
    {L"--variable", 1, L"TEXT", L"The whole variable as it is, instead of the ten fields.",
     SetText<&HostOptions::RawVariable>},
    {L"--no-variable", 0, L"", L"Does not set the variable.", SetFlag<&HostOptions::NoVariable>},

    {L"--item", 1, L"PATH", L"A selected item; may be repeated.", AddBlockText<&BlockFields::Items>},
    {L"--items-file", 1, L"FILE", L"Selected items, one path on each line (UTF-8).",
     SetText<&HostOptions::ItemsFile>},
    {L"--tab", 1, L"PATH", L"A folder of another tab; may be repeated.", AddBlockText<&BlockFields::Tabs>},
    {L"--current", 1, L"DIR", L"The host's current folder.", SetBlockText<&BlockFields::CurrentDir>},
    {L"--option", 1, L"TEXT", L"The option text.", SetBlockText<&BlockFields::Option>},
    {L"--count-items", 1, L"N", L"Announces another number of items.",
     SetBlockText<&BlockFields::AnnouncedItems>},
    {L"--count-tabs", 1, L"N", L"Announces another number of tab folders.",
     SetBlockText<&BlockFields::AnnouncedTabs>},
    {L"--no-nul", 0, L"", L"Leaves out the NUL at the block's end.",
     [](HostOptions& options, Values) {
         options.Block.EndsWithNul = false;
         return true;
     }},
    {L"--block-file", 1, L"FILE", L"The block's bytes as they are, instead of the fields.",
     SetText<&HostOptions::BlockFile>},
    {L"--no-block", 0, L"", L"Announces the block but does not make it.", SetFlag<&HostOptions::NoBlock>},
    {L"--mapping-size", 1, L"BYTES", L"Makes the mapping this large, whatever is announced.",
     SetNumber<&HostOptions::MappingSizeBytes>},
    {L"--hold-mutex", 1, L"MS", L"Holds the guard mutex so long after the start.",
     SetNumber<&HostOptions::HoldGuardMs>},
    {L"--answer-after", 1, L"MS", L"Answers each WM_COPYDATA so long after it came.",
     SetNumber<&HostOptions::AnswerAfterMs>},

    {L"--after", 1, L"MS", L"Waits before the next delivery below.", AddDelay},
    {L"--send-block", 0, L"", L"Sends the block once more, as WM_COPYDATA 255.",
     [](HostOptions& options, Values) { return AddSend(options, DeliveryKind::Block, L"255", {}); }},
    {L"--send-path", 2, L"TAG TEXT", L"Sends TEXT with its NUL as WM_COPYDATA TAG (100, 200, 300).",
     [](HostOptions& options, Values values) {
         return AddSend(options, DeliveryKind::Path, values[0], values[1]);
     }},
    {L"--send-bytes", 2, L"TAG FILE", L"Sends the bytes of FILE as WM_COPYDATA TAG.",
     [](HostOptions& options, Values values) {
         return AddSend(options, DeliveryKind::Bytes, values[0], values[1]);
     }},
    {L"--drop", kUpToNextOption, L"PATH...", L"Drops the paths on Ferry's dialog.", AddDrop},
};

}  // namespace

std::span<const OptionRule> OptionRules() noexcept {
    return kRules;
}

}  // namespace ferry::samplehost
