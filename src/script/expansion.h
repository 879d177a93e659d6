// Texts of statements with everything replaced that stands for something else.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "script/host_folders.h"
#include "script/ports.h"
#include "script/source.h"
#include "script/variables.h"

namespace ferry::script {

/// Replaces variables, then folder variables, dates, folders and parts of the item.
class Expansion {
public:
    /// All must outlive this object.
    Expansion(const World& world, HostFolders& folders, const Variables& variables)
        : world_(world), folders_(folders), variables_(variables) {}

    /// `text` with everything replaced: a view into the text itself or into `buffer`. `item` is the item that
    /// it is about, or nothing, which leaves the item's words as they are. Nothing when the text gets too
    /// long.
    std::optional<std::wstring_view> Expand(PreparedText& text, const std::wstring* item,
                                            std::wstring& buffer);

    /// Replaces everything in `text`; false when it gets too long.
    bool ExpandAll(std::wstring& text, const std::wstring* item);

private:
    bool ExpandPercents(std::wstring& text);
    bool ExpandQuestions(std::wstring& text, const std::wstring* item);

    const World& world_;
    HostFolders& folders_;
    const Variables& variables_;
};

}  // namespace ferry::script
