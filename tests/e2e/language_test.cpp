// Other languages: the dialog's text file is written when it is missing and read when it is there.
#include <span>

#include "base/utf16.h"
#include "e2e/driver/app_copy.h"
#include "e2e/driver/message_file.h"
#include "e2e/driver/surroundings.h"
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

class Language : public FerryTest {
protected:
    void SetUp() override {
        app_ = Tree().Path(L"app");
        ASSERT_TRUE(CopyApp(app_));
        RemoveAll(ProgramFolder(app_) + L"\\.en-US");
        WriteText(kHostKey, L"NLS", L".en-US");
    }

    RunPlan CopiedPlan() const {
        RunPlan plan = Plan({L"C:\\Work\\a.txt"});
        plan.AppFolder = app_;
        return plan;
    }

    std::wstring TextFile() const { return ProgramFolder(app_) + L"\\.en-US\\Ferry\\102.txt"; }

    void WriteTextFile(const std::wstring& text) const {
        Tree().MakeFolder(L"app\\Command\\Ferry\\.en-US\\Ferry");
        WriteUtf16(TextFile(), text);
    }

    std::wstring TextFileText() const {
        const std::string bytes = ReadBytes(TextFile());
        return base::UnitsFromBytes(std::as_bytes(std::span(bytes)));
    }

    std::wstring app_;
};

TEST_F(Language, AMissingTextFileIsWrittenFromTheDialog) {
    ASSERT_TRUE(Open(CopiedPlan()));
    EXPECT_EQ(Dialog().Title(), L"ファイルの操作の確認");
    const std::wstring text = TextFileText();
    EXPECT_TRUE(text.starts_with(L"\uFEFFファイルの操作の確認\r\n"));
    EXPECT_NE(text.find(L"1224\tButton\tコピー(&P)\r\n"), std::wstring::npos);
    EXPECT_NE(text.find(L"1170\tComboBoxStart\r\n1170\tComboBox\t標準\r\n"), std::wstring::npos);
    EXPECT_EQ(text.find(L"SysListView32"), std::wstring::npos);
}

TEST_F(Language, AWrittenTextFileIsReadBackInTheNextRun) {
    ASSERT_TRUE(Open(CopiedPlan()));
    ASSERT_TRUE(CancelEndsWell());
    std::wstring text = TextFileText();
    const std::wstring old = L"1224\tButton\tコピー(&P)";
    ASSERT_NE(text.find(old), std::wstring::npos);
    text.replace(text.find(old), old.size(), L"1224\tButton\tCopy(&P)");
    WriteTextFile(text.substr(1));
    ASSERT_TRUE(Open(CopiedPlan()));
    EXPECT_EQ(Dialog().Text(kCopy), L"Copy(&P)");
    EXPECT_EQ(Dialog().Text(kMove), L"移動(&M)");
    EXPECT_EQ(TextFileText(), text);
}

TEST_F(Language, ATextFileGivesTitleTextsAndLists) {
    WriteTextFile(
        L"Confirm\r\n// a remark\r\n1224\tButton\tCopy(&P)\r\n1170\tComboBoxStart\r\n"
        L"1170\tComboBox\tExact\r\n1170\tComboBox\tRoughly\r\nEOF\r\n1225\tButton\tMove(&M)\r\n");
    ASSERT_TRUE(Open(CopiedPlan()));
    EXPECT_EQ(Dialog().Title(), L"Confirm");
    EXPECT_EQ(Dialog().Text(kCopy), L"Copy(&P)");
    EXPECT_EQ(Dialog().Text(kMove), L"移動(&M)");
    EXPECT_EQ(Ask(Dialog().Control(kPrecision), CB_GETCOUNT), 2);
}

TEST_F(Language, ATextThatIsTooLongIsToldOfInTheLanguageOfTheHost) {
    ASSERT_TRUE(Open(CopiedPlan()));
    Dialog().SetDestination(L"C:\\" + std::wstring(300, L'x'));
    EXPECT_TRUE(StartIsRefusedWith(L"Enter no more than 250 characters."));
}

TEST_F(Language, TheBuiltInLanguageWritesNoFile) {
    DeleteValue(kHostKey, L"NLS");
    ASSERT_TRUE(Open(CopiedPlan()));
    EXPECT_FALSE(Exists(TextFile()));
    EXPECT_FALSE(Exists(ProgramFolder(app_) + L"\\.ja-JP\\Ferry\\102.txt"));
}

TEST_F(Language, TheBuiltInLanguageReadsNoFileThatLiesThere) {
    DeleteValue(kHostKey, L"NLS");
    Tree().MakeFolder(L"app\\Command\\Ferry\\.ja-JP\\Ferry");
    WriteUtf16(ProgramFolder(app_) + L"\\.ja-JP\\Ferry\\102.txt", L"Stray\r\n1224\tButton\tstray\r\n");
    ASSERT_TRUE(Open(CopiedPlan()));
    EXPECT_EQ(Dialog().Title(), L"ファイルの操作の確認");
    EXPECT_EQ(Dialog().Text(kCopy), L"コピー(&P)");
}

TEST_F(Language, TheBuiltInLanguageIsWrittenOutOnRequest) {
    DeleteValue(kHostKey, L"NLS");
    WriteNumber(kHostKey, L"LangOut", 1);
    const std::wstring file = ProgramFolder(app_) + L"\\.ja-JP\\Ferry\\102.txt";
    RemoveAll(file);
    ASSERT_TRUE(Open(CopiedPlan()));
    EXPECT_TRUE(Exists(file));
}

TEST_F(Language, BrokenTextFilesDoNotKeepTheDialogFromOpening) {
    const std::wstring broken[] = {
        L"",
        L"\r\n\r\n",
        L"\t\t\t\r\n",
        L"1224\r\n1224\t\r\n1224\tButton\r\n",
        L"99999999999999999999\tButton\tx\r\n-1\tStatic\ty\r\n1224\tButton\ta\tb\tc\r\n",
        std::wstring(100000, L'x'),
        std::wstring(40000, L'\t'),
        L"1410\tComboBoxStart\r\n1\tComboBox\tz\r\n",
        std::wstring(L"\0\0\xD800\xDFFF\0", 5),
    };
    for (const std::wstring& text : broken) {
        SCOPED_TRACE(text.size());
        WriteTextFile(text);
        ASSERT_TRUE(Open(CopiedPlan()));
        EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
    }
}

TEST_F(Language, BrokenMessageFilesGiveTheFallbackText) {
    DeleteValue(kHostKey, L"NLS");
    for (const std::wstring& text :
         {std::wstring(L"62304"), std::wstring(L"1\tone\r\nEOF\r\n62304\ttoo late\r\n"),
          L"1\tone\r\n62304\ta\tb\r\n" + std::wstring(90000, L'x')}) {
        SCOPED_TRACE(text.size());
        WriteUtf16(app_ + L"\\Lang\\Msg.ja-JP.txt", text);
        ASSERT_TRUE(Open(CopiedPlan()));
        Dialog().SetDestination(L"nowhere");
        EXPECT_TRUE(StartIsRefusedWith(L"No message text.Please update message file."));
    }
}

TEST_F(Language, AMissingMessageFileIsSaidBeforeTheFallbackText) {
    DeleteValue(kHostKey, L"NLS");
    RemoveAll(app_ + L"\\Lang\\Msg.ja-JP.txt");
    ASSERT_TRUE(Open(CopiedPlan()));
    Dialog().SetDestination(L"nowhere");
    ASSERT_TRUE(StartIsRefusedWith(L"Cannot open message file.\n" + app_ + L"\\Lang\\Msg.ja-JP.txt"));
    const ShownBox second = WaitForMessageBox(Run().FerryId());
    EXPECT_EQ(second.Text, L"No message text.Please update message file.");
    EXPECT_TRUE(DismissMessageBox(second));
}

}  // namespace
}  // namespace ferry::e2e
