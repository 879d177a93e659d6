#include "script/expansion.h"

#include "calendar/date_format.h"
#include "paths/path_grammar.h"
#include "paths/placeholders.h"
#include "script/limits.h"

namespace ferry::script {

std::optional<std::wstring_view> Expansion::Expand(PreparedText& text, const std::wstring* item,
                                                   std::wstring& buffer) {
    variables_.Prepare(text);
    const bool hasNames = text.Which != PreparedText::Names::None;
    if (!hasNames && !text.HasMarks) {
        return text.Text;
    }
    buffer.assign(text.Text);
    if (!ExpandAll(buffer, item)) {
        return std::nullopt;
    }
    return buffer;
}

bool Expansion::ExpandAll(std::wstring& text, const std::wstring* item) {
    if (!variables_.Substitute(text)) {
        return false;
    }
    if (text.find(L'%') != std::wstring::npos && !ExpandPercents(text)) {
        return false;
    }
    return text.find(L'?') == std::wstring::npos || ExpandQuestions(text, item);
}

bool Expansion::ExpandPercents(std::wstring& text) {
    text = world_.Surroundings.ExpandEnvironment(text);
    return text.size() <= kMaxValueUnits &&
           paths::ExpandFolderVariables(
               text, [this](paths::FolderVariable which) { return folders_.Of(which); }, kMaxValueUnits);
}

bool Expansion::ExpandQuestions(std::wstring& text, const std::wstring* item) {
    // All words of one text show the same moment.
    std::optional<calendar::DateTimeValue> now;
    const auto nowIn = [this, &now](std::wstring_view format) {
        if (!now) {
            now = calendar::ToDateTime(world_.Clock.Now());
        }
        return calendar::FormatDateTime(*now, format);
    };
    if (!paths::ExpandDates(text, nowIn, kMaxValueUnits)) {
        return false;
    }
    if (paths::HasFolderWord(text)) {
        const std::wstring folder = world_.Surroundings.CurrentFolder();
        if (!paths::ExpandFolder(text, folder, paths::WithTrailingSeparator(folder), kMaxValueUnits)) {
            return false;
        }
    }
    return item == nullptr || paths::ExpandItem(text, *item, kMaxValueUnits);
}

}  // namespace ferry::script
