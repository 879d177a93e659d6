#include "windows/any_dialog_win32.h"

#include "dialogs/list_items.h"

namespace ferry::test {
namespace {

// NOLINTNEXTLINE(readability-non-const-parameter): the system prescribes it
BOOL CALLBACK NoteTemplate(HMODULE, LPCWSTR, LPWSTR name, LONG_PTR list) {
    if (IS_INTRESOURCE(name))
        reinterpret_cast<std::vector<int>*>(list)->push_back(LOWORD(name));
    return TRUE;
}

}  // namespace

bool AnyDialog::OnInitDialog() {
    for (const dialogs::ListItems& list : dialogs::kLists) {
        if (list.Template != TemplateId())
            continue;
        for (const wchar_t* item : list.Items)
            SendDlgItemMessageW(Handle(), list.ControlId, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
    }
    Localise();
    return true;
}

std::vector<int> TemplatesOfTheProgram() {
    std::vector<int> templates;
    // RT_DIALOG, whose type changes with the character set.
    EnumResourceNamesW(nullptr, MAKEINTRESOURCEW(5), &NoteTemplate, reinterpret_cast<LONG_PTR>(&templates));
    return templates;
}

}  // namespace ferry::test
