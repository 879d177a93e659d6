// F1: the installed page that opens, in each dialog and for each reader.
#include <algorithm>

#include "e2e/driver/app_copy.h"
#include "e2e/driver/keys.h"
#include "e2e/driver/surroundings.h"
#include "e2e/run_fixture.h"

namespace ferry::e2e {
namespace {

/// While it exists, the shell opens HTML pages with a command of its own, which writes their address to a
/// file.
class PageOpener {
public:
    explicit PageOpener(const std::wstring& file) {
        Set(L".html", kProgram);
        Set(std::wstring(kProgram) + L"\\shell\\open\\command",
            L"C:\\windows\\system32\\cmd.exe /c echo %1>\"" + file + L"\"");
    }
    ~PageOpener() {
        Set(L".html", L"htmlfile");
        RegDeleteTreeW(HKEY_CLASSES_ROOT, kProgram);
    }
    PageOpener(const PageOpener&) = delete;
    PageOpener& operator=(const PageOpener&) = delete;

private:
    static constexpr wchar_t kProgram[] = L"FerryTest.Page";

    static void Set(const std::wstring& key, const std::wstring& text) {
        RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, text.c_str(),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }
};

struct Reader {
    const char* Name;
    const wchar_t* Language;
    const wchar_t* MainPage;  ///< Below the program's folder, without what all pages have in common.
    const wchar_t* Folder;    ///< The folder of the other pages.
};

constexpr wchar_t kCommand[] = L"Manual\\kiv\\man5\\6.Command\\2.DefaultCommand\\";

class Help : public AskingRun, public testing::WithParamInterface<Reader> {
protected:
    void SetUp() override {
        AskingRun::SetUp();
        WriteText(kHostKey, L"NLS", GetParam().Language);
    }

    /// What F1 opens, pressed in the dialog that has the keyboard. The page has to be there.
    std::wstring PageByF1() {
        DeleteFileW(mark_.c_str());
        PressKey(VK_F1);
        if (!WaitUntil([&] { return ReadBytes(mark_).find('\n') != std::string::npos; }))
            return L"nothing";
        std::string said = ReadBytes(mark_);
        std::erase(said, '"');
        const std::size_t end = std::min(said.find('\r'), said.size());
        const std::wstring page(said.begin(), said.begin() + static_cast<std::ptrdiff_t>(end));
        return Exists(page) ? page : page + L" is not there";
    }

    static std::wstring MainPage() {
        return ProgramFolder(AppFolder()) + L"\\" + GetParam().MainPage + kCommand + L"Ferry.html";
    }
    static std::wstring Page(const wchar_t* name) {
        return ProgramFolder(AppFolder()) + L"\\" + kCommand + L"Ferry\\" + GetParam().Folder + L"\\" + name;
    }

private:
    std::wstring mark_ = Tree().Path(L"opened.txt");
    PageOpener opener_{mark_};
};

TEST_P(Help, OfTheConfirmationDialogIsTheMainPage) {
    ASSERT_TRUE(OpenWith({}));
    ASSERT_TRUE(Dialog().FocusDestination());
    EXPECT_EQ(PageByF1(), MainPage());
}

TEST_P(Help, OfANewNameAndOfTheProgressBesideItIsTheirOwn) {
    ASSERT_TRUE(Start({Colliding(L"a.txt")}, kRenameIncoming));
    const RemoteDialog rename = Rename();
    ASSERT_TRUE(rename.IsOpen());
    EXPECT_EQ(PageByF1(), Page(L"rename.html"));
    ASSERT_TRUE(TakeForeground(ProgressWindow().Window()));
    EXPECT_EQ(PageByF1(), Page(L"progress.html"));
}

TEST_P(Help, OfANameThatExistsIsItsOwn) {
    ASSERT_TRUE(Start({Colliding(L"a.txt")}, kAskEach));
    ASSERT_TRUE(Collision().IsOpen());
    EXPECT_EQ(PageByF1(), Page(L"collision.html"));
}

TEST_P(Help, OfTheReportIsItsOwn) {
    ASSERT_TRUE(Start({Tree().Path(L"gone.txt")}, kAskEach));
    const RemoteDialog report = WaitForRunDialog(Run().FerryId(), RunDialog::Report);
    ASSERT_TRUE(report.IsOpen());
    EXPECT_EQ(PageByF1(), Page(L"report.html"));
    report.Click(kStart);
    EXPECT_TRUE(EndsWell());
}

INSTANTIATE_TEST_SUITE_P(For, Help,
                         testing::Values(Reader{"JapaneseReaders", L".ja-JP", L"", L"ja"},
                                         Reader{"EnglishReaders", L".en-US", L".en-US\\", L"en"}),
                         [](const auto& reader) { return reader.param.Name; });

}  // namespace
}  // namespace ferry::e2e
