// The text files that translate a dialog's controls.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ferry::lang {

/// One change that a dialog text file asks for.
struct DialogTextEdit {
    enum class Kind { SetTitle, ClearList, AddItem, SetText };
    Kind What = Kind::SetTitle;
    int ControlId = 0;  ///< Meaningless for SetTitle.
    std::wstring Text;  ///< Empty for ClearList.
};

/// The changes in the text of a dialog text file, in order. Malformed lines and lines for
/// control -1 are left out.
std::vector<DialogTextEdit> ParseDialogText(std::wstring_view fileText);

/// The number of units of a class name that a text file keeps.
inline constexpr std::size_t kMaxClassName = 1024;

/// A control as the export sees it.
struct ControlText {
    int ControlId = 0;
    std::wstring ClassName;
    std::wstring Text;
    std::vector<std::wstring> Items;  ///< The entries of a combo box.
};

/// The units of a dialog text file, byte-order mark included, for a dialog with this title and
/// these controls in window order. Classes without translatable text are left out.
std::wstring RenderDialogText(std::wstring_view title, std::span<const ControlText> controls);

/// "<drive><folder><suffix>\<base name>": where the dialog text files of the executable at
/// `modulePath` lie.
std::wstring DialogTextFolder(std::wstring_view modulePath, std::wstring_view suffix);

/// The file of dialog template `templateId` in that folder.
std::wstring DialogTextPath(std::wstring_view modulePath, std::wstring_view suffix, int templateId);

/// Whether dialogs take their texts from files: not for the built-in language, unless the host
/// asked for its files to be maintained (`langOut` non-zero).
bool UsesDialogTextFiles(std::wstring_view suffix, int langOut) noexcept;

}  // namespace ferry::lang
