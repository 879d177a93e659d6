// What a new user does first: a start, a favourite as the destination, a copy, a look into the manual. These
// also run on an unpacked package in a fresh prefix; FERRY_E2E_PACKAGE says so.
#include <windows.h>
// After windows.h, which it builds on.
#include <shlobj.h>

#include <array>
#include <string>

#include "base/utf16.h"
#include "e2e/driver/app_copy.h"
#include "e2e/driver/browser_stand_in.h"
#include "e2e/driver/remote_menu.h"
#include "e2e/driver/surroundings.h"
#include "e2e/launcher_fixture.h"

namespace ferry::e2e {
namespace {

/// A language, and the sample favourite that shows the downloads there.
struct UserLanguage {
    const char* Name;
    const wchar_t* Suffix;
    const wchar_t* SampleFolder;
    const wchar_t* Submenu;
    const wchar_t* Entry;
    const wchar_t* CopyWord;  ///< How the dialog says "copy".
    std::string_view PageMark;
};

constexpr UserLanguage kJapaneseUser = {"Japanese",          L".ja-JP",           L"ja-JP",
                                        L"個人用フォルダー", L"ダウンロード.txt", L"コピー",
                                        "<html lang=\"ja\""};
constexpr UserLanguage kEnglishUser = {"English",        L".en-US", L"en-US",           L"My folders",
                                       L"Downloads.txt", L"Copy",   "<html lang=\"en\""};

enum class Starter : bool { Host, Launcher };

struct NewUserCase {
    const UserLanguage& Language;
    Starter By;
};

constexpr NewUserCase kFirstStarts[] = {{kJapaneseUser, Starter::Host},
                                        {kJapaneseUser, Starter::Launcher},
                                        {kEnglishUser, Starter::Host},
                                        {kEnglishUser, Starter::Launcher}};

std::string NameOfCase(const testing::TestParamInfo<NewUserCase>& info) {
    return std::string(info.param.Language.Name) +
           (info.param.By == Starter::Launcher ? "ByLauncher" : "ByHost");
}

bool IsPackage() {
    return !Variable(L"FERRY_E2E_PACKAGE").empty();
}

std::wstring LocalAppData() {
    PWSTR path = nullptr;
    SHGetKnownFolderPath(FOLDERID_LocalAppData, KF_FLAG_CREATE, nullptr, &path);
    const std::wstring folder = path == nullptr ? std::wstring() : std::wstring(path);
    CoTaskMemFree(path);
    return folder;
}

/// The user has a home inside the test's tree, which the favourites know by a variable of the environment.
/// The favourites lie where they do without any setting.
class NewUser : public Launcher, public testing::WithParamInterface<NewUserCase> {
protected:
    void SetUp() override {
        home_ = Variable(L"USERPROFILE");
        oneDrive_ = Variable(L"OneDrive");
        SetVariable(L"USERPROFILE", Tree().Path(L"home"));
        SetVariable(L"OneDrive", L"");
        WriteText(kHostKey, L"NLS", GetParam().Language.Suffix);
        bar_ = LocalAppData() + L"\\Kiv\\Bar";
        ASSERT_FALSE(Exists(bar_)) << base::ToUtf8(bar_) << " is somebody's";
        ownsBar_ = true;
        ASSERT_TRUE(PutFavourites());
    }

    void TearDown() override {
        if (ownsBar_)
            RemoveAll(bar_);
        SetVariable(L"USERPROFILE", home_);
        SetVariable(L"OneDrive", oneDrive_);
    }

    const RemoteDialog& Shown() const {
        return GetParam().By == Starter::Launcher ? Launcher::Dialog() : FerryTest::Dialog();
    }

    /// Opens Ferry with one item in the way of the case.
    testing::AssertionResult OpensWith(const std::wstring& item) {
        const auto opened = GetParam().By == Starter::Launcher ? Opens({item}) : Open(Plan({item}));
        if (!opened)
            return opened;
        std::wstring copy = Shown().Text(kCopy);
        std::erase(copy, L'&');
        if (!copy.starts_with(GetParam().Language.CopyWord))
            return testing::AssertionFailure() << "the dialog says " << base::ToUtf8(copy);
        return opened;
    }

    testing::AssertionResult EndsWithoutFault() {
        return GetParam().By == Starter::Launcher ? EndsWith(0) : EndsWell();
    }

    testing::AssertionResult CancelEnds() {
        return GetParam().By == Starter::Launcher ? CancelEndsBoth() : CancelEndsWell();
    }

private:
    /// Copies the samples as the package's page says. A layout that was only built has none; there one like
    /// it does.
    testing::AssertionResult PutFavourites() const {
        const UserLanguage& language = GetParam().Language;
        const std::wstring favourites = bar_ + L"\\Favorite";
        const std::wstring samples =
            ProgramFolder(AppFolder()) + L"\\Samples\\Favourites\\" + language.SampleFolder;
        MakeFolders(favourites + L'\\' + language.Submenu);
        if (Exists(samples))
            return CopyFolder(samples, favourites)
                       ? testing::AssertionSuccess()
                       : testing::AssertionFailure() << "samples cannot be copied";
        if (IsPackage())
            return testing::AssertionFailure() << "the package has no samples";
        WriteUtf16(favourites + L'\\' + language.Submenu + L'\\' + language.Entry,
                   L"folderjump=0,%USERPROFILE%\\Downloads\r\n");
        return testing::AssertionSuccess();
    }

    std::wstring home_;
    std::wstring oneDrive_;
    std::wstring bar_;
    bool ownsBar_ = false;
};

TEST_P(NewUser, CopiesToTheFolderOfAFavouriteFromASubmenu) {
    const std::wstring downloads = Tree().MakeFolder(L"home\\Downloads");
    const std::wstring item = Tree().WriteFile(L"work\\メモ.txt", "for a new user");
    ASSERT_TRUE(OpensWith(item));
    ASSERT_TRUE(TakeForeground(Shown().Window()));
    RemoteMenu menu(Shown().Window());
    Shown().Click(kFavourites);
    ASSERT_TRUE(menu.WaitUntilOpen());
    const std::array<std::wstring, 2> path = {GetParam().Language.Submenu, GetParam().Language.Entry};
    ASSERT_TRUE(menu.Choose(path));
    EXPECT_TRUE(WaitUntil([&] { return Shown().Destination() == downloads + L"\\"; }))
        << base::ToUtf8(Shown().Destination());
    Shown().Click(kStart);
    EXPECT_TRUE(EndsWithoutFault());
    EXPECT_EQ(ReadBytes(downloads + L"\\メモ.txt"), "for a new user");
    EXPECT_EQ(ReadBytes(item), "for a new user") << "the source";
}

TEST_P(NewUser, ReadsTheInstalledPageByF1) {
    ASSERT_TRUE(OpensWith(Tree().WriteFile(L"work\\a.txt", "a")));
    {
        const BrowserStandIn browser(Tree().Path(L"opened.txt"));
        ASSERT_TRUE(Shown().FocusDestination());
        PressKey(VK_F1);
        const std::wstring page = browser.WaitForPage();
        EXPECT_TRUE(page.starts_with(ProgramFolder(AppFolder()) + L"\\")) << base::ToUtf8(page);
        EXPECT_NE(ReadBytes(page).find(GetParam().Language.PageMark), std::string::npos)
            << base::ToUtf8(page);
    }
    EXPECT_TRUE(CancelEnds());
}

INSTANTIATE_TEST_SUITE_P(Starts, NewUser, testing::ValuesIn(kFirstStarts), NameOfCase);

}  // namespace
}  // namespace ferry::e2e
