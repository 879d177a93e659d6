// Everything below one source folder, in the order in which a run handles it.
#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "base/text_list.h"
#include "files/ports.h"
#include "transfer/leftovers.h"

namespace ferry::transfer {

/// The folders and files of one source folder, as full paths.
struct SourceListing {
    base::TextList Folders;  ///< The source itself first; parents before their children.
    base::TextList Files;
    std::vector<Leftover> Left;  ///< What is there and not listed.
    bool IsStopped = false;
};

/// Lists `folder` depth first: a subfolder is read when the search meets it, so its files come before those
/// that follow it in its parent. A tree of any depth needs no deeper stack, and one search is open at a time.
/// A link to a folder that holds it is not followed. Ends before its time when `goesOn`, which is asked for
/// each entry, says no.
SourceListing ListSourceFolder(files::FolderSearch& search, files::FileInfo& info, std::wstring_view folder,
                               const std::function<bool()>& goesOn);

}  // namespace ferry::transfer
