// A name in the two fields of the rename dialog.
#pragma once

#include <string>
#include <string_view>

namespace ferry::naming {

/// What stands in the fields.
struct NameFields {
    std::wstring Name;
    std::wstring Extension;  ///< Without its dot; empty where the fields do not stand apart.

    bool operator==(const NameFields&) const = default;
};

/// The fields of the item at `path`. With `apart` the extension has a field of its own; a name with nothing
/// before its last dot then gives the whole path, which the person sees and corrects.
NameFields FieldsOfName(std::wstring_view path, bool apart);

/// The name that the fields make.
std::wstring NameOfFields(const NameFields& fields);

}  // namespace ferry::naming
