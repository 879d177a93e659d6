// Dialogs as the sources of the resources describe them.
#include "texts/dialog_source.h"

#include <gtest/gtest.h>

namespace ferry::texts {
namespace {

const ResourceNumbers kNumbers = {{L"IDD_A", 7}, {L"IDC_ONE", 100}, {L"IDOK", 1}};

/// The one dialog with these statements in it.
DialogSource DialogWith(const std::wstring& statements) {
    const DialogSources sources = ParseDialogSource(
        L"IDD_A DIALOGEX 0, 0, 355, 245\nSTYLE DS_SETFONT | WS_POPUP\nCAPTION \"題名\"\nBEGIN\n" +
            statements + L"\nEND\n",
        kNumbers);
    EXPECT_TRUE(sources.BadLines.empty());
    EXPECT_EQ(sources.Dialogs.size(), 1U);
    return sources.Dialogs.at(0);
}

ControlSource ControlFrom(const std::wstring& statement) {
    const DialogSource dialog = DialogWith(statement);
    EXPECT_EQ(dialog.Controls.size(), 1U);
    return dialog.Controls.at(0);
}

TEST(DialogSource, HasItsNumberItsTitleAndItsWidth) {
    const DialogSource dialog = DialogWith(L"");
    EXPECT_EQ(dialog.Number, 7);
    EXPECT_EQ(dialog.Title, L"題名");
    EXPECT_EQ(dialog.TitleLine, 3U);
    EXPECT_EQ(dialog.Width, 355);
    EXPECT_TRUE(dialog.Controls.empty());
}

TEST(DialogSource, LeavesOutWhatStandsBeforeAndBehindTheDialogs) {
    const DialogSources sources = ParseDialogSource(
        L"#include \"ids.h\"\nLANGUAGE LANG_JAPANESE, SUBLANG_DEFAULT\nIDD_A DIALOGEX 0, 0, 9, "
        L"9\nBEGIN\nEND\n"
        L"8 DIALOGEX 0, 0, 9, 9\nBEGIN\nEND\nLANGUAGE LANG_NEUTRAL, SUBLANG_NEUTRAL\n",
        kNumbers);
    ASSERT_EQ(sources.Dialogs.size(), 2U);
    EXPECT_EQ(sources.Dialogs[1].Number, 8);
    EXPECT_TRUE(sources.BadLines.empty());
}

TEST(DialogSource, ReadsAControlWithEachOfItsNumbers) {
    const ControlSource control =
        ControlFrom(L"  PUSHBUTTON \"Go (&G), now\", IDC_ONE, 1, 2, 33, 44, WS_GROUP");
    EXPECT_EQ(control.Texts.ControlId, 100);
    EXPECT_EQ(control.Texts.ClassName, L"Button");
    EXPECT_EQ(control.Texts.Text, L"Go (&G), now");
    EXPECT_EQ(control.Width, 33);
    EXPECT_EQ(control.Height, 44);
    EXPECT_EQ(control.Line, 5U);
    EXPECT_EQ(control.Looks, Shape::Button);
}

TEST(DialogSource, TellsControlsByTheirLooks) {
    const std::pair<const wchar_t*, Shape> cases[] = {
        {L"LTEXT \"a\", IDC_ONE, 0, 0, 9, 8", Shape::Label},
        {L"LTEXT \"a\", IDC_ONE, 0, 0, 9, 8, SS_NOPREFIX | SS_ENDELLIPSIS", Shape::NotMeasured},
        {L"LTEXT \"a\", IDC_ONE, 0, 0, 0, 0", Shape::NotMeasured},
        {L"GROUPBOX \"a\", IDC_ONE, 0, 0, 9, 8, WS_GROUP", Shape::Frame},
        {L"DEFPUSHBUTTON \"a\", IDC_ONE, 0, 0, 9, 8", Shape::Button},
        {L"CONTROL \"a\", IDC_ONE, \"Button\", BS_AUTORADIOBUTTON | WS_GROUP, 0, 0, 9, 8", Shape::Choice},
        {L"CONTROL \"a\", IDC_ONE, \"Button\", BS_AUTOCHECKBOX, 0, 0, 9, 8", Shape::Choice},
        {L"CONTROL \"a\", IDC_ONE, \"Button\", BS_AUTOCHECKBOX | NOT WS_VISIBLE, 0, 0, 9, 8",
         Shape::NotMeasured},
        {L"CONTROL \"\", IDC_ONE, PROGRESS_CLASSW, WS_BORDER, 0, 0, 9, 8", Shape::NotMeasured},
        {L"COMBOBOX IDC_ONE, 0, 0, 9, 8, CBS_DROPDOWNLIST", Shape::List},
        {L"EDITTEXT IDC_ONE, 0, 0, 9, 8", Shape::NotMeasured},
    };
    for (const auto& [statement, looks] : cases) {
        SCOPED_TRACE(statement);
        EXPECT_EQ(ControlFrom(statement).Looks, looks);
    }
}

TEST(DialogSource, NamesTheWindowClassesAsWindowsDoes) {
    EXPECT_EQ(ControlFrom(L"CONTROL \"\", IDC_ONE, WC_LISTVIEWW, LVS_LIST, 0, 0, 9, 8").Texts.ClassName,
              L"SysListView32");
    EXPECT_EQ(
        ControlFrom(L"CONTROL \"\", IDC_ONE, \"ComboBoxEx32\", CBS_DROPDOWN, 0, 0, 9, 8").Texts.ClassName,
        L"ComboBoxEx32");
}

TEST(DialogSource, KnowsWhatIsNeverShownAndWhereAnAmpersandIsOne) {
    EXPECT_FALSE(ControlFrom(L"LTEXT \"a\", IDC_ONE, 0, 0, 0, 0, NOT WS_VISIBLE").IsShown);
    EXPECT_TRUE(ControlFrom(L"LTEXT \"a\", IDC_ONE, 0, 0, 0, 0").IsShown);
    EXPECT_FALSE(ControlFrom(L"LTEXT \"a\", IDC_ONE, 0, 0, 9, 8, SS_NOPREFIX").HasMnemonics);
    EXPECT_TRUE(ControlFrom(L"LTEXT \"a\", IDC_ONE, 0, 0, 9, 8").HasMnemonics);
}

TEST(DialogSource, ReadsTheEscapesOfATextAndNoCommentInIt) {
    EXPECT_EQ(ControlFrom(LR"(LTEXT "a\nb\tc\\d""e // f", IDC_ONE, 0, 0, 9, 8  // why)").Texts.Text,
              L"a\nb\tc\\d\"e // f");
}

TEST(DialogSource, TellsOfStatementsThatItDoesNotUnderstand) {
    const DialogSources sources = ParseDialogSource(
        L"IDD_A DIALOGEX 0, 0, 9, 9\nBEGIN\nLTEXT \"a\", IDC_UNKNOWN, 0, 0, 9, 8\nLTEXT \"a\", IDC_ONE, 0, "
        L"0, 9\n"
        L"SCROLLBAR IDC_ONE, 0, 0, 9, 8\nEND\n",
        kNumbers);
    EXPECT_EQ(sources.BadLines, (std::vector<std::size_t>{3, 4, 5}));
}

TEST(ResourceNumbers, AreThoseOfTheHeaderAndOfTheUsualButtons) {
    const ResourceNumbers numbers = ParseResourceNumbers(
        L"// #define IDC_NOT 1\n#pragma once\n#define IDC_A 12\r\n#define  IDC_B\t13 // what\n");
    EXPECT_EQ(numbers, (ResourceNumbers{{L"IDC_A", 12}, {L"IDC_B", 13}, {L"IDOK", 1}, {L"IDCANCEL", 2}}));
}

}  // namespace
}  // namespace ferry::texts
