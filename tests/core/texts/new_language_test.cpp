// The files that a translator starts with.
#include "texts/new_language.h"

#include <gtest/gtest.h>

namespace ferry::texts {
namespace {

DialogSource DialogToTranslate() {
    DialogSource dialog{102, L"題名", 1, 100, {}};
    dialog.Controls.resize(4);
    dialog.Controls[0].Texts = {10, L"Static", L"一\n二", {}};
    dialog.Controls[1].Texts = {11, L"Edit", L"", {}};
    dialog.Controls[2].Texts = {12, L"ComboBox", L"", {L"標準", L"1 s"}};
    dialog.Controls[3].Texts = {2, L"Button", L"Cancel", {}};
    return dialog;
}

TEST(NewDialogText, IsWhatTheProgramWritesItself) {
    const LanguageFile file = StartDialogText(DialogToTranslate(), L"");
    EXPECT_EQ(file.Name, L"102.txt");
    EXPECT_EQ(file.Units,
              L"\xFEFF題名\r\n10\tStatic\t一\\n二\r\n12\tComboBoxStart\r\n12\tComboBox\t標準\r\n12\tComboBox"
              L"\t1 s\r\n"
              L"2\tButton\tCancel\r\n");
}

TEST(NewDialogText, BeginsWithTheTextsOfAnotherLanguageWhereItHasThem) {
    const LanguageFile file = StartDialogText(
        DialogToTranslate(),
        L"Title\n10\tStatic\tone\\ntwo\n12\tComboBoxStart\n12\tComboBox\tExact\n99\tStatic\tx\n");
    EXPECT_EQ(file.Units,
              L"\xFEFFTitle\r\n10\tStatic\tone\\ntwo\r\n12\tComboBoxStart\r\n12\tComboBox\tExact\r\n"
              L"2\tButton\tCancel\r\n");
}

TEST(NewMessages, KeepTheLinesOfTheOriginalWithTheLineEndsOfWindows) {
    const LanguageFile file = StartMessages(L"fr-FR", L"// why\n1\tA\\nB\r\n\n2\tC\n");
    EXPECT_EQ(file.Name, L"Msg.fr-FR.txt");
    EXPECT_EQ(file.Units, L"\xFEFF// why\r\n1\tA\\nB\r\n\r\n2\tC\r\n");
}

TEST(LanguageName, IsNoPath) {
    for (const wchar_t* name : {L"fr-FR", L"de", L"zh-Hans-CN"}) {
        EXPECT_TRUE(IsLanguageName(name)) << name;
    }
    for (const wchar_t* name : {L"", L"../fr", L".fr", L"fr FR", L"fr\\x", L"-fr", L"fr-"}) {
        EXPECT_FALSE(IsLanguageName(name)) << name;
    }
}

}  // namespace
}  // namespace ferry::texts
