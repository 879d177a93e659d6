// "check": what is wrong with scripts, before any of them runs.
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <vector>

#include "base/utf16.h"
#include "commands.h"
#include "encoding_check.h"
#include "pretended_disk.h"
#include "real_disk.h"
#include "script/checker.h"

namespace ferry::scripttools {

namespace {

/// A finding as it is shown.
struct ShownFinding {
    std::string File;
    std::size_t Line = 1;
    std::size_t Column = 1;
    std::string Kind;
    bool IsWarning = false;
    std::string Text;
};

ShownFinding Shown(const script::Finding& finding, const std::string& script,
                   const std::wstring& scriptPath) {
    return {.File = finding.File == scriptPath ? script : base::ToUtf8(finding.File),
            .Line = finding.Line,
            .Column = finding.Column,
            .Kind = script::NameOf(finding.Kind),
            .IsWarning = script::IsWarning(finding.Kind),
            .Text = std::string(script::Describe(finding.Kind)) + ": " + base::ToUtf8(finding.Text)};
}

/// Whether the script at `path` says in its comments what it does. Such scripts are kept as UTF-8.
bool IsTestScript(const std::filesystem::path& path) {
    return path.extension() == ".txt" && path.stem().extension() == ".script";
}

/// A test script as the script that is made of it.
Bytes ScriptOf(const Bytes& testScript) {
    const std::string text(reinterpret_cast<const char*>(testScript.data()), testScript.size());
    return base::BytesFromUnits(base::FromUtf8(text));
}

/// What is wrong with the script at `path`, which holds `content`, and with those that it includes.
std::vector<ShownFinding> FindingsIn(const std::filesystem::path& path, const Bytes& content) {
    const std::string shownPath = ShownPath(path);
    // Read as what it is not, a script is nothing but mistakes.
    const bool isTest = IsTestScript(path);
    if (const std::wstring wrong = WrongEncoding(content); !wrong.empty() && !isTest)
        return {{.File = shownPath, .Kind = "encoding", .Text = base::ToUtf8(wrong)}};
    const RealDisk machine;
    EffectLog log;
    PretendedDisk disk(ScriptPathOf("."), log, &machine);
    const std::wstring scriptPath = ScriptPathOf(path);
    if (isTest)
        disk.AddFile(scriptPath, ScriptOf(content));
    std::vector<ShownFinding> findings;
    for (const script::Finding& finding : script::Check(disk, scriptPath))
        findings.push_back(Shown(finding, shownPath, scriptPath));
    return findings;
}

void Print(const std::vector<ShownFinding>& findings, std::ostream& out) {
    for (const ShownFinding& finding : findings) {
        out << finding.File << ':' << finding.Line << ':' << finding.Column << ": "
            << (finding.IsWarning ? "warning: " : "") << finding.Text << '\n';
    }
}

void PrintAsJson(const std::vector<ShownFinding>& findings, std::ostream& out) {
    auto list = nlohmann::ordered_json::array();
    for (const ShownFinding& finding : findings) {
        list.push_back({{"file", finding.File},
                        {"line", finding.Line},
                        {"column", finding.Column},
                        {"kind", finding.Kind},
                        {"warning", finding.IsWarning},
                        {"text", finding.Text}});
    }
    // Names of files may hold what is no UTF-8.
    out << list.dump(1, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

}  // namespace

ExitCode CheckScripts(ArgumentsOfCommand arguments, const Console& console) {
    bool writesJson = false;
    bool isUnreadable = false;
    std::size_t scripts = 0;
    std::vector<ShownFinding> findings;
    for (const auto& argument : arguments) {
        if (argument == "--json") {
            writesJson = true;
            continue;
        }
        ++scripts;
        if (const auto script = ReadFileBytes(argument)) {
            const auto found = FindingsIn(argument, *script);
            findings.insert(findings.end(), found.begin(), found.end());
        } else {
            console.Err << "cannot read " << ShownPath(argument) << '\n';
            isUnreadable = true;
        }
    }
    if (scripts == 0) {
        console.Err << "check: which scripts?\n";
        return ExitCode::WrongUsage;
    }
    (writesJson ? PrintAsJson : Print)(findings, console.Out);
    if (isUnreadable)
        return ExitCode::WrongUsage;
    return findings.empty() ? ExitCode::Fine : ExitCode::Findings;
}

}  // namespace ferry::scripttools
