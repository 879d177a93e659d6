// Shell items: their paths, and what the "items" argument of the plural calls may be.
#pragma once

#include <shobjidl.h>

#include <string>
#include <vector>

#include "com_ref.h"

namespace ferry::fileop {

/// Puts the file-system path of `item` into `path`; the item's own failure when it has none, and
/// E_INVALIDARG for a null item.
HRESULT PathOf(IShellItem* item, std::wstring& path);

/// Puts the shell items of `items` into `list`: one shell item, an array of them, an enumerator,
/// a data object or an object with an item id list. E_INVALIDARG for null, E_NOINTERFACE for
/// anything else.
HRESULT ItemsOf(IUnknown* items, std::vector<ComRef<IShellItem>>& list);

}  // namespace ferry::fileop
