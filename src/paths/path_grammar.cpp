// The grammar of paths: long-path form, parts, separators, command lines.
#include "paths/path_grammar.h"

#include "base/case_order.h"
#include "base/text.h"

namespace ferry::paths {

namespace {

bool IsSeparator(wchar_t unit) noexcept {
    return unit == L'\\' || unit == L'/';
}

/// `path` as a person writes it.
std::wstring WithoutPrefix(std::wstring_view path) {
    if (path.starts_with(kPlainNetworkPrefix))
        return std::wstring(kNetworkStart).append(path.substr(kPlainNetworkPrefix.size()));
    return std::wstring(path.starts_with(kPlainPrefix) ? path.substr(kPlainPrefix.size()) : path);
}

}  // namespace

bool StartsWithDrive(std::wstring_view text) noexcept {
    return text.size() >= 2 && base::IsDriveLetter(text[0]) && text[1] == L':';
}

bool StartsLikeFullPath(std::wstring_view text) noexcept {
    return StartsWithDrive(text) || text.starts_with(kNetworkStart);
}

bool IsSamePath(std::wstring_view one, std::wstring_view other) {
    return base::EqualsIgnoringCase(StripTrailingSeparator(WithoutPrefix(one)),
                                    StripTrailingSeparator(WithoutPrefix(other)));
}

LongPath WithPlainPrefix(std::wstring_view path) {
    if (!path.empty() && base::IsDriveLetter(path.front())) {
        return {std::wstring(kPlainPrefix).append(path), LongPathForm::Drive};
    }
    // A third "?" means that the path bears the prefix already.
    if (path.starts_with(kNetworkStart) && !path.starts_with(L"\\\\?")) {
        return {std::wstring(kPlainNetworkPrefix).append(path.substr(kNetworkStart.size())),
                LongPathForm::Network};
    }
    return {std::wstring(path), LongPathForm::Unchanged};
}

LongPath ToLongPath(std::wstring_view path) {
    if (path.size() < kLongPathThreshold) {
        return {std::wstring(path), LongPathForm::Unchanged};
    }
    return WithPlainPrefix(path);
}

std::wstring LongPathText(std::wstring_view path) {
    return ToLongPath(path).Text;
}

std::wstring ExpandLongName(std::wstring_view path, const LongNameQuery& query) {
    if (path.starts_with(kPlainNetworkPrefix)) {
        return std::wstring(path.substr(kPlainNetworkPrefix.size()));
    }
    if (path.starts_with(kPlainPrefix)) {
        return std::wstring(path.substr(kPlainPrefix.size()));
    }
    if (path.find(L'~') == std::wstring_view::npos) {
        return std::wstring(path);
    }
    const LongPath prefixed = WithPlainPrefix(path);
    if (prefixed.Form == LongPathForm::Unchanged) {
        return std::wstring(path);
    }
    std::optional<std::wstring> answer = query(prefixed.Text);
    if (!answer) {
        return std::wstring(path);
    }
    const auto& prefix = prefixed.Form == LongPathForm::Drive ? kPlainPrefix : kPlainNetworkPrefix;
    answer->erase(0, prefix.size());
    return *std::move(answer);
}

std::wstring_view LastComponent(std::wstring_view path) noexcept {
    const std::size_t separator = path.rfind(L'\\');
    return separator == std::wstring_view::npos ? path : path.substr(separator + 1);
}

std::wstring_view ShownName(std::wstring_view path) noexcept {
    std::wstring_view named = path;
    while (!named.empty() && IsSeparator(named.back())) {
        named.remove_suffix(1);
    }
    const bool isDrive = named.size() == 2 && StartsWithDrive(named);
    return named.empty() || isDrive ? path : LastComponent(named);
}

std::wstring_view ParentWithSeparator(std::wstring_view path) noexcept {
    const std::size_t separator = path.rfind(L'\\');
    return separator == std::wstring_view::npos ? path : path.substr(0, separator + 1);
}

std::wstring_view StripTrailingSeparator(std::wstring_view path) noexcept {
    const bool isDriveRoot = path.size() == 3 && path[1] == L':';
    if (!path.empty() && !isDriveRoot && IsSeparator(path.back())) {
        path.remove_suffix(1);
    }
    return path;
}

std::wstring WithTrailingSeparator(std::wstring_view path) {
    std::wstring result(path);
    if (!result.empty() && !IsSeparator(result.back())) {
        result.push_back(L'\\');
    }
    return result;
}

PathParts SplitPath(std::wstring_view path) noexcept {
    PathParts parts;
    const std::size_t nameBegin = path.rfind(L'\\') + 1;  // 0 when there is none: npos wraps
    parts.Folder = path.substr(0, nameBegin);
    parts.Name = path.substr(nameBegin);
    // The first unit alone decides; a relative "ab\c" has the drive "ab" by this rule.
    if (!parts.Folder.empty() && base::IsDriveLetter(path.front())) {
        parts.Drive = parts.Folder.substr(0, 2);
        parts.Folder.remove_prefix(parts.Drive.size());
    }
    const std::size_t dot = parts.Name.rfind(L'.');
    if (dot != std::wstring_view::npos) {
        parts.Extension = parts.Name.substr(dot);
        parts.Name = parts.Name.substr(0, dot);
    }
    return parts;
}

std::wstring_view NameWithoutExtension(std::wstring_view path) noexcept {
    const std::wstring_view name = SplitPath(StripTrailingSeparator(path)).Name;
    return name.empty() ? path : name;
}

std::wstring_view Extension(std::wstring_view path) noexcept {
    return SplitPath(path).Extension;
}

CommandLineParts SplitCommandLine(std::wstring_view commandLine) {
    std::wstring text(base::Trim(commandLine));
    std::erase_if(text, [](wchar_t unit) { return unit == L'\r' || unit == L'\n'; });

    CommandLineParts parts;
    std::wstring_view rest = text;
    if (rest.starts_with(L'"')) {
        rest.remove_prefix(1);
        const std::size_t quote = rest.find(L'"');
        parts.Program = rest.substr(0, quote);
        rest = quote == std::wstring_view::npos ? std::wstring_view() : rest.substr(quote + 1);
    }
    const std::size_t space = rest.find(L' ');
    parts.Program.append(rest.substr(0, space));
    if (space != std::wstring_view::npos) {
        parts.Arguments = rest.substr(space + 1);
    }
    return parts;
}

}  // namespace ferry::paths
