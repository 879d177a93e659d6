// The grammar of paths: what must hold of any text.
#include "paths/path_grammar.h"

#include "base/text.h"
#include "fuzz_input.h"

namespace {

using namespace ferry;
using fuzz::Require;

void CheckLongPath(const std::wstring& path) {
    const paths::LongPath form = paths::ToLongPath(path);
    Require(paths::LongPathText(form.Text) == form.Text, "the long form of a long form is itself");
    Require((form.Form == paths::LongPathForm::Unchanged) == (form.Text == path),
            "the form tells of a change");
    Require(path.size() >= paths::kLongPathThreshold || form.Text == path, "short paths stay");
    const auto none = [](const std::wstring&) { return std::nullopt; };
    // A relative path into a folder called UNC looks like a server's path under its prefix.
    if (form.Form == paths::LongPathForm::Drive && !path.starts_with(L"UNC\\")) {
        Require(paths::ExpandLongName(form.Text, none) == path, "the drive prefix comes off again");
    } else if (form.Form == paths::LongPathForm::Network) {
        Require(L"\\\\" + paths::ExpandLongName(form.Text, none) == path, "so does the network prefix");
    }
}

void CheckLongName(const std::wstring& path) {
    bool asked = false;
    std::wstring given;
    const std::wstring kept = paths::ExpandLongName(path, [&](const std::wstring& prefixed) {
        asked = true;
        given = prefixed;
        return std::nullopt;
    });
    Require(!asked || kept == path, "without an answer the path stays");
    Require(!asked || given.starts_with(L"\\\\?\\"), "the platform sees a prefixed path");
    Require(!asked || path.find(L'~') != std::wstring::npos, "only a tilde is a reason to ask");
    const std::wstring echoed = paths::ExpandLongName(path, [](const std::wstring& p) { return p; });
    const bool isNetwork = asked && path.starts_with(L"\\\\");
    Require(!asked || echoed == (isNetwork ? path.substr(2) : path), "an unchanged answer loses its prefix");
}

void CheckParts(std::wstring_view path) {
    const paths::PathParts parts = paths::SplitPath(path);
    const std::wstring joined =
        std::wstring(parts.Drive).append(parts.Folder).append(parts.Name).append(parts.Extension);
    Require(joined == path, "the parts together are the path");
    Require(parts.Drive.empty() || parts.Drive.size() == 2, "a drive has two units");
    Require(parts.Extension.empty() || parts.Extension.rfind(L'.') == 0,
            "an extension has one dot, in front");
    Require(parts.Extension == paths::Extension(path), "the extension is the same alone");
    const std::wstring_view last = paths::LastComponent(path);
    Require(last.find(L'\\') == std::wstring_view::npos, "no backslash in a last component");
    Require(path.ends_with(last), "the last component ends the path");
    const std::wstring_view parent = paths::ParentWithSeparator(path);
    if (path.find(L'\\') != std::wstring_view::npos) {
        Require(std::wstring(parent).append(last) == path, "parent and last component are the path");
        Require(parent.ends_with(L'\\'), "a parent ends with its backslash");
    } else {
        Require(parent == path && last == path, "without a backslash both are the path");
    }
    for (const auto part : {parts.Drive, parts.Folder, parts.Name, parts.Extension, last, parent,
                            paths::NameWithoutExtension(path)}) {
        Require(fuzz::LiesWithin(part, path), "parts are views into the path");
    }
    Require(path.empty() || !paths::NameWithoutExtension(path).empty(), "a path has a name");
}

void CheckSeparators(std::wstring_view path) {
    const std::wstring_view stripped = paths::StripTrailingSeparator(path);
    Require(path.starts_with(stripped) && path.size() - stripped.size() <= 1, "at most one unit comes off");
    const bool endsWithOne = path.ends_with(L'\\') || path.ends_with(L'/');
    const bool isRoot = path.size() == 3 && path[1] == L':';
    Require((stripped != path) == (endsWithOne && !isRoot), "it comes off a separator, but not a root's");
    const std::wstring with = paths::WithTrailingSeparator(path);
    Require(paths::WithTrailingSeparator(with) == with, "a separator is added once");
    Require(with == (path.empty() || endsWithOne ? std::wstring(path) : std::wstring(path) + L"\\"),
            "and only where none stands");
}

/// The rules of the split, one unit at a time.
paths::CommandLineParts SplitNaively(std::wstring_view line) {
    std::wstring text;
    for (const wchar_t unit : base::Trim(line)) {
        if (unit != L'\r' && unit != L'\n') {
            text.push_back(unit);
        }
    }
    paths::CommandLineParts parts;
    bool isQuoted = false;
    bool wasQuoted = false;
    bool inProgram = true;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i == 0 && text[i] == L'"') {
            isQuoted = wasQuoted = true;
        } else if (isQuoted && text[i] == L'"') {
            isQuoted = false;
        } else if (inProgram && !isQuoted && text[i] == L' ') {
            inProgram = false;
        } else {
            (inProgram ? parts.Program : parts.Arguments).push_back(text[i]);
        }
    }
    Require(wasQuoted || parts.Program.find(L' ') == std::wstring::npos, "only quotes keep spaces together");
    return parts;
}

void CheckCommandLine(std::wstring_view line) {
    const paths::CommandLineParts parts = paths::SplitCommandLine(line);
    const paths::CommandLineParts expected = SplitNaively(line);
    Require(parts.Program == expected.Program, "the program as by hand");
    Require(parts.Arguments == expected.Arguments, "the arguments as by hand");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::ExactUnits text(fuzz::UnitsOf(data, size));
    const std::wstring path(text.View());
    CheckLongPath(path);
    CheckLongPath(path + std::wstring(paths::kLongPathThreshold, L'x'));
    CheckLongName(path);
    CheckParts(text.View());
    CheckSeparators(text.View());
    CheckCommandLine(text.View());
    return 0;
}
