// All dialogs, in both languages and every layout: what a screen reader calls each control, and where
// the letters behind Alt lead.
#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/busy_dialog.h"
#include "dialogs/ferry_dialog.h"
#include "dialogs/file_mode_dialog.h"
#include "dialogs/input_dialog.h"
#include "dialogs/report_dialog.h"
#include "framework/common_controls.h"
#include "ids.h"
#include "windows/dialog_world_win32.h"
#include "windows/support_win32.h"

namespace ferry::dialogs {
namespace {

enum class Language { Japanese, English };

struct Layout {
    const char* Name;
    int Template;
    Language In;
    bool IsList = false;
    bool IsIndividual = false;
};

using Letters = std::map<wchar_t, int>;

/// What the confirmation dialog shows in both modes.
Letters LettersOfBothModes(Language language) {
    if (language == Language::English) {
        return {{L'D', IDC_DESTINATION}, {L'V', IDC_FAVOURITES}, {L'C', IDC_COPY},       {L'M', IDC_MOVE},
                {L'B', IDC_BATCH},       {L'I', IDC_INDIVIDUAL}, {L'O', IDC_OPEN_TARGET}};
    }
    return {{L'Z', IDC_DESTINATION}, {L'X', IDC_FAVOURITES}, {L'P', IDC_COPY},       {L'M', IDC_MOVE},
            {L'E', IDC_BATCH},       {L'K', IDC_INDIVIDUAL}, {L'J', IDC_OPEN_TARGET}};
}

Letters LettersOfPolicies(Language language) {
    if (language == Language::English) {
        return {{L'N', IDC_POLICY_IF_SOURCE_IS_NEWER},   {L'L', IDC_POLICY_IF_SOURCE_IS_OLDER},
                {L'S', IDC_POLICY_KEEP_EXISTING},        {L'W', IDC_POLICY_OVERWRITE},
                {L'R', IDC_POLICY_RENAME_INCOMING},      {L'E', IDC_POLICY_RENAME_EXISTING},
                {L'U', IDC_POLICY_RENAME_AUTOMATICALLY}, {L'K', IDC_POLICY_ASK_EACH}};
    }
    return {{L'N', IDC_POLICY_IF_SOURCE_IS_NEWER},   {L'L', IDC_POLICY_IF_SOURCE_IS_OLDER},
            {L'F', IDC_POLICY_KEEP_EXISTING},        {L'U', IDC_POLICY_OVERWRITE},
            {L'R', IDC_POLICY_RENAME_INCOMING},      {L'B', IDC_POLICY_RENAME_EXISTING},
            {L'W', IDC_POLICY_RENAME_AUTOMATICALLY}, {L'D', IDC_POLICY_ASK_EACH}};
}

/// Which control each letter of the confirmation dialog leads to.
Letters LettersOfConfirmation(const Layout& layout) {
    Letters letters = LettersOfBothModes(layout.In);
    letters.emplace(L'T', layout.IsList ? IDC_TAB_LIST : IDC_OTHER_TABS);
    if (layout.IsIndividual) {
        letters.merge(LettersOfPolicies(layout.In));
    } else {
        letters.emplace(L'A', IDC_NO_ASK);
    }
    return letters;
}

Letters LettersOfRename(Language language) {
    if (language == Language::English) {
        return {{L'N', IDC_NEW_NAME},
                {L'E', IDC_EXTENSION},
                {L'D', IDC_INSERT_DATE},
                {L'F', IDC_DATE_FORMATS},
                {L'T', IDC_INSERT_TIME},
                {L'M', IDC_TIME_FORMATS},
                {L'W', IDC_INSERT_WEEKDAY},
                {L'Y', IDC_WEEKDAY_FORMATS},
                {L'S', IDC_DATE_SOURCES},
                {L'P', IDC_REMOVE_COPY_MARKS},
                {L'L', IDC_REMOVE_LEADING_DIGITS},
                {L'R', IDC_REMOVE_TRAILING_DIGITS},
                {L'U', IDC_UPPER_CASE},
                {L'O', IDC_LOWER_CASE},
                {L'C', IDC_CAPITALISE},
                {L'X', IDC_SPLIT_FILES},
                {L'I', IDC_SPLIT_FOLDERS}};
    }
    return {{L'F', IDC_NEW_NAME},
            {L'E', IDC_EXTENSION},
            {L'D', IDC_INSERT_DATE},
            {L'T', IDC_DATE_FORMATS},
            {L'S', IDC_INSERT_TIME},
            {L'R', IDC_TIME_FORMATS},
            {L'W', IDC_INSERT_WEEKDAY},
            {L'Y', IDC_WEEKDAY_FORMATS},
            {L'U', IDC_DATE_SOURCES},
            {L'P', IDC_REMOVE_COPY_MARKS},
            {L'M', IDC_REMOVE_LEADING_DIGITS},
            {L'L', IDC_REMOVE_TRAILING_DIGITS},
            {L'G', IDC_UPPER_CASE},
            {L'H', IDC_LOWER_CASE},
            {L'J', IDC_CAPITALISE},
            {L'X', IDC_SPLIT_FILES},
            {L'Z', IDC_SPLIT_FOLDERS}};
}

/// The same for any of the dialogs.
Letters LettersOf(const Layout& layout) {
    const bool isEnglish = layout.In == Language::English;
    switch (layout.Template) {
        case IDD_BUSY:
            return {{isEnglish ? L'S' : L'C', IDCANCEL}};
        case IDD_FILE_MODE:
            return isEnglish ? Letters{{L'A', IDC_APPLY_TO_ALL}, {L'S', IDC_STOP_ALL}}
                             : Letters{{L'O', IDC_APPLY_TO_ALL}, {L'A', IDC_STOP_ALL}};
        case IDD_REPORT:
            return {{L'C', IDC_REPORT_COPY}};
        case IDD_INPUT:
            return LettersOfRename(layout.In);
        default:
            return LettersOfConfirmation(layout);
    }
}

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

/// The letter behind the "&" of `text`, or nothing.
wchar_t LetterIn(const std::wstring& text) {
    const std::size_t at = text.find(L'&');
    return at == std::wstring::npos ? L'\0' : static_cast<wchar_t>(text.at(at + 1) & ~0x20);
}

/// Something that can be said: punctuation, or a number alone, is no name.
bool IsSayable(const std::wstring& text) {
    return std::any_of(text.begin(), text.end(),
                       [](wchar_t unit) { return std::iswalpha(static_cast<wint_t>(unit)) != 0; });
}

class DialogAccess : public testing::TestWithParam<Layout> {
protected:
    void SetUp() override {
        if (GetParam().In == Language::English) {
            world_.Store.HostTexts[L"NLS"] = L".en-US";
        }
        world_.Store.Numbers[L"Mode"] = GetParam().IsIndividual ? 1 : 0;
        dialog_ = Make();
        ASSERT_TRUE(dialog_->Create(nullptr));
        ShowWindow(Window(), SW_SHOW);
        SetForegroundWindow(Window());
        constexpr UINT_PTR kSubclassId = 2;
        ASSERT_TRUE(framework::CommonControls::Get().SetSubclass(Window(), &NoteClick, kSubclassId,
                                                                 reinterpret_cast<DWORD_PTR>(this)));
    }

    HWND Window() const { return dialog_->Handle(); }

    /// The visible controls in window order, which is the reading order.
    std::vector<HWND> Shown() const {
        std::vector<HWND> controls;
        for (HWND control = GetWindow(Window(), GW_CHILD); control != nullptr;
             control = GetWindow(control, GW_HWNDNEXT)) {
            if (test::IsShown(Window(), GetDlgCtrlID(control))) {
                controls.push_back(control);
            }
        }
        return controls;
    }

    /// Presses Alt with a letter, wherever the focus is.
    bool PressLetter(wchar_t letter) {
        clicked_ = 0;
        MSG message{GetFocus(), WM_SYSCHAR, letter, 1 << 29, 0, {}};
        return dialog_->HandleDialogMessage(message);
    }

    bool HasFocus(int id) const {
        const HWND control = GetDlgItem(Window(), id);
        return GetFocus() == control || IsChild(control, GetFocus());
    }

    int clicked_ = 0;

private:
    std::unique_ptr<framework::CDialog> Make() {
        switch (GetParam().Template) {
            case IDD_BUSY: {
                auto busy = std::make_unique<CDlgBusy>(world_.Services().Localiser);
                busy->SetCancellable(true);
                busy->SetFirstLine(L"copy");
                busy->SetSecondLine(L"a.txt");
                return busy;
            }
            case IDD_FILE_MODE:
                return std::make_unique<CDlgFileMode>(world_.Services(), nullptr, L"a.txt");
            case IDD_REPORT:
                left_.Add(L"C:\\a.txt", transfer::LeftReason::FolderNotMade, 5);
                return std::make_unique<CDlgReport>(world_.Services().Localiser, nullptr, left_);
            case IDD_INPUT:
                test::WriteBytes(folder_ / L"a.txt", {});
                return std::make_unique<CDlgInput>(world_.Services(), nullptr, L"caption",
                                                   folder_ / L"a.txt");
            default:
                world_.Services().Host.SelectedItems.Append(L"C:\\a.txt");
                world_.Services().Host.TabFolders.Append(L"C:\\tab");
                return std::make_unique<CFerryDlg>(
                    world_.Services(), StartOptions{.TabListMode = GetParam().IsList ? 1 : 0}, nullptr);
        }
    }

    /// Takes the clicks on buttons away from the dialog, which would do what they ask for.
    static LRESULT CALLBACK NoteClick(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                      DWORD_PTR test) {
        if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED && lParam != 0) {
            reinterpret_cast<DialogAccess*>(test)->clicked_ = LOWORD(wParam);
            return 0;
        }
        return framework::CommonControls::Get().CallNext(window, message, wParam, lParam);
    }

    test::DialogWorld world_;
    test::TempFolder folder_;
    transfer::Leftovers left_;
    std::unique_ptr<framework::CDialog> dialog_;
};

TEST_P(DialogAccess, ItIsInTheLanguageOfTheUser) {
    const std::map<int, int> translated = {{IDD_FERRY, IDC_LIST_LABEL},
                                           {IDD_BUSY, IDCANCEL},
                                           {IDD_INPUT, IDC_RENAME_PROMPT},
                                           {IDD_REPORT, IDC_REPORT_COPY},
                                           {IDD_FILE_MODE, IDC_ITEM_NAME_LABEL}};
    const std::wstring text = test::TextOfControl(Window(), translated.at(GetParam().Template));
    const bool hasJapanese =
        std::any_of(text.begin(), text.end(), [](wchar_t unit) { return unit >= 0x3000; });
    EXPECT_EQ(hasJapanese, GetParam().In == Language::Japanese);
}

// A button, a radio button and a check box say their own text; everything else says the text before it. Only
// the browse button keeps its three dots: they follow the destination, whose name has just been said.
TEST_P(DialogAccess, EveryControlHasANameThatCanBeSaid) {
    HWND previous = nullptr;
    std::size_t named = 0;
    for (const HWND control : Shown()) {
        SCOPED_TRACE(GetDlgCtrlID(control));
        const std::wstring type = ClassOf(control);
        if (GetParam().Template == IDD_FERRY && GetDlgCtrlID(control) == IDC_BROWSE) {
            EXPECT_EQ(test::TextOfWindow(control), L"...");
            EXPECT_EQ(GetDlgCtrlID(previous), IDC_DESTINATION);
        } else if (type == L"Button") {
            EXPECT_TRUE(IsSayable(test::TextOfWindow(control)));
            ++named;
        } else if (type != L"Static") {
            EXPECT_TRUE(previous != nullptr && ClassOf(previous) == L"Static" &&
                        IsSayable(test::TextOfWindow(previous)));
            ++named;
        }
        previous = control;
    }
    const std::map<int, std::size_t> few = {{IDD_BUSY, 2}, {IDD_REPORT, 3}};
    const auto itsCount = few.find(GetParam().Template);
    EXPECT_GE(named, itsCount == few.end() ? 11U : itsCount->second);
}

TEST_P(DialogAccess, EveryLetterStandsOnce) {
    const Letters expected = LettersOf(GetParam());
    Letters seen;
    for (const HWND control : Shown()) {
        if (const wchar_t letter = LetterIn(test::TextOfWindow(control)); letter != L'\0') {
            EXPECT_TRUE(seen.emplace(letter, GetDlgCtrlID(control)).second) << static_cast<char>(letter);
        }
    }
    EXPECT_EQ(seen.size(), expected.size());
}

TEST_P(DialogAccess, EveryLetterLeadsToItsControl) {
    for (const auto& [letter, id] : LettersOf(GetParam())) {
        SCOPED_TRACE(static_cast<char>(letter));
        const HWND control = GetDlgItem(Window(), id);
        if (!IsWindowEnabled(control)) {
            continue;
        }
        EXPECT_TRUE(PressLetter(letter));
        if (ClassOf(control) == L"Button") {
            EXPECT_EQ(clicked_, id);
        } else {
            EXPECT_EQ(clicked_, 0);
            EXPECT_TRUE(HasFocus(id));
        }
    }
}

std::string NameOfLayout(const testing::TestParamInfo<Layout>& info) {
    return info.param.Name + std::string(info.param.In == Language::Japanese ? "Japanese" : "English");
}

std::vector<Layout> Layouts() {
    std::vector<Layout> layouts;
    for (const Language language : {Language::Japanese, Language::English}) {
        layouts.insert(layouts.end(), {{"ButtonBatch", IDD_FERRY, language},
                                       {"ButtonIndividual", IDD_FERRY, language, false, true},
                                       {"ListBatch", IDD_FERRY, language, true},
                                       {"ListIndividual", IDD_FERRY, language, true, true},
                                       {"Progress", IDD_BUSY, language},
                                       {"Rename", IDD_INPUT, language},
                                       {"Collision", IDD_FILE_MODE, language},
                                       {"Report", IDD_REPORT, language}});
    }
    return layouts;
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DialogAccess, testing::ValuesIn(Layouts()), NameOfLayout);

}  // namespace
}  // namespace ferry::dialogs
