// Everything below one source folder, in the order in which a run handles it.
#pragma once

#include <string_view>

#include "base/text_list.h"
#include "files/ports.h"

namespace ferry::transfer {

/// The folders and files of one source folder, as full paths.
struct SourceListing {
    base::TextList Folders;  ///< The source itself first; parents before their children.
    base::TextList Files;
};

/// Lists `folder` depth first: a subfolder is read when the search meets it, so its files come
/// before those that follow it in its parent. A tree of any depth needs no deeper stack, and
/// one search is open at a time.
SourceListing ListSourceFolder(files::FolderSearch& search, std::wstring_view folder);

}  // namespace ferry::transfer
