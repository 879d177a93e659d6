#include "paths/placeholders.h"

#include <cstdint>
#include <span>

#include "base/text_search.h"
#include "paths/path_grammar.h"

namespace ferry::paths {

namespace {

using Words = std::span<const std::wstring_view>;

constexpr std::wstring_view kItemWords[] = {
    L"?SelFile?", L"?selfile?", L"?FileName?", L"?Name?",    L"?Ext?",       L"?filename?",
    L"?name?",    L"?ext?",     L"?selpath?",  L"?SelPath?", L"?SelParent?",
};

constexpr std::wstring_view kFolderWords[] = {
    L"?Drive?", L"?Dir?", L"?NowDir?", L"?nowdir?", L"?TargetDir?", L"?TargetDrive?",
};

constexpr std::wstring_view kDateWords[] = {
    L"?Date?",   L"?Time?",   L"?Year?", L"?Month?", L"?Day?",       L"?Hour?",
    L"?Minute?", L"?Second?", L"?Week?", L"?WEEK?",  L"?ShellTime?",
};

constexpr std::wstring_view kDateFormats[] = {
    L"%Y-%m-%d", L"%H-%M-%S", L"%Y", L"%m", L"%d", L"%H", L"%M", L"%S", L"%a", L"%A", L"%c",
};

constexpr std::wstring_view kFolderVariables[] = {
    L"%Script_dir%", L"%User_dir%",      L"%Menu_dir%",   L"%App_Dir%",
    L"%CMD_Dir%",    L"%CmdPlugin_Dir%", L"%Viewer_Dir%", L"%UserCmd_Dir%",
};

/// One bit for each of `words` that is in `text`, found in one walk along the marks that begin them.
std::uint32_t WordsIn(std::wstring_view text, Words words) noexcept {
    const wchar_t mark = words.front().front();
    std::uint32_t found = 0;
    for (std::size_t at = text.find(mark); at != std::wstring_view::npos; at = text.find(mark, at + 1)) {
        const std::wstring_view rest = text.substr(at);
        for (std::size_t index = 0; index < words.size(); ++index) {
            found |= rest.starts_with(words[index]) ? std::uint32_t{1} << index : 0;
        }
    }
    return found;
}

/// Replaces each of `words` in their order, as often as it is there when its turn comes, by what `valueOf`
/// answers for its index.
template <class ValueOf>
bool ReplaceInOrder(std::wstring& text, Words words, std::size_t maxUnits, const ValueOf& valueOf) {
    std::uint32_t found = WordsIn(text, words);
    for (std::size_t index = 0; found >> index != 0; ++index) {
        if ((found >> index & 1) == 0) {
            continue;
        }
        if (!base::ReplaceAllWithin(text, words[index], valueOf(index), maxUnits)) {
            return false;
        }
        // A value may hold words that come later.
        found = WordsIn(text, words);
    }
    return true;
}

/// Removes the words that are left, in the order of `words`.
void RemoveWords(std::wstring& text, Words words) {
    ReplaceInOrder(text, words, text.size(), [](std::size_t) { return std::wstring_view(); });
}

/// `value` in quotes; nothing at all for no value.
std::wstring Quoted(std::wstring_view value) {
    std::wstring text;
    if (!value.empty()) {
        text.append(1, L'"').append(value).append(1, L'"');
    }
    return text;
}

/// What stands for the item word at `index`. Of names, extension and folder the capital word is bare and the
/// small one quoted; of the whole path it is the other way round.
std::wstring ItemValue(std::wstring_view path, std::size_t index) {
    const PathParts parts = SplitPath(path);
    const std::wstring_view fileName = path.substr(parts.Drive.size() + parts.Folder.size());
    const std::wstring_view parent = ParentWithSeparator(path);
    switch (index) {
        case 0:
            return Quoted(path);
        case 1:
            return std::wstring(path);
        case 2:
            return std::wstring(fileName);
        case 3:
            return std::wstring(parts.Name);
        case 4:
            return std::wstring(parts.Extension);
        case 5:
            return Quoted(fileName);
        case 6:
            return Quoted(parts.Name);
        case 7:
            return Quoted(parts.Extension);
        case 8:
            return Quoted(parent);
        case 9:
            return std::wstring(parent);
        default:
            return std::wstring(StripTrailingSeparator(parent));
    }
}

constexpr std::size_t kDrive = 0;
constexpr std::size_t kDir = 1;
constexpr std::size_t kNowDirQuoted = 2;

}  // namespace

bool ExpandItem(std::wstring& text, std::wstring_view path, std::size_t maxUnits) {
    if (!ReplaceInOrder(text, kItemWords, maxUnits,
                        [path](std::size_t index) { return ItemValue(path, index); })) {
        return false;
    }
    RemoveWords(text, kItemWords);
    return true;
}

bool HasItemWord(std::wstring_view text) noexcept {
    return WordsIn(text, kItemWords) != 0;
}

bool HasFolderWord(std::wstring_view text) noexcept {
    return WordsIn(text, kFolderWords) != 0;
}

bool ExpandFolder(std::wstring& text, std::wstring_view currentFolder, std::wstring_view path,
                  std::size_t maxUnits) {
    const std::wstring_view bare = StripTrailingSeparator(currentFolder);
    const PathParts parts = SplitPath(currentFolder.empty() ? std::wstring_view() : path);
    const auto valueOf = [&](std::size_t index) {
        switch (index) {
            case kDrive:
                return std::wstring(parts.Drive);
            case kDir:
                return std::wstring(parts.Folder);
            case kNowDirQuoted:
                return Quoted(bare);
            default:
                return std::wstring(bare);
        }
    };
    // The target's words never have a value here: they are left for the removal.
    constexpr Words kWithValue = Words(kFolderWords).first(4);
    if (!ReplaceInOrder(text, kWithValue, maxUnits, valueOf)) {
        return false;
    }
    RemoveWords(text, kFolderWords);
    return true;
}

bool ExpandDates(std::wstring& text, const NowInFormat& nowIn, std::size_t maxUnits) {
    return ReplaceInOrder(text, kDateWords, maxUnits,
                          [&nowIn](std::size_t index) { return nowIn(kDateFormats[index]); });
}

bool ExpandFolderVariables(std::wstring& text, const FolderOf& folderOf, std::size_t maxUnits) {
    return ReplaceInOrder(text, kFolderVariables, maxUnits, [&folderOf](std::size_t index) {
        return folderOf(static_cast<FolderVariable>(index));
    });
}

}  // namespace ferry::paths
