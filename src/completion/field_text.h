// The text of a path field: what kind of path it is and how a key changes it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace ferry::completion {

/// Whether `text` names nothing by itself: it starts neither with a letter and ":" nor with two
/// backslashes. A text of less than two units is always relative.
bool IsRelative(std::wstring_view text) noexcept;

/// `path` without "." and ".." and doubled separators, all separators backslashes. ".." never
/// leaves the drive or the network share. A path with a "\\?\" prefix is kept as it is, and so is
/// a relative one; a trailing separator stays.
std::wstring Canonical(std::wstring_view path);

/// `text` below `baseFolder`, in canonical form.
std::wstring ResolveAgainst(std::wstring_view baseFolder, std::wstring_view text);

/// The text after one step up: without its last component, or, when it ends with a backslash,
/// without that. Nothing when no text would be left.
std::optional<std::wstring> UpOneLevel(std::wstring_view text);

/// The root that a text of one or two units stands for: "\" gives "\\", a letter gives that drive's
/// root, and so does a letter with ":". Nothing for any other text.
std::optional<std::wstring> RootFor(std::wstring_view text);

/// What a dropped item of these attribute bits puts into the field: the item itself, or its parent
/// with separator when only folders are wanted and the item is none.
std::wstring FieldTextOfDrop(std::wstring_view path, std::uint32_t attributes, bool foldersOnly);

/// What follows a search.
enum class Offer { Nothing, PutRoot, PutOnlyItem, OpenList };

/// What is done for the field's `text` when the list has `itemCount` items. A single character becomes
/// a root or stays alone: the list was not searched for it.
Offer OfferFor(std::wstring_view text, std::size_t itemCount);

/// The item after `current` in a list of `count` items, and from the last one the first. A
/// `current` of -1 is no selection; -1 when there are no items.
int NextItem(int current, int count) noexcept;

/// The item before `current`; from the first one, or from no selection, the last.
int PreviousItem(int current, int count) noexcept;

}  // namespace ferry::completion
