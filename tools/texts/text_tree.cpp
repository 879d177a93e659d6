#include "texts/text_tree.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <span>
#include <utility>

#include "base/utf16.h"
#include "dialogs/list_items.h"

namespace ferry::texts {

namespace fs = std::filesystem;

namespace {

/// The entries of a folder and, when asked for, of those below it, in order of their names.
std::vector<fs::path> FilesBelow(const fs::path& folder, bool deep) {
    std::vector<fs::path> files;
    std::error_code error;
    if (deep) {
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder, error)) {
            files.push_back(entry.path());
        }
    } else {
        for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
            files.push_back(entry.path());
        }
    }
    std::ranges::sort(files);
    return files;
}

bool EndsWith(const fs::path& path, std::wstring_view end) {
    return WidePath(path).ends_with(end);
}

void AddListItems(DialogSource& dialog) {
    for (const dialogs::ListItems& list : dialogs::kLists) {
        const auto control = std::ranges::find_if(dialog.Controls, [&](const ControlSource& candidate) {
            return dialog.Number == list.Template && candidate.Texts.ControlId == list.ControlId;
        });
        if (control != dialog.Controls.end()) {
            control->Texts.Items.assign(list.Items.begin(), list.Items.end());
        }
    }
}

}  // namespace

bool TextTree::Load() {
    const fs::path resources = root_ / "res";
    const std::optional<std::wstring> header = ReadTextFile(resources / "ids.h");
    const ResourceNumbers numbers = ParseResourceNumbers(header.value_or(std::wstring()));
    for (const fs::path& file : FilesBelow(resources, false)) {
        if (!EndsWith(file, L"_dialog.rc")) {
            continue;
        }
        DialogSources sources = ParseDialogSource(ReadTextFile(file).value_or(std::wstring()), numbers);
        for (DialogSource& dialog : sources.Dialogs) {
            AddListItems(dialog);
            dialogs_.push_back({std::move(dialog), NameOf(file)});
        }
        for (const std::size_t line : sources.BadLines) {
            badLines_.push_back({NameOf(file), line, L"this statement is not understood"});
        }
    }
    for (const fs::path& file : FilesBelow(root_ / "src", true)) {
        if (EndsWith(file, L".h") || EndsWith(file, L".cpp")) {
            FindUsedNumbers(ReadTextFile(file).value_or(std::wstring()), NameOf(file), used_);
        }
    }
    return !dialogs_.empty();
}

std::vector<LanguagePlace> TextTree::Languages() const {
    std::vector<LanguagePlace> languages;
    for (const fs::path& folder : FilesBelow(root_ / "res" / "lang", false)) {
        if (fs::is_directory(folder)) {
            languages.push_back(LanguageIn(folder));
        }
    }
    return languages;
}

LanguagePlace TextTree::LanguageIn(const fs::path& folder) {
    // Its own name, also when it was called "." or has a separator behind it.
    fs::path place = fs::absolute(folder).lexically_normal();
    if (!place.has_filename()) {
        place = place.parent_path();
    }
    LanguagePlace language{folder, place.parent_path() / (L"Msg." + WidePath(place.filename()) + L".txt")};
    for (const fs::path& file : FilesBelow(folder, false)) {
        if (WidePath(file.filename()).starts_with(L"Msg.")) {
            language.Messages = file;
        }
    }
    return language;
}

fs::path TextTree::BuiltInMessages() const {
    return root_ / "res" / "lang" / (std::wstring(L"Msg.") + kBuiltInLanguage + L".txt");
}

std::wstring TextTree::NameOf(const fs::path& path) const {
    const fs::path relative = path.lexically_relative(root_);
    const bool isOutside = relative.empty() || *relative.begin() == "..";
    return WidePath(isOutside ? path : relative);
}

std::optional<std::wstring> ReadTextFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    if (!file.is_open() || file.bad()) {
        return std::nullopt;
    }
    if (bytes.starts_with("\xFF\xFE")) {
        return base::UnitsFromBytes(std::as_bytes(std::span(bytes)));
    }
    std::wstring text = base::FromUtf8(bytes);
    const bool isUtf8 = base::ToUtf8(text) == bytes && text.find(L'\0') == std::wstring::npos;
    return isUtf8 ? std::optional(std::move(text)) : std::nullopt;
}

bool WriteTextFile(const fs::path& path, std::wstring_view units) {
    const std::vector<std::byte> bytes = base::BytesFromUnits(units);
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    return !file.fail();
}

std::wstring WidePath(const fs::path& path) {
    const std::u8string text = path.generic_u8string();
    return base::FromUtf8({reinterpret_cast<const char*>(text.data()), text.size()});
}

}  // namespace ferry::texts
