// A dialog's template as it stands in the resources, for tests that look at every number of it.
#pragma once

#include <windows.h>

#include <iosfwd>
#include <string>
#include <vector>

namespace ferry::test {

/// One control. The numbers are dialog units. The class is in small letters; a label's style is
/// without WS_GROUP, which compilers treat differently.
struct TemplateItem {
    int Id = 0;
    std::wstring Class;
    int X = 0;
    int Y = 0;
    int Width = 0;
    int Height = 0;
    std::wstring Text;
    DWORD Style = 0;
    DWORD ExtendedStyle = 0;

    bool operator==(const TemplateItem&) const = default;
};

void PrintTo(const TemplateItem& item, std::ostream* stream);

struct DialogTemplate {
    std::wstring Title;
    int X = 0;
    int Y = 0;
    int Width = 0;
    int Height = 0;
    DWORD Style = 0;
    DWORD ExtendedStyle = 0;
    std::wstring Font;  ///< "MS Shell Dlg 9", then the weight, italic and the character set.
    std::vector<TemplateItem> Items;
};

/// The template of dialog `id` in this program; an empty one when it has none.
DialogTemplate ReadDialogTemplate(int id);

}  // namespace ferry::test
