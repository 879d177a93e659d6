// Folders that all hold the same, for the tests of whatever searches them. They keep the search's contract.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/case_order.h"
#include "files/ports.h"
#include "paths/path_grammar.h"
#include "support/mask.h"

namespace ferry::test {

/// Every folder holds the same items, or there is one folder only; the patterns are written down.
class FakeFolders : public files::FolderSearch {
public:
    struct Item {
        std::wstring Name;
        bool IsFolder;
        files::ItemTimes Times = {};  // NOLINT(readability-redundant-member-init): most tests leave it out
        std::uint32_t MoreAttributes = 0;
    };

    std::uint32_t Search(std::wstring_view pattern,
                         const std::function<bool(const files::Match&)>& visit) override {
        Patterns.emplace_back(pattern);
        if (!IsFolder(paths::ParentWithSeparator(pattern)))
            return kNoSuchFolder;
        const std::wstring mask = base::SmallLetters(paths::LastComponent(pattern));
        const auto show = [&](const Item& item) {
            if (!Fits(mask, base::SmallLetters(item.Name)))
                return true;
            ++Visited;
            const std::uint32_t kind = item.IsFolder ? files::kAttributeDirectory : kFile;
            return visit({item.Name, kind | item.MoreAttributes, item.Times});
        };
        if (!show({L".", true, {}, OwnAttributes}) || !show({L"..", true, {}, OwnAttributes}))
            return 0;
        for (const Item& item : Items) {
            if (!show(item))
                return 0;
        }
        return ErrorAtEnd;
    }

    std::vector<Item> Items;
    std::uint32_t OwnAttributes = 0;  ///< Of the folders themselves, beside being folders.
    std::uint32_t ErrorAtEnd = 0;     ///< What ends every search that was not ended before.
    std::wstring OnlyFolder;  ///< With its separator; when empty, what is no item is a folder of these items.
    std::vector<std::wstring> Patterns;
    std::size_t Visited = 0;

private:
    static constexpr std::uint32_t kFile = 0x20;
    static constexpr std::uint32_t kNoSuchFolder = 3;

    bool IsFolder(std::wstring_view path) const {
        return OnlyFolder.empty() || base::EqualsIgnoringCase(path, OnlyFolder);
    }
};

}  // namespace ferry::test
