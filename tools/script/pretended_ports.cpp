#include "pretended_ports.h"

#include <array>
#include <chrono>

#include "base/text.h"
#include "base/utf16.h"
#include "narrow_text.h"
#include "paths/path_grammar.h"

namespace ferry::scripttools {

namespace {

constexpr std::uint32_t kButtonsMask = 0xF;  // MB_TYPEMASK
constexpr int kOk = 1;
constexpr int kYes = 6;

/// The first button of a box, by the buttons that its style asks for (MB_OKCANCEL and so on).
int FirstButton(std::uint32_t buttons) noexcept {
    constexpr std::array kFirst{kOk, kOk, 3, kYes, kYes, 4, 2};
    return buttons < kFirst.size() ? kFirst[buttons] : kOk;
}

std::wstring WindowMessage(std::uint32_t message, int wParam, int lParam) {
    return std::to_wstring(message) + L' ' + std::to_wstring(wParam) + L' ' + std::to_wstring(lParam);
}

std::wstring RecordText(const script::Record& record) {
    return std::to_wstring(record.Code) + L' ' + record.Text;
}

/// A command line up to each of its blanks, as CreateProcessW tries one after the other; what a quote at its
/// start encloses is the program for sure.
std::vector<std::wstring_view> PossiblePrograms(std::wstring_view commandLine) {
    commandLine = base::Trim(commandLine);
    if (commandLine.starts_with(L'"')) {
        commandLine.remove_prefix(1);
        return {commandLine.substr(0, commandLine.find(L'"'))};
    }
    std::vector<std::wstring_view> programs;
    // A line of many words is no path after the first few.
    constexpr std::size_t kMostBlanks = 16;
    for (std::size_t end = commandLine.find(L' '); programs.size() < kMostBlanks;
         end = commandLine.find(L' ', end + 1)) {
        programs.push_back(commandLine.substr(0, end));
        if (end == std::wstring_view::npos)
            break;
    }
    return programs;
}

std::wstring ProgramKey(std::wstring_view name) {
    std::wstring key = base::SmallLetters(name);
    std::erase(key, L'"');
    return key;
}

std::wstring_view NameOfProgram(std::wstring_view path) noexcept {
    return path.substr(path.find_last_of(L"\\/") + 1);
}

/// Whether `program`, as a command line names it, means the one that is described as `name`; ".exe" need not
/// be written.
bool IsProgram(std::wstring_view program, std::wstring_view name) {
    const std::wstring wanted = ProgramKey(program);
    const std::wstring key = ProgramKey(name);
    const std::wstring_view last = NameOfProgram(wanted);
    if (last.empty())
        return false;
    const bool hasExtension = last.find(L'.') != std::wstring_view::npos;
    return wanted == key || last == key || (!hasExtension && std::wstring(last) + L".exe" == key);
}

/// Whether `text` begins with the scheme of an address, such as "https:"; a drive has one letter only.
bool IsAddress(std::wstring_view text) noexcept {
    const std::size_t colon = text.find(L':');
    return colon != std::wstring_view::npos && colon > 1 &&
           std::ranges::all_of(text.substr(0, colon), base::IsDriveLetter);
}

class PretendedRun final : public script::RunningProgram {
public:
    PretendedRun(PretendedProgram program, EffectLog& log) : program_(program), log_(log) {}

    bool Wait(std::uint32_t limitMs) override {
        const bool hasEnded = limitMs == script::kNoTimeLimit || program_.DurationMs <= limitMs;
        program_.DurationMs = hasEnded ? 0 : program_.DurationMs - limitMs;
        return hasEnded;
    }
    std::uint32_t ExitCode() override {
        return program_.DurationMs == 0 ? program_.ExitCode : process::kStillRuns;
    }
    void Kill(std::uint32_t exitCode) override {
        log_.Add(L"kill", std::to_wstring(exitCode));
        // One that has ended keeps its code.
        if (program_.DurationMs != 0)
            program_ = {.ExitCode = exitCode, .DurationMs = 0};
    }

private:
    PretendedProgram program_;
    EffectLog& log_;
};

namespace chrono = std::chrono;

constexpr std::uint64_t kFileTimeSecond = 10'000'000;
constexpr chrono::sys_days kFirstFileDay = chrono::year(1601) / 1 / 1;
constexpr chrono::sys_days kDayZero = chrono::year(1899) / 12 / 30;
constexpr chrono::sys_days kEndOfCalendar = chrono::year(10'000) / 1 / 1;

chrono::sys_seconds InstantOf(std::uint64_t fileTime) {
    return kFirstFileDay + chrono::seconds(fileTime / kFileTimeSecond);
}

/// A number's bytes as the registry has them.
Bytes BytesOf(std::uint32_t number) {
    constexpr std::uint32_t kUnit = 0xFFFF;
    constexpr unsigned kUnitBits = 16;
    const wchar_t units[] = {static_cast<wchar_t>(number & kUnit), static_cast<wchar_t>(number >> kUnitBits)};
    return base::BytesFromUnits({units, 2});
}

}  // namespace

int PretendedBoxes::Show(const std::wstring& text, std::uint32_t style) {
    log_.Add(L"msg", std::to_wstring(style) + L' ' + text);
    const std::uint32_t buttons = style & kButtonsMask;
    return buttons == 0 ? kOk : answers_.Next(FirstButton(buttons));
}

void PretendedSpeaker::Tell(const std::wstring& text, lang::Tone) {
    log_.Add(L"err", text);
}

bool PretendedSpeaker::Ask(const std::wstring& question, lang::Tone) {
    log_.Add(L"ask", question);
    return answers_.Next(kYes) == kYes;
}

void PretendedPrograms::Note(const script::ProgramStart& start, bool isWaitedFor) {
    log_.Add(L"run", start.CommandLine + L'|' + start.WorkingFolder + L'|' + std::to_wstring(start.ShowMode) +
                         (isWaitedFor ? L"|wait" : L"|nowait"));
}

std::optional<PretendedProgram> PretendedPrograms::Known(std::wstring_view commandLine) const {
    for (const std::wstring_view program : PossiblePrograms(commandLine)) {
        for (const auto& [name, known] : world_.Programs) {
            if (IsProgram(program, name))
                return known;
        }
    }
    return world_.OtherPrograms;
}

std::unique_ptr<script::RunningProgram> PretendedPrograms::Start(const script::ProgramStart& start) {
    Note(start, start.IsWaitedFor);
    const auto program = Known(start.CommandLine);
    return program ? std::make_unique<PretendedRun>(*program, log_) : nullptr;
}

bool PretendedPrograms::StartHelper(const std::wstring& commandLine) {
    log_.Add(L"start", commandLine);
    return Known(commandLine).has_value();
}

bool PretendedPrograms::Open(const script::ProgramStart& what) {
    Note(what, false);
    const auto isThere = [this](std::wstring_view path) {
        return disk_.Attributes(path) != files::kInvalidAttributes;
    };
    return Known(what.CommandLine).has_value() || IsAddress(what.CommandLine) ||
           std::ranges::any_of(PossiblePrograms(what.CommandLine), isThere);
}

void PretendedHost::HandOver(const script::Record& record) {
    if (Exists())
        log_.Add(L"send", RecordText(record), record.ByteCount());
}

void PretendedHost::Post(std::uint32_t message, int wParam, int lParam) {
    if (Exists())
        log_.Add(L"post", WindowMessage(message, wParam, lParam));
}

void PretendedHost::Send(std::uint32_t message, int wParam, int lParam) {
    if (Exists())
        log_.Add(L"sendm", WindowMessage(message, wParam, lParam));
}

std::optional<script::ScreenBox> PretendedHost::Position() {
    return Exists() ? std::optional(kHostPlace) : std::nullopt;
}

bool PretendedTrace::Find(const wchar_t* title) {
    const std::wstring_view wanted = title;
    isFound_ = (kind_ == TraceKind::Trace && wanted == L"Script trace Kiv") ||
               (kind_ == TraceKind::Debugger && wanted == L"Kiv Script Debugger");
    return isFound_;
}

void PretendedTrace::Send(const script::Record& record) {
    if (isFound_)
        log_.Add(L"trace", RecordText(record));
}

PretendedSettings::PretendedSettings(const std::map<std::wstring, HostSetting>& host, EffectLog& log)
    : log_(log) {
    for (const auto& [name, value] : host)
        values_[PlaceOf(settings::kHostKey, name)] = value;
}

PretendedSettings::Place PretendedSettings::PlaceOf(std::wstring_view key, std::wstring_view name) {
    return {base::SmallLetters(paths::StripTrailingSeparator(key)), base::SmallLetters(name)};
}

std::optional<Bytes> PretendedSettings::BytesAt(std::wstring_view key, std::wstring_view name) const {
    const auto found = values_.find(PlaceOf(key, name));
    if (found == values_.end())
        return std::nullopt;
    if (const auto* text = std::get_if<std::wstring>(&found->second))
        return base::BytesFromUnits(*text);
    return BytesOf(std::get<std::uint32_t>(found->second));
}

std::wstring PretendedSettings::TextAt(std::wstring_view key, std::wstring_view name,
                                       std::wstring_view defaultText) const {
    const auto bytes = BytesAt(key, name);
    return bytes && bytes->size() <= settings::kMaxTextBytes ? settings::TextFromValue(*bytes)
                                                             : std::wstring(defaultText);
}

std::uint32_t PretendedSettings::NumberAt(std::wstring_view key, std::wstring_view name,
                                          std::uint32_t defaultNumber) const {
    const auto bytes = BytesAt(key, name);
    if (!bytes || bytes->size() != sizeof(std::uint32_t))
        return defaultNumber;
    constexpr unsigned kByteBits = 8;
    std::uint32_t number = 0;
    for (std::size_t at = bytes->size(); at-- > 0;)
        number = number << kByteBits | std::to_integer<std::uint32_t>((*bytes)[at]);
    return number;
}

namespace {

std::wstring OwnKey() {
    return std::wstring(settings::kProgramKeyPrefix) + settings::kProgramName;
}

}  // namespace

std::wstring PretendedSettings::ReadText(std::wstring_view name, std::wstring_view defaultText) {
    return TextAt(OwnKey(), name, defaultText);
}

std::uint32_t PretendedSettings::ReadNumber(std::wstring_view name, std::uint32_t defaultNumber) {
    return NumberAt(OwnKey(), name, defaultNumber);
}

bool PretendedSettings::WriteText(std::wstring_view name, std::wstring_view text) {
    return WriteTextToKey(OwnKey(), name, text);
}

bool PretendedSettings::WriteNumber(std::wstring_view name, std::uint32_t number) {
    return WriteNumberToKey(OwnKey(), name, number);
}

std::wstring PretendedSettings::ReadHostText(std::wstring_view name, std::wstring_view defaultText) {
    return TextAt(settings::kHostKey, name, defaultText);
}

std::uint32_t PretendedSettings::ReadHostNumber(std::wstring_view name) {
    return NumberAt(settings::kHostKey, name, 0);
}

bool PretendedSettings::WriteTextToKey(std::wstring_view key, std::wstring_view name,
                                       std::wstring_view text) {
    log_.Add(L"reg", std::wstring(key) + L'|' + std::wstring(name) + L"|sz " + std::wstring(text));
    values_[PlaceOf(key, name)] = std::wstring(text);
    return true;
}

bool PretendedSettings::WriteNumberToKey(std::wstring_view key, std::wstring_view name,
                                         std::uint32_t number) {
    log_.Add(L"reg", std::wstring(key) + L'|' + std::wstring(name) + L"|dword " + std::to_wstring(number));
    values_[PlaceOf(key, name)] = number;
    return true;
}

void PretendedClipboard::SetText(const std::wstring& text) {
    log_.Add(L"clip", text);
    text_ = text;
}

std::optional<calendar::CalendarFields> PretendedClock::LocalTime(std::uint64_t fileTime) {
    constexpr unsigned kSignBit = 63;
    if (fileTime >> kSignBit != 0)
        return std::nullopt;
    const chrono::sys_seconds instant = InstantOf(fileTime);
    const auto day = chrono::floor<chrono::days>(instant);
    const chrono::year_month_day date(day);
    const chrono::hh_mm_ss time(instant - day);
    return calendar::CalendarFields{static_cast<int>(date.year()),
                                    static_cast<int>(static_cast<unsigned>(date.month())),
                                    static_cast<int>(static_cast<unsigned>(date.day())),
                                    static_cast<int>(time.hours().count()),
                                    static_cast<int>(time.minutes().count()),
                                    static_cast<int>(time.seconds().count())};
}

double PretendedClock::LocalDate(std::uint64_t fileTime) {
    constexpr double kSecondsOfDay = 86'400;
    const chrono::sys_seconds instant = InstantOf(fileTime);
    if (instant >= kEndOfCalendar)
        return 0.0;
    const auto day = chrono::floor<chrono::days>(instant);
    const double fraction = static_cast<double>((instant - day).count()) / kSecondsOfDay;
    const auto wholeDays = static_cast<double>((day - kDayZero).count());
    // Before its epoch the date type counts the fraction of a day forward all the same.
    return wholeDays < 0 ? wholeDays - fraction : wholeDays + fraction;
}

PretendedSurroundings::PretendedSurroundings(const WorldDescription& world, const PretendedDisk& disk)
    : world_(world), disk_(disk) {
    for (const auto& [name, value] : world.Environment)
        environment_[base::SmallLetters(name)] = value;
}

std::wstring PretendedSurroundings::ExpandEnvironment(const std::wstring& text) {
    std::wstring expanded;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text[at] == L'%' ? text.find(L'%', at + 1) : std::wstring::npos;
        const auto found = end == std::wstring::npos
                               ? environment_.end()
                               : environment_.find(base::SmallLetters(text.substr(at + 1, end - at - 1)));
        if (found == environment_.end()) {
            // The sign behind an unknown name may begin another one.
            expanded += text[at++];
        } else {
            expanded += found->second;
            at = end + 1;
        }
    }
    return expanded;
}

std::wstring PretendedSurroundings::FullPath(const std::wstring& path) {
    const std::wstring fullPath = disk_.FullPath(path);
    return fullPath.empty() ? path : fullPath;
}

std::wstring PretendedSurroundings::CurrentFolder() {
    return std::wstring(paths::StripTrailingSeparator(disk_.FullPath(world_.CurrentFolder)));
}

std::string PretendedSurroundings::Narrow(const std::wstring& text) {
    return InCodePage932(text);
}

int PretendedSurroundings::Metric(int index) {
    const auto found = world_.Metrics.find(index);
    return found == world_.Metrics.end() ? 0 : found->second;
}

bool PretendedPace::GoesOn() {
    isSpent_ = isSpent_ || statements_++ >= budget_.Statements || log_.Length() > budget_.EffectUnits;
    return !isSpent_;
}

}  // namespace ferry::scripttools
