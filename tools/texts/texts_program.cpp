#include "texts/texts_program.h"

#include <algorithm>
#include <exception>
#include <ostream>
#include <string>
#include <string_view>

#include "base/text.h"
#include "base/utf16.h"
#include "texts/dialog_check.h"
#include "texts/new_language.h"
#include "texts/text_tree.h"

namespace ferry::texts {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kHelp = R"(Usage: ./dev texts COMMAND ...

  check [FOLDER]            looks for texts that are missing, surplus, doubled or too long, for letters behind Alt
                            that lead to two places, and for placeholders that differ; in the folder of a language
                            or, without one, in all that come with the program
  new LANGUAGE FOLDER [FROM]
                            makes FOLDER with the files that a translation into LANGUAGE (such as fr-FR) begins
                            with, in Japanese or in the language FROM (such as en-US)
  help                      this text

The exit code is 0 when all is fine, 1 when something was found, and 2 when the command line is wrong or a file
cannot be read or written.
)";

struct Console {
    std::ostream& Out;
    std::ostream& Err;
};

void Append(Findings& findings, Findings more) {
    findings.insert(findings.end(), std::make_move_iterator(more.begin()),
                    std::make_move_iterator(more.end()));
}

void Print(const Finding& finding, std::ostream& out) {
    out << base::ToUtf8(finding.File) << ':';
    if (finding.Line != 0) {
        out << finding.Line << ':';
    }
    out << ' ' << base::ToUtf8(base::ReplaceAll(finding.What, L"\n", L"\\n")) << '\n';
}

/// Files of a folder that belong to no dialog.
void CheckSurplusFiles(const TextTree& tree, const LanguagePlace& language, Findings& findings) {
    for (const fs::directory_entry& entry : fs::directory_iterator(language.Folder)) {
        const std::wstring name = WidePath(entry.path().filename());
        const bool isDialog = std::ranges::any_of(tree.Dialogs(), [&](const DialogFile& file) {
            return name == std::to_wstring(file.Dialog.Number) + L".txt";
        });
        if (!isDialog && name != WidePath(language.Messages.filename())) {
            findings.push_back({tree.NameOf(entry.path()), 0, L"no dialog has this number"});
        }
    }
}

void CheckLanguage(const TextTree& tree, const LanguagePlace& language, std::wstring_view builtIn,
                   Findings& findings) {
    for (const auto& [dialog, source] : tree.Dialogs()) {
        const fs::path path = language.Folder / (std::to_wstring(dialog.Number) + L".txt");
        const std::wstring name = tree.NameOf(path);
        const std::optional<std::wstring> text = ReadTextFile(path);
        if (text) {
            Append(findings, CheckDialogText(dialog, *text, name));
        } else {
            findings.push_back({name, 0,
                                fs::exists(path) ? L"this is neither UTF-16LE with its mark nor UTF-8"
                                                 : L"this file is missing"});
        }
    }
    CheckSurplusFiles(tree, language, findings);
    const std::wstring name = tree.NameOf(language.Messages);
    const std::optional<std::wstring> messages = ReadTextFile(language.Messages);
    if (messages) {
        Append(findings, CheckMessages(*messages, name, {}));
        Append(findings, CompareMessages(*messages, name, builtIn));
    } else {
        findings.push_back({name, 0, L"this file is missing or cannot be read"});
    }
}

ExitCode Check(const TextTree& tree, const Arguments& arguments, const Console& console) {
    if (arguments.size() > 1 || (arguments.size() == 1 && !fs::is_directory(arguments[0]))) {
        console.Err << "texts: check takes the folder of one language\n";
        return ExitCode::WrongUsage;
    }
    const std::optional<std::wstring> builtIn = ReadTextFile(tree.BuiltInMessages());
    if (!builtIn) {
        console.Err << "texts: the message file of the built-in language cannot be read\n";
        return ExitCode::WrongUsage;
    }
    Findings findings = tree.BadLines();
    if (arguments.empty()) {
        for (const auto& [dialog, file] : tree.Dialogs()) {
            Append(findings, CheckBuiltInTexts(dialog, file));
        }
        Append(findings, CheckMessages(*builtIn, tree.NameOf(tree.BuiltInMessages()), tree.Used()));
        for (const LanguagePlace& language : tree.Languages()) {
            CheckLanguage(tree, language, *builtIn, findings);
        }
    } else {
        CheckLanguage(tree, TextTree::LanguageIn(arguments[0]), *builtIn, findings);
    }
    for (const Finding& finding : findings) {
        Print(finding, console.Out);
    }
    return findings.empty() ? ExitCode::Fine : ExitCode::FaultsFound;
}

/// The files of a new language, beginning with the texts of the folder `from` and the messages `messages`.
std::vector<LanguageFile> FilesOfNewLanguage(const TextTree& tree, const std::wstring& language,
                                             const fs::path& from, std::wstring_view messages) {
    std::vector<LanguageFile> files = {StartMessages(language, messages)};
    for (const DialogFile& file : tree.Dialogs()) {
        const std::wstring name = std::to_wstring(file.Dialog.Number) + L".txt";
        files.push_back(StartDialogText(file.Dialog, ReadTextFile(from / name).value_or(std::wstring())));
    }
    return files;
}

/// Writes `files` into `folder`, or none of them when one is there: what a translator has written is never
/// overwritten.
ExitCode WriteAll(const std::vector<LanguageFile>& files, const fs::path& folder, const Console& console) {
    const auto there =
        std::ranges::find_if(files, [&](const LanguageFile& file) { return fs::exists(folder / file.Name); });
    if (there != files.end()) {
        console.Err << "texts: " << base::ToUtf8(WidePath(folder / there->Name)) << " is there already\n";
        return ExitCode::WrongUsage;
    }
    fs::create_directories(folder);
    for (const LanguageFile& file : files) {
        const std::string shown = base::ToUtf8(WidePath(folder / file.Name));
        if (!WriteTextFile(folder / file.Name, file.Units)) {
            console.Err << "texts: " << shown << " cannot be written\n";
            return ExitCode::WrongUsage;
        }
        console.Out << shown << '\n';
    }
    return ExitCode::Fine;
}

ExitCode Start(const TextTree& tree, const Arguments& arguments, const Console& console) {
    const std::wstring language = arguments.empty() ? std::wstring() : WidePath(arguments[0]);
    const fs::path builtIn = tree.BuiltInMessages();
    const fs::path from = arguments.size() > 2 ? arguments[2] : fs::path(kBuiltInLanguage);
    const std::optional<std::wstring> messages =
        ReadTextFile(builtIn.parent_path() / (L"Msg." + WidePath(from) + L".txt"));
    if (arguments.size() < 2 || arguments.size() > 3 || !IsLanguageName(language) || !messages) {
        console.Err
            << "texts: new takes the name of a language, a folder, and a language that is there already\n";
        return ExitCode::WrongUsage;
    }
    return WriteAll(FilesOfNewLanguage(tree, language, builtIn.parent_path() / from, *messages), arguments[1],
                    console);
}

ExitCode Run(const Arguments& arguments, const Console& console) {
    const fs::path command = arguments.size() > 1 ? arguments[1] : fs::path("help");
    if (command == "help" || command == "--help" || command == "-h") {
        console.Out << kHelp;
        return arguments.size() > 1 ? ExitCode::Fine : ExitCode::WrongUsage;
    }
    if (command != "check" && command != "new") {
        console.Err << "texts: there is no command " << base::ToUtf8(WidePath(command)) << '\n' << kHelp;
        return ExitCode::WrongUsage;
    }
    TextTree tree(arguments[0]);
    if (!tree.Load()) {
        console.Err << "texts: there are no dialogs below " << base::ToUtf8(WidePath(arguments[0])) << '\n';
        return ExitCode::WrongUsage;
    }
    const Arguments rest(arguments.begin() + 2, arguments.end());
    return command == "check" ? Check(tree, rest, console) : Start(tree, rest, console);
}

}  // namespace

ExitCode RunTextsProgram(const Arguments& arguments, std::ostream& out, std::ostream& err) {
    try {
        return Run(arguments, {out, err});
    } catch (const std::exception& exception) {
        // Folders that cannot be read, or no memory.
        err << "texts: " << exception.what() << '\n';
        return ExitCode::WrongUsage;
    }
}

}  // namespace ferry::texts
