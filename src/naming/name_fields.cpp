// A name in the two fields of the rename dialog.
#include "naming/name_fields.h"

#include "paths/path_grammar.h"

namespace ferry::naming {

NameFields FieldsOfName(std::wstring_view path, bool apart) {
    if (!apart)
        return {std::wstring(paths::LastComponent(path)), {}};
    std::wstring_view extension = paths::Extension(path);
    if (!extension.empty())
        extension.remove_prefix(1);
    return {std::wstring(paths::NameWithoutExtension(path)), std::wstring(extension)};
}

std::wstring NameOfFields(const NameFields& fields) {
    return fields.Extension.empty() ? fields.Name : fields.Name + L'.' + fields.Extension;
}

}  // namespace ferry::naming
