// The grammar of paths: long-path form, parts, separators, command lines.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace ferry::paths {

/// What stands in front of a path that the system shall take as it is.
inline constexpr std::wstring_view kPlainPrefix = L"\\\\?\\";

/// The same in front of server and share.
inline constexpr std::wstring_view kPlainNetworkPrefix = L"\\\\?\\UNC\\";

/// What begins the path of a server.
inline constexpr std::wstring_view kNetworkStart = L"\\\\";

/// Whether `text` begins with a drive: a letter and a colon.
bool StartsWithDrive(std::wstring_view text) noexcept;

/// Whether `text` begins as a full path does, with a drive or two backslashes.
bool StartsLikeFullPath(std::wstring_view text) noexcept;

/// Whether both texts name one path, in either form; the case of letters and a separator at the end do not
/// count.
bool IsSamePath(std::wstring_view one, std::wstring_view other);

/// Which prefix the long-path form put in front of a path.
enum class LongPathForm { Unchanged = -1, Drive = 0, Network = 1 };

/// A path fit for file-system calls, and the form that was applied.
struct LongPath {
    std::wstring Text;
    LongPathForm Form = LongPathForm::Unchanged;
};

/// The number of units from which on a path needs its long form (MAX_PATH of Windows).
inline constexpr std::size_t kLongPathThreshold = 260;

/// The form of `path` that file-system calls accept at any length: paths of
/// kLongPathThreshold units or more get "\\?\" or "\\?\UNC", all others stay as they are.
LongPath ToLongPath(std::wstring_view path);

/// `path` with the prefix that fits its start, whatever its length.
LongPath WithPlainPrefix(std::wstring_view path);

/// The text of ToLongPath.
std::wstring LongPathText(std::wstring_view path);

/// Answers the long form of a path with a "\\?\" prefix, or nothing when it has none.
using LongNameQuery = std::function<std::optional<std::wstring>(const std::wstring& prefixedPath)>;

/// `path` with its short (8.3) components expanded and without any "\\?\" prefix.
/// A network form loses its two leading backslashes with the prefix. `query` asks the platform.
std::wstring ExpandLongName(std::wstring_view path, const LongNameQuery& query);

/// The text after the last backslash, or the whole path when there is none.
std::wstring_view LastComponent(std::wstring_view path) noexcept;

/// What a path is called in a list: its last component, whatever separators stand behind that. A drive, and
/// what has no component, is called by its whole text.
std::wstring_view ShownName(std::wstring_view path) noexcept;

/// The text up to and including the last backslash, or the whole path when there is none.
std::wstring_view ParentWithSeparator(std::wstring_view path) noexcept;

/// The path without one trailing backslash or slash; a drive root ("C:\") keeps its own.
std::wstring_view StripTrailingSeparator(std::wstring_view path) noexcept;

/// `path` with a backslash at its end unless it ends with a separator already.
/// An empty path stays empty, since a lone backslash would name a root that nobody meant.
std::wstring WithTrailingSeparator(std::wstring_view path);

/// The pieces of a path; views into it. The extension includes its dot.
struct PathParts {
    std::wstring_view Drive;
    std::wstring_view Folder;
    std::wstring_view Name;
    std::wstring_view Extension;
};

/// Splits `path` at its last backslash and its name at the last dot.
PathParts SplitPath(std::wstring_view path) noexcept;

/// The name part of the last component after one trailing separator was stripped; the whole
/// `path` when that name part is empty (as for ".profile").
std::wstring_view NameWithoutExtension(std::wstring_view path) noexcept;

/// The extension of the last component, with its dot, or empty.
std::wstring_view Extension(std::wstring_view path) noexcept;

/// A command line taken apart.
struct CommandLineParts {
    std::wstring Program;
    std::wstring Arguments;
};

/// Splits a command line into program and arguments. Line ends are removed; only a double quote
/// at the very start, and the one that closes it, are special.
CommandLineParts SplitCommandLine(std::wstring_view commandLine);

}  // namespace ferry::paths
