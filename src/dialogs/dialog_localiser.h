// Translates a dialog's controls from its text file, or writes that file.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "files/ports.h"
#include "lang/text_files.h"
#include "settings/settings_store.h"

namespace ferry::dialogs {

/// Puts the texts of the user's language into dialogs. The language is asked for once.
class DialogLocaliser {
public:
    /// The ports must outlive this object; `modulePath` is the executable's full path.
    DialogLocaliser(settings::SettingsStore& store, files::FileInfo& info, files::FileChanges& changes,
                    lang::TextFiles& texts, std::wstring modulePath)
        : store_(store), info_(info), changes_(changes), texts_(texts), modulePath_(std::move(modulePath)) {}

    /// Replaces the texts of `dialog`, made from template `templateId`, by those of its text
    /// file; without such a file, writes the dialog's texts to it. Does nothing in the built-in
    /// language unless the host wants its files maintained. Failures are silent.
    void Localise(int templateId, HWND dialog);

    /// The settings' name of the user's language, such as ".ja-JP".
    const std::wstring& LanguageSuffix() { return ChosenLanguage().Suffix; }

private:
    struct Language {
        std::wstring Suffix;
        bool UsesFiles = false;
    };

    const Language& ChosenLanguage();
    bool Import(const std::wstring& path, HWND dialog);
    void Export(const std::wstring& path, HWND dialog);

    settings::SettingsStore& store_;
    files::FileInfo& info_;
    files::FileChanges& changes_;
    lang::TextFiles& texts_;
    std::wstring modulePath_;
    std::optional<Language> language_;
};

}  // namespace ferry::dialogs
