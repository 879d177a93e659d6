// The files that translate a dialog's controls.
#include "lang/dialog_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

#include "base/utf16.h"

namespace ferry::lang {

using Kind = DialogTextEdit::Kind;

// The test framework finds these by the namespace of their argument.
// NOLINTBEGIN(misc-use-internal-linkage)
bool operator==(const DialogTextEdit& left, const DialogTextEdit& right) {
    return left.What == right.What && left.ControlId == right.ControlId && left.Text == right.Text;
}

void PrintTo(const DialogTextEdit& edit, std::ostream* out) {
    *out << static_cast<int>(edit.What) << '/' << edit.ControlId << '/' << base::ToUtf8(edit.Text);
}
// NOLINTEND(misc-use-internal-linkage)

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

DialogTextEdit Title(std::wstring text) {
    return {Kind::SetTitle, 0, std::move(text)};
}

TEST(ParseDialogText, ReadsEveryKindOfLine) {
    EXPECT_THAT(
        ParseDialogText(L"\xFEFF"
                        L"Copy\r\n1\tButton\t&Start\r\n1170\tComboBoxStart\r\n"
                        L"1170\tComboBox\tExact\r\n1170\tComboBox\tUp to 1 s\r\n"),
        ElementsAre(Title(L"Copy"), DialogTextEdit{Kind::SetText, 1, L"&Start"},
                    DialogTextEdit{Kind::ClearList, 1170, L""}, DialogTextEdit{Kind::AddItem, 1170, L"Exact"},
                    DialogTextEdit{Kind::AddItem, 1170, L"Up to 1 s"}));
}

TEST(ParseDialogText, TakesATitleFromTheFirstLineOnly) {
    EXPECT_THAT(ParseDialogText(L"First\r\nSecond\r\n"), ElementsAre(Title(L"First")));
    EXPECT_THAT(ParseDialogText(L"\r\nSecond\r\n"), IsEmpty());
    EXPECT_THAT(ParseDialogText(L"1\tButton\tStart\r\nSecond\r\n"),
                ElementsAre(DialogTextEdit{Kind::SetText, 1, L"Start"}));
}

TEST(ParseDialogText, DoesNotCountCommentsAsTheFirstLine) {
    EXPECT_THAT(ParseDialogText(L"// by hand\r\nTitle\r\n//1\tButton\tx\r\n"), ElementsAre(Title(L"Title")));
}

TEST(ParseDialogText, TakesEscapesInTextsBackButNotInItems) {
    EXPECT_THAT(ParseDialogText(L"T\r\n1\tStatic\ta\\nb\\rc\\td\r\n2\tComboBox\ta\\nb\r\n"),
                ElementsAre(Title(L"T"), DialogTextEdit{Kind::SetText, 1, L"a\nb\rc\td"},
                            DialogTextEdit{Kind::AddItem, 2, L"a\\nb"}));
}

TEST(ParseDialogText, TakesTheTitleAsItIsWritten) {
    EXPECT_THAT(ParseDialogText(L"A\\nB\\tC\\r\r\n"), ElementsAre(Title(L"A\\nB\\tC\\r")));
}

TEST(ParseDialogText, SkipsControlsWithoutANumberOfTheirOwn) {
    EXPECT_THAT(ParseDialogText(L"T\r\n-1\tStatic\ttext\r\n-1\tComboBoxStart\r\n-1\tComboBox\titem\r\n"),
                ElementsAre(Title(L"T")));
}

TEST(ParseDialogText, IgnoresMalformedLines) {
    EXPECT_THAT(ParseDialogText(L"T\r\n1\tButton\r\n1\tcomboboxstart\r\n1\tButton\ta\tb\r\n\r\nx\r\n"),
                ElementsAre(Title(L"T")));
}

TEST(ParseDialogText, StopsAtTheEndLine) {
    EXPECT_THAT(ParseDialogText(L"T\r\nEOF\r\n1\tButton\ta\r\n"), ElementsAre(Title(L"T")));
    EXPECT_THAT(ParseDialogText(L""), IsEmpty());
}

TEST(RenderDialogText, WritesTheTitleAndEachControlInOrder) {
    const std::vector<ControlText> controls = {
        {1, L"Button", L"&Start", {}},
        {1170, L"ComboBox", L"Exact", {L"Exact", L"Up to\\n1 s"}},
        {-1, L"Static", L"Precision:", {}},
    };
    EXPECT_EQ(RenderDialogText(L"Copy", controls),
              L"\xFEFF"
              L"Copy\r\n1\tButton\t&Start\r\n1170\tComboBoxStart\r\n1170\tComboBox\tExact\r\n"
              L"1170\tComboBox\tUp to\\n1 s\r\n-1\tStatic\tPrecision:\r\n");
}

TEST(RenderDialogText, LeavesOutControlsWithoutWording) {
    const std::vector<ControlText> controls = {
        {1, L"SysListView32", L"a", {}}, {2, L"SysTabControl32", L"b", {}}, {3, L"Edit", L"c", {}},
        {4, L"Static", L"", {}},         {5, L"ComboBox", L"text", {}},
    };
    EXPECT_EQ(RenderDialogText(L"T", controls),
              L"\xFEFF"
              L"T\r\n5\tComboBoxStart\r\n");
}

TEST(RenderDialogText, EscapesLineEndsAndTabsInTexts) {
    const std::vector<ControlText> controls = {{1, L"Static", L"a\nb\r\nc\td", {}}};
    EXPECT_EQ(RenderDialogText(L"T", controls),
              L"\xFEFF"
              L"T\r\n1\tStatic\ta\\nb\\r\\nc\\td\r\n");
}

TEST(RenderDialogText, WritesTheTitleAsItStands) {
    EXPECT_EQ(RenderDialogText(L"A\tB\nC\rD\\n", {}),
              L"\xFEFF"
              L"A\tB\nC\rD\\n\r\n");
}

TEST(RenderDialogText, WritesItemsAsTheyStand) {
    const std::vector<ControlText> controls = {{1, L"ComboBox", L"", {L"a\tb\nc"}}};
    EXPECT_EQ(RenderDialogText(L"T", controls),
              L"\xFEFF"
              L"T\r\n1\tComboBoxStart\r\n1\tComboBox\ta\tb\nc\r\n");
}

TEST(RenderDialogText, CutsTextsAtTheirGreatestLength) {
    const std::wstring huge(40000, L'x');
    const std::vector<ControlText> controls = {{1, huge, huge, {}}};
    const std::wstring cut(32766, L'x');
    EXPECT_EQ(RenderDialogText(huge, controls),
              L"\xFEFF" + cut + L"\r\n1\t" + std::wstring(1024, L'x') + L"\t" + cut + L"\r\n");
}

TEST(RenderDialogText, IsReadBackAsTheSameTexts) {
    const std::vector<ControlText> controls = {
        {1, L"Button", L"two\r\nlines\tand a tab", {}},
        {-1, L"Static", L"keeps its own text", {}},
        {1170, L"ComboBox", L"", {L"one", L"two"}},
    };
    EXPECT_THAT(
        ParseDialogText(RenderDialogText(L"Title", controls)),
        ElementsAre(Title(L"Title"), DialogTextEdit{Kind::SetText, 1, L"two\r\nlines\tand a tab"},
                    DialogTextEdit{Kind::ClearList, 1170, L""}, DialogTextEdit{Kind::AddItem, 1170, L"one"},
                    DialogTextEdit{Kind::AddItem, 1170, L"two"}));
}

TEST(DialogTextPath, LiesInTheLanguagesFolderBesideTheExecutable) {
    constexpr auto kModule = L"C:\\App\\Command\\Ferry\\Ferry.exe";
    EXPECT_EQ(DialogTextFolder(kModule, L".ja-JP"), L"C:\\App\\Command\\Ferry\\.ja-JP\\Ferry");
    EXPECT_EQ(DialogTextPath(kModule, L".ja-JP", 102), L"C:\\App\\Command\\Ferry\\.ja-JP\\Ferry\\102.txt");
    EXPECT_EQ(DialogTextPath(L"\\\\srv\\app\\My.Ferry.exe", L".en-US", 131),
              L"\\\\srv\\app\\.en-US\\My.Ferry\\131.txt");
}

TEST(UsesDialogTextFiles, IsFalseOnlyForTheBuiltInLanguageWithoutExport) {
    EXPECT_FALSE(UsesDialogTextFiles(L".ja-JP", 0));
    EXPECT_TRUE(UsesDialogTextFiles(L".ja-JP", 1));
    EXPECT_TRUE(UsesDialogTextFiles(L".ja-JP", -1));
    EXPECT_TRUE(UsesDialogTextFiles(L".ja-jp", 0));
    EXPECT_TRUE(UsesDialogTextFiles(L".en-US", 0));
    EXPECT_TRUE(UsesDialogTextFiles(L"", 0));
}

}  // namespace
}  // namespace ferry::lang
