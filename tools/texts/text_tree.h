// The texts of the project, and languages in the making, on the disk.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "texts/dialog_source.h"
#include "texts/message_check.h"

namespace ferry::texts {

/// The built-in language, whose texts are those of the templates.
inline constexpr wchar_t kBuiltInLanguage[] = L"ja-JP";

/// A template and the file that describes it.
struct DialogFile {
    DialogSource Dialog;
    std::wstring File;
};

/// What a language has: a folder of dialog text files, and a message file in it or beside it.
struct LanguagePlace {
    std::filesystem::path Folder;
    std::filesystem::path Messages;
};

/// Reads the sources below the project's root.
class TextTree {
public:
    explicit TextTree(std::filesystem::path root) : root_(std::move(root)) {}

    /// Reads the templates and the numbers that the program uses; false when there are none.
    bool Load();

    const std::vector<DialogFile>& Dialogs() const noexcept { return dialogs_; }
    const UsedNumbers& Used() const noexcept { return used_; }
    const Findings& BadLines() const noexcept { return badLines_; }

    /// The languages that come with the program, but for the built-in one.
    std::vector<LanguagePlace> Languages() const;

    /// The language that `folder` holds; its message file is beside the folder and has its name, if there is
    /// none in it.
    static LanguagePlace LanguageIn(const std::filesystem::path& folder);

    /// The message file of the built-in language.
    std::filesystem::path BuiltInMessages() const;

    /// How a person knows `path`.
    std::wstring NameOf(const std::filesystem::path& path) const;

private:
    std::filesystem::path root_;
    std::vector<DialogFile> dialogs_;
    UsedNumbers used_;
    Findings badLines_;
};

/// The text of a file, UTF-16LE with a byte-order mark or UTF-8; nothing when it cannot be read or is
/// neither.
std::optional<std::wstring> ReadTextFile(const std::filesystem::path& path);

/// Writes `units` as UTF-16LE; false when that failed.
bool WriteTextFile(const std::filesystem::path& path, std::wstring_view units);

/// A path as text.
std::wstring WidePath(const std::filesystem::path& path);

}  // namespace ferry::texts
