// The launcher's list decoder with all the bytes, and its command line with one argument per line of the
// list, against the rules written out plainly.
#include <algorithm>
#include <cstring>
#include <vector>

#include "fuzz_input.h"
#include "launcher/launch_options.h"
#include "launcher/list_text.h"

namespace {

using namespace ferry;

/// The paths of a text, found unit by unit.
std::vector<std::wstring> PathsPlainly(std::wstring_view text) {
    std::vector<std::wstring> paths;
    std::wstring line;
    const auto end = [&] {
        if (line.size() >= 2 && line.front() == L'"' && line.back() == L'"')
            line = line.substr(1, line.size() - 2);
        if (!line.empty())
            paths.push_back(line);
        line.clear();
    };
    for (const wchar_t unit : text) {
        if (unit == L'\r' || unit == L'\n' || unit == L'\0')
            end();
        else
            line.push_back(unit);
    }
    end();
    return paths;
}

bool StartsWith(std::span<const std::byte> bytes, std::string_view mark) {
    return bytes.size() >= mark.size() && std::memcmp(bytes.data(), mark.data(), mark.size()) == 0;
}

void CheckDecoding(std::span<const std::byte> bytes) {
    const auto text = launcher::DecodeList(bytes);
    if (StartsWith(bytes, "\xFF\xFE"))
        fuzz::Require(text == base::UnitsFromBytes(bytes.subspan(2)), "the units behind the mark");
    if (StartsWith(bytes, "\xFE\xFF")) {
        std::vector<std::byte> swapped(bytes.begin() + 2, bytes.end() - static_cast<int>(bytes.size() % 2));
        for (std::size_t index = 0; index < swapped.size(); index += 2) {
            std::swap(swapped[index], swapped[index + 1]);
        }
        fuzz::Require(text == base::UnitsFromBytes(swapped), "the units behind the mark, swapped");
    }
    if (StartsWith(bytes, "\xEF\xBB\xBF"))
        fuzz::Require(text.has_value(), "a marked UTF-8 text is always read");
    if (!text)
        return;
    const std::vector<std::wstring> paths = launcher::PathsOfList(*text);
    fuzz::Require(paths == PathsPlainly(*text), "as the plain reader");
    const bool isClean = std::ranges::none_of(paths, [](const std::wstring& path) {
        return path.empty() || path.find_first_of(std::wstring_view(L"\r\n\0", 3)) != std::wstring::npos;
    });
    fuzz::Require(isClean, "no empty path and no line end in one");
}

/// All that is known of a line without its rules.
void CheckArguments(std::wstring_view text) {
    const std::vector<std::wstring> lines = PathsPlainly(text);
    const std::vector<std::wstring_view> arguments(lines.begin(), lines.end());
    launcher::LaunchOptions options;
    const launcher::Mistake mistake = launcher::ParseLaunchOptions(arguments, options);
    const bool isMistake = mistake.Kind != launcher::MistakeKind::None;
    fuzz::Require(isMistake != mistake.Argument.empty(), "a mistake is in an argument");
    fuzz::Require(!isMistake || std::ranges::find(lines, mistake.Argument) != lines.end(),
                  "one that was given");
    const std::size_t taken = options.Paths.size() + options.Lists.size() + options.Tabs.size();
    fuzz::Require(taken <= arguments.size(), "nothing is taken twice");
    fuzz::Require(
        isMistake || options.What != launcher::Deed::Open || !options.Paths.empty() || !options.Lists.empty(),
        "who gives no path is helped");

    std::vector<std::wstring_view> behind = {L"--"};
    behind.insert(behind.end(), arguments.begin(), arguments.end());
    launcher::LaunchOptions plain;
    fuzz::Require(launcher::ParseLaunchOptions(behind, plain).Kind == launcher::MistakeKind::None &&
                      plain.Paths == lines && !plain.IsMove,
                  "behind two dashes stand paths");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CheckDecoding(std::as_bytes(std::span(data, size)));
    CheckArguments(base::FromUtf8({reinterpret_cast<const char*>(data), size}));
    return 0;
}
