// What is found in the texts of a dialog.
#include "texts/dialog_check.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ids.h"

namespace ferry::texts {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ControlSource Control(int id, const wchar_t* className, const wchar_t* text, Shape looks, std::size_t line) {
    ControlSource control;
    control.Texts = {id, className, text, {}};
    control.Looks = looks;
    control.Width = 50;
    control.Height = 10;
    control.Line = line;
    return control;
}

/// A dialog with a control of each kind.
DialogSource SomeDialog() {
    DialogSource dialog{200, L"題名", 3, 100, {}};
    dialog.Controls = {Control(10, L"Static", L"名前(&N)", Shape::Label, 5),
                       Control(11, L"Edit", L"", Shape::NotMeasured, 6),
                       Control(12, L"Button", L"%1 個(&G)", Shape::Button, 7),
                       Control(13, L"ComboBox", L"", Shape::List, 8),
                       Control(2, L"Button", L"Cancel", Shape::Button, 9)};
    dialog.Controls[3].Texts.Items = {L"標準", L"1 s"};
    return dialog;
}

/// A translation with nothing wrong in it, whose last line is `line`.
std::wstring GoodTextWith(const std::wstring& line = {}) {
    return L"Title\r\n// why\r\n10\tStatic\t&Name\r\n12\tButton\t&Go %1\r\n13\tComboBoxStart\r\n"
           L"13\tComboBox\tExact\r\n13\tComboBox\t1 s\r\n" +
           line;
}

/// What is found in `text`: the lines of the findings and what they say.
std::vector<std::wstring> FoundIn(const std::wstring& text, const DialogSource& dialog = SomeDialog()) {
    std::vector<std::wstring> found;
    for (const Finding& finding : CheckDialogText(dialog, text, L"200.txt")) {
        EXPECT_EQ(finding.File, L"200.txt");
        found.push_back(std::to_wstring(finding.Line) + L": " + finding.What);
    }
    return found;
}

std::wstring Replaced(std::wstring text, const std::wstring& from, const std::wstring& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::wstring::npos);
    return text.replace(at, from.size(), to);
}

TEST(CheckDialogText, FindsNothingInAWholeTranslation) {
    EXPECT_THAT(FoundIn(GoodTextWith()), IsEmpty());
    EXPECT_THAT(FoundIn(L"\xFEFF" + GoodTextWith()), IsEmpty());
    EXPECT_THAT(FoundIn(GoodTextWith(L"-1\tStatic\tof nobody\r\n\r\nEOF\r\nanything\r\n")), IsEmpty());
}

TEST(CheckDialogText, FindsATextThatIsMissing) {
    EXPECT_THAT(FoundIn(Replaced(GoodTextWith(), L"10\tStatic\t&Name\r\n", L"")),
                ElementsAre(L"0: there is no text for control 10, \"名前(&N)\""));
}

TEST(CheckDialogText, NeedsNoTextForWhatIsLatinEverywhere) {
    EXPECT_THAT(FoundIn(GoodTextWith(L"2\tButton\tAbort\r\n")), IsEmpty());
    EXPECT_THAT(FoundIn(GoodTextWith()), IsEmpty());
}

TEST(CheckDialogText, FindsATextOfAControlThatIsNotThere) {
    EXPECT_THAT(FoundIn(GoodTextWith(L"99\tStatic\tx\r\n")), ElementsAre(L"8: the dialog has no control 99"));
}

TEST(CheckDialogText, FindsATextOfAControlThatShowsNone) {
    EXPECT_THAT(FoundIn(GoodTextWith(L"11\tEdit\tx\r\n")),
                ElementsAre(L"8: control 11 shows no text of its own"));
}

TEST(CheckDialogText, FindsAnotherWindowClass) {
    EXPECT_THAT(FoundIn(GoodTextWith(L"2\tStatic\tx\r\n")), ElementsAre(L"8: control 2 is a Button"));
    EXPECT_THAT(FoundIn(GoodTextWith(L"2\tComboBox\tx\r\n")), ElementsAre(L"8: control 2 is a Button"));
}

TEST(CheckDialogText, FindsAControlThatStandsThereTwice) {
    EXPECT_THAT(FoundIn(GoodTextWith(L"10\tStatic\t&Names\r\n")),
                ElementsAre(L"8: control 10 stands here twice"));
    EXPECT_THAT(FoundIn(GoodTextWith(L"13\tComboBoxStart\r\n")),
                ElementsAre(L"8: control 13 stands here twice"));
}

TEST(CheckDialogText, FindsALineThatTheProgramIgnores) {
    EXPECT_THAT(FoundIn(GoodTextWith(L"2 Button Abort\r\n")),
                ElementsAre(L"8: this line has no effect: \"2 Button Abort\""));
}

TEST(CheckDialogText, FindsThatThereIsNoTitle) {
    EXPECT_THAT(FoundIn(Replaced(GoodTextWith(), L"Title\r\n", L"")),
                ElementsAre(L"1: the first line is no title"));
}

TEST(CheckDialogText, FindsAListThatIsMissingOrOfAnotherLength) {
    const std::wstring list = L"13\tComboBoxStart\r\n13\tComboBox\tExact\r\n13\tComboBox\t1 s\r\n";
    EXPECT_THAT(FoundIn(Replaced(GoodTextWith(), list, L"")),
                ElementsAre(L"0: there are no entries for list 13"));
    EXPECT_THAT(FoundIn(GoodTextWith(L"13\tComboBox\t2 s\r\n")),
                ElementsAre(L"0: list 13 has 3 entries instead of 2"));
    EXPECT_THAT(FoundIn(Replaced(GoodTextWith(), L"13\tComboBox\t1 s\r\n", L"")),
                ElementsAre(L"0: list 13 has 1 entries instead of 2"));
}

TEST(CheckDialogText, FindsPlaceholdersThatDiffer) {
    EXPECT_THAT(FoundIn(Replaced(GoodTextWith(), L"&Go %1", L"&Go %2")),
                ElementsAre(L"4: the placeholders should be %1 and are %2: \"&Go %2\""));
    EXPECT_THAT(FoundIn(Replaced(GoodTextWith(), L"&Go %1", L"&Go")),
                ElementsAre(L"4: the placeholders should be %1 and are none: \"&Go\""));
    EXPECT_THAT(FoundIn(Replaced(GoodTextWith(), L"&Name", L"&Name %d")),
                ElementsAre(L"3: the placeholders should be none and are %d: \"&Name %d\""));
}

TEST(CheckDialogText, FindsALetterThatIsLostOrStandsTwice) {
    EXPECT_THAT(FoundIn(Replaced(GoodTextWith(), L"&Name", L"Name")),
                ElementsAre(L"3: there is no letter behind a \"&\": \"Name\""));
    EXPECT_THAT(FoundIn(Replaced(GoodTextWith(), L"&Name", L"Na && me")),
                ElementsAre(L"3: there is no letter behind a \"&\": \"Na && me\""));
    EXPECT_THAT(FoundIn(Replaced(GoodTextWith(), L"&Name", L"the &g")),
                ElementsAre(L"4: the letter G leads to control 10 already: \"&Go %1\""));
}

TEST(CheckDialogText, FindsALetterThatABuiltInTextHasToo) {
    DialogSource dialog = SomeDialog();
    dialog.Controls.push_back(Control(1, L"Button", L"OK (&N)", Shape::Button, 10));
    EXPECT_THAT(FoundIn(GoodTextWith(), dialog),
                ElementsAre(L"0: the letter N leads to control 10 already: \"OK (&N)\""));
}

TEST(CheckDialogText, LetsWhatIsHiddenOrHasNoLettersHaveAnyLetter) {
    DialogSource dialog = SomeDialog();
    dialog.Controls.push_back(Control(20, L"Button", L"a&n", Shape::NotMeasured, 10));
    dialog.Controls.back().IsShown = false;
    dialog.Controls.push_back(Control(21, L"Static", L"b&n", Shape::Label, 11));
    dialog.Controls.back().HasMnemonics = false;
    EXPECT_THAT(FoundIn(GoodTextWith(), dialog), IsEmpty());
}

TEST(CheckDialogText, LetsTheTwoModesHaveTheSameLetter) {
    DialogSource dialog{IDD_FERRY, L"title", 1, 100, {}};
    dialog.Controls = {Control(IDC_NO_ASK, L"Button", L"&A", Shape::Choice, 1),
                       Control(IDC_POLICY_OVERWRITE, L"Button", L"&A", Shape::Choice, 2),
                       Control(IDC_COPY, L"Button", L"&C", Shape::Choice, 3)};
    EXPECT_THAT(FoundIn(L"title\n", dialog), IsEmpty());
    dialog.Controls[2].Texts.Text = L"&A";
    EXPECT_EQ(FoundIn(L"title\n", dialog).size(), 1U);
    dialog.Number = IDD_INPUT;
    EXPECT_EQ(FoundIn(L"title\n", dialog).size(), 2U);
}

TEST(CheckDialogText, FindsTextsThatAreTooLong) {
    EXPECT_THAT(FoundIn(Replaced(GoodTextWith(), L"&Name", L"&Names of everything")),
                ElementsAre(testing::StartsWith(L"3: too long by about ")));
    EXPECT_THAT(FoundIn(Replaced(GoodTextWith(), L"Exact", L"Exactly the same")),
                ElementsAre(testing::StartsWith(L"6: too long by about ")));
    EXPECT_THAT(FoundIn(Replaced(GoodTextWith(), L"Title", L"A title that is wider than its dialog")),
                ElementsAre(testing::StartsWith(L"1: the title is too long: ")));
}

TEST(CheckBuiltInTexts, FindsTextsThatAreTooLongAndLettersThatStandTwice) {
    DialogSource dialog = SomeDialog();
    EXPECT_THAT(CheckBuiltInTexts(dialog, L"a.rc"), IsEmpty());
    dialog.Title = L"ウィンドウより長い題名があります";
    dialog.Controls[0].Texts.Text = L"選択したファイル名(&G)";
    dialog.Controls[3].Texts.Items[1] = L"1秒以内は同一とみなす";
    const Findings found = CheckBuiltInTexts(dialog, L"a.rc");
    ASSERT_EQ(found.size(), 4U);
    EXPECT_EQ(found[0], (Finding{L"a.rc", 3, L"the title is too long: \"" + dialog.Title + L"\""}));
    EXPECT_EQ(found[1].Line, 5U);
    EXPECT_EQ(found[2].Line, 8U);
    EXPECT_EQ(found[3], (Finding{L"a.rc", 7, L"the letter G leads to control 10 already: \"%1 個(&G)\""}));
}

}  // namespace
}  // namespace ferry::texts
