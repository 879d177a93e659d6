// A dialog of any template of the program, with nothing but its texts.
#pragma once

#include <windows.h>

#include <vector>

#include "dialogs/dialog_ex.h"

namespace ferry::test {

/// Has the texts and the entries of lists that the dialog itself has at its start, in the language of the
/// user.
class AnyDialog : public dialogs::CDialogEx {
public:
    using CDialogEx::CDialogEx;

protected:
    bool OnInitDialog() override;
};

/// The numbers of all templates in this program.
std::vector<int> TemplatesOfTheProgram();

}  // namespace ferry::test
