// Words between question marks and percent signs in a text, and what they stand for.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace ferry::paths {

// Each step changes `text` in place and answers false when it would get more than `maxUnits` units; then what
// it holds is of no use. Words count only in the letter case in which they are written here.

/// Puts the parts of the item at `path` in place of the item's words (such as "?SelFile?"). A part that the
/// path lacks leaves nothing, no quotes either.
bool ExpandItem(std::wstring& text, std::wstring_view path, std::size_t maxUnits);

/// Whether one of the words of the folder step is in `text`.
bool HasFolderWord(std::wstring_view text) noexcept;

/// Puts `currentFolder`, and drive and folder of `path`, in place of the folder's words (such as "?NowDir?").
bool ExpandFolder(std::wstring& text, std::wstring_view currentFolder, std::wstring_view path,
                  std::size_t maxUnits);

/// Answers the present moment in a format of strftime.
using NowInFormat = std::function<std::wstring(std::wstring_view format)>;

/// Puts the present moment in place of the date's words (such as "?Date?").
bool ExpandDates(std::wstring& text, const NowInFormat& nowIn, std::size_t maxUnits);

/// The folders of the host that have a word of their own between percent signs.
enum class FolderVariable {
    Script,         ///< %Script_dir%
    User,           ///< %User_dir%
    Menu,           ///< %Menu_dir%
    Application,    ///< %App_Dir%
    Command,        ///< %CMD_Dir%
    CommandPlugin,  ///< %CmdPlugin_Dir%
    Viewer,         ///< %Viewer_Dir%
    UserCommand,    ///< %UserCmd_Dir%
};

/// Answers the path of a folder, with its separator.
using FolderOf = std::function<std::wstring(FolderVariable which)>;

/// Puts the host's folders in place of their words; a folder that the text does not name is not asked for.
bool ExpandFolderVariables(std::wstring& text, const FolderOf& folderOf, std::size_t maxUnits);

/// Whether one of the item's words is in `text`.
bool HasItemWord(std::wstring_view text) noexcept;

}  // namespace ferry::paths
