#include "core/scripts/script_file.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "base/text.h"
#include "base/utf16.h"
#include "script/clock_text.h"
#include "script/shown_text.h"

namespace ferry::scripttools {

namespace {

constexpr std::wstring_view kMark = L"\xFEFF";

/// Two texts on both sides of the first separator; nothing without one.
using TwoTexts = std::pair<std::wstring, std::wstring>;
std::optional<TwoTexts> SplitAt(std::wstring_view text, wchar_t separator) {
    const std::size_t at = text.find(separator);
    if (at == std::wstring_view::npos)
        return std::nullopt;
    return TwoTexts(text.substr(0, at), text.substr(at + 1));
}

/// The whole number that `text` is, and nothing else.
template <class Number>
std::optional<Number> NumberIn(std::wstring_view text) {
    const std::wstring_view digits = text.starts_with(L'-') ? text.substr(1) : text;
    constexpr std::size_t kMostDigits = 10;
    if (digits.empty() || digits.size() > kMostDigits || !std::ranges::all_of(digits, base::IsDigit))
        return std::nullopt;
    return static_cast<Number>(std::stoll(std::wstring(text)));
}

using OptionalNumber = std::optional<std::uint32_t>;

/// Puts what stands behind a key of the world into it; whether it can stand there.
using SetWorld = bool (*)(ScriptFile& file, const std::wstring& value);

template <std::wstring WorldDescription::* field>
bool SetText(ScriptFile& file, const std::wstring& value) {
    file.World.*field = value;
    return true;
}

template <std::vector<std::wstring> WorldDescription::* field>
bool AddText(ScriptFile& file, const std::wstring& value) {
    (file.World.*field).push_back(value);
    return !value.empty();
}

bool SetScript(ScriptFile& file, const std::wstring& value) {
    // What the script holds is already there.
    auto content = file.World.Files.extract(file.World.Script);
    content.key() = file.World.Script = value;
    file.World.Files.insert(std::move(content));
    return !value.empty();
}

bool SetClock(ScriptFile& file, const std::wstring& value) {
    const auto clock = ClockFromText(value);
    file.World.Clock = clock.value_or(file.World.Clock);
    return clock.has_value();
}

bool SetHostSetting(ScriptFile& file, const std::wstring& value) {
    const auto setting = SplitAt(value, L'=');
    if (!setting)
        return false;
    if (!setting->second.starts_with(L'#')) {
        file.World.HostSettings[setting->first] = setting->second;
        return true;
    }
    const auto number = NumberIn<std::uint32_t>(setting->second.substr(1));
    if (number)
        file.World.HostSettings[setting->first] = *number;
    return number.has_value();
}

bool SetVariable(ScriptFile& file, const std::wstring& value) {
    const auto variable = SplitAt(value, L'=');
    if (variable)
        file.World.Environment[variable->first] = variable->second;
    return variable.has_value();
}

bool AddAnswer(ScriptFile& file, const std::wstring& value) {
    const auto button = NumberIn<int>(value);
    file.World.Answers.push_back(button.value_or(0));
    return button.has_value();
}

/// NAME CODE MS, where the name may have blanks.
bool AddProgram(ScriptFile& file, const std::wstring& value) {
    const std::size_t second = value.rfind(L' ');
    const std::size_t first =
        second == std::wstring::npos || second == 0 ? second : value.rfind(L' ', second - 1);
    if (first == std::wstring::npos || first == 0)
        return false;
    const OptionalNumber code = NumberIn<std::uint32_t>(value.substr(first + 1, second - first - 1));
    const OptionalNumber duration = NumberIn<std::uint32_t>(value.substr(second + 1));
    if (code && duration)
        file.World.Programs[value.substr(0, first)] = {*code, *duration};
    return code && duration;
}

bool SetTrace(ScriptFile& file, const std::wstring& value) {
    file.World.Trace = value == L"trace" ? TraceKind::Trace : TraceKind::Debugger;
    return value == L"trace" || value == L"debugger";
}

bool SetHostWindow(ScriptFile& file, const std::wstring& value) {
    file.World.HasHostWindow = true;
    return value.empty() || value == L"present";
}

bool SetMetric(ScriptFile& file, const std::wstring& value) {
    const auto metric = SplitAt(value, L'=');
    const auto index = metric ? NumberIn<int>(metric->first) : std::nullopt;
    const auto number = metric ? NumberIn<int>(metric->second) : std::nullopt;
    if (index && number)
        file.World.Metrics[*index] = *number;
    return index && number;
}

bool AddTextFile(ScriptFile& file, const std::wstring& value) {
    const auto parts = SplitAt(value, L'|');
    if (parts)
        file.World.Files[parts->first] = base::BytesFromUnits(parts->second);
    return parts.has_value();
}

bool AddBytesTo(std::map<std::wstring, Bytes>& files, const std::wstring& value) {
    const auto parts = SplitAt(value, L'|');
    const auto bytes = parts ? BytesFromHex(parts->second) : std::nullopt;
    if (bytes)
        files[parts->first] = *bytes;
    return bytes.has_value();
}

bool AddBytesFile(ScriptFile& file, const std::wstring& value) {
    return AddBytesTo(file.World.Files, value);
}

bool TakeMark(ScriptFile& file, const std::wstring& value) {
    Bytes& script = file.World.Files[file.World.Script];
    const std::wstring units = base::UnitsFromBytes(script);
    const bool hasMark = units.starts_with(kMark);
    if (hasMark)
        script = base::BytesFromUnits(std::wstring_view(units).substr(kMark.size()));
    return hasMark && value.empty();
}

constexpr struct {
    std::wstring_view Key;
    SetWorld Set;
} kWorldKeys[] = {
    {L"script", SetScript},
    {L"select", AddText<&WorldDescription::Selection>},
    {L"clock", SetClock},
    {L"host", SetHostSetting},
    {L"env", SetVariable},
    {L"answer", AddAnswer},
    {L"program", AddProgram},
    {L"trace", SetTrace},
    {L"host_window", SetHostWindow},
    {L"clipboard", SetText<&WorldDescription::Clipboard>},
    {L"cwd", SetText<&WorldDescription::CurrentFolder>},
    {L"login", SetText<&WorldDescription::LoginName>},
    {L"local_appdata", SetText<&WorldDescription::LocalAppData>},
    {L"exe_dir", SetText<&WorldDescription::ProgramFolder>},
    {L"metric", SetMetric},
    {L"dir", AddText<&WorldDescription::Folders>},
    {L"text", AddTextFile},
    {L"bytes", AddBytesFile},
    {L"nomark", TakeMark},
};

bool ReadWorldLine(ScriptFile& file, const std::wstring& key, const std::wstring& value) {
    const auto* found = std::ranges::find(kWorldKeys, key, [](const auto& row) { return row.Key; });
    return found != std::end(kWorldKeys) && found->Set(file, value);
}

/// What a script can do to its world.
constexpr std::wstring_view kKinds[] = {L"msg",   L"err",    L"ask",   L"send", L"post",  L"sendm",
                                        L"reg",   L"run",    L"start", L"kill", L"sleep", L"clip",
                                        L"speak", L"speech", L"trace", L"open", L"write", L"mkdir"};

bool ReadEffectLine(ScriptFile& file, const std::wstring& kind, const std::wstring& text) {
    Effect effect{kind, text, std::nullopt};
    if (kind == L"send") {
        const auto parts = SplitAt(text, L' ');
        if (!parts)
            return false;
        // What receivers have always been told: said here on its own, so that the program's rule is judged.
        effect.ByteCount = 8 * parts->second.size() + 8;
    }
    file.Effects.push_back(std::move(effect));
    return std::ranges::find(kKinds, kind) != std::end(kKinds);
}

bool ReadResult(ScriptFile& file, const std::wstring& value) {
    file.Result = value == L"-1" ? script::RunResult::EndedAll : script::RunResult::Ended;
    return value == L"0" || value == L"-1";
}

bool ReadAfterwardsLine(ScriptFile& file, const std::wstring& what, const std::wstring& value) {
    if (what == L"file")
        return AddBytesTo(file.Files, value);
    if (what == L"nofile")
        return file.MissingFiles.insert(value).second && !value.empty();
    return what == L"result" && ReadResult(file, value);
}

constexpr struct {
    std::wstring_view Start;
    bool (*Read)(ScriptFile& file, const std::wstring& word, const std::wstring& rest);
    bool IsExpectation;
} kLineForms[] = {
    {L"//@", ReadWorldLine, false}, {L"//>", ReadEffectLine, true}, {L"//=", ReadAfterwardsLine, true}};

/// Reads a line that says more than the script does; whether it is understood, or is none.
bool ReadLine(ScriptFile& file, std::wstring_view line, bool& hasExpectation) {
    line = base::Trim(line);
    for (const auto& [start, read, isExpectation] : kLineForms) {
        if (!line.starts_with(start))
            continue;
        hasExpectation = hasExpectation || isExpectation;
        line.remove_prefix(start.size());
        const bool isApart = line.starts_with(L' ');
        const std::wstring_view said = base::Trim(line);
        const std::size_t end = std::min(said.find(L' '), said.size());
        const std::wstring_view rest = said.substr(std::min(end + 1, said.size()));
        return isApart && read(file, std::wstring(said.substr(0, end)), FromSigns(rest));
    }
    return true;
}

std::wstring WithCarriageReturns(std::wstring_view text) {
    return base::ReplaceAll(text, L"\n", L"\r\n");
}

WorldDescription UsualWorld(std::wstring_view script) {
    WorldDescription world{.Script = L"C:\\s\\main.txt",
                           .Clock = {2026, 2, 3, 4, 5, 6},
                           .CurrentFolder = L"C:\\cur",
                           .LoginName = L"u",
                           .LocalAppData = L"C:\\Users\\u\\AppData\\Local",
                           .ProgramFolder = L"C:\\Kiv\\Command\\Ferry\\"};
    world.Files[world.Script] = base::BytesFromUnits(std::wstring(kMark) + WithCarriageReturns(script));
    return world;
}

std::string ShownEffect(const Effect& effect) {
    const std::string bytes = effect.ByteCount ? " (" + std::to_string(*effect.ByteCount) + " bytes)" : "";
    return base::ToUtf8(effect.Kind + L' ' + WithSigns(effect.Text)) + bytes + '\n';
}

/// How files differ from what was expected of them.
std::string FileDifferences(const ScriptFile& file, PretendedWorld& world) {
    std::string differences;
    script::World ports = world.Ports();
    const std::map<std::wstring, Bytes> all = world.Files();
    for (const auto& [path, content] : file.Files) {
        const auto found = all.find(path);
        if (found == all.end())
            differences += "there is no file " + base::ToUtf8(path) + '\n';
        else if (found->second != content)
            differences +=
                base::ToUtf8(path + L" holds " + HexDigits(found->second) + L", not " + HexDigits(content)) +
                '\n';
    }
    for (const std::wstring& path : file.MissingFiles) {
        if (ports.Files.Attributes(path) != files::kInvalidAttributes)
            differences += "there is a file " + base::ToUtf8(path) + '\n';
    }
    return differences;
}

}  // namespace

ScriptFile ReadScriptFile(std::wstring_view text) {
    ScriptFile file;
    file.World = UsualWorld(text);
    bool hasExpectation = false;
    const std::vector<std::wstring_view> lines = base::Split(text, L'\n');
    if (lines.empty() || !lines[0].starts_with(L"// "))
        file.Mistakes.emplace_back("the first line must be a comment that says which rule this is");
    for (std::size_t at = 0; at < lines.size(); ++at) {
        if (!ReadLine(file, lines[at], hasExpectation))
            file.Mistakes.push_back("line " + std::to_string(at + 1) +
                                    " is not understood: " + base::ToUtf8(lines[at]));
    }
    if (!hasExpectation)
        file.Mistakes.emplace_back("nothing is expected");
    return file;
}

std::string Difference(std::span<const Effect> expected, std::span<const Effect> done) {
    if (std::ranges::equal(expected, done))
        return {};
    // What is the same at both ends is shown once; what lies between, first as expected, then as done.
    const std::size_t shorter = std::min(expected.size(), done.size());
    std::size_t front = 0;
    while (front < shorter && expected[front] == done[front])
        ++front;
    std::size_t back = 0;
    while (back < shorter - front && expected[expected.size() - 1 - back] == done[done.size() - 1 - back])
        ++back;
    std::string difference = "effects (- expected, + done):\n";
    const auto show = [&difference](const char* sign, std::span<const Effect> effects) {
        for (const Effect& effect : effects)
            difference += sign + ShownEffect(effect);
    };
    show("  ", expected.first(front));
    show("- ", expected.subspan(front, expected.size() - front - back));
    show("+ ", done.subspan(front, done.size() - front - back));
    show("  ", expected.last(back));
    return difference;
}

std::string Judge(const ScriptFile& file, RunScriptIn run) {
    std::string differences;
    for (const std::string& mistake : file.Mistakes)
        differences += mistake + '\n';
    PretendedWorld world(file.World);
    const script::RunResult result = run(world);
    differences += Difference(file.Effects, world.Effects());
    if (result != file.Result) {
        differences += "the result is " + std::to_string(static_cast<int>(result)) + ", not " +
                       std::to_string(static_cast<int>(file.Result)) + '\n';
    }
    return differences + FileDifferences(file, world);
}

}  // namespace ferry::scripttools
