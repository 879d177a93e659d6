// The confirmation dialog by the keyboard alone, and the names by which a screen reader calls its fields.
#include <algorithm>
#include <map>

#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

constexpr int kTabListLabel = 1904;

struct KeyboardCase {
    const char* Name;
    const wchar_t* Language;
    bool IsList;
    bool IsIndividual;
};

class DialogByKeyboard : public FerryTest, public testing::WithParamInterface<KeyboardCase> {
protected:
    void SetUp() override {
        WriteText(kHostKey, L"NLS", GetParam().Language);
        WriteNumber(kProgramKey, L"Mode", GetParam().IsIndividual ? 1 : 0);
        const std::wstring file = Tree().WriteFile(L"元\\a.txt", "a");
        RunPlan plan = Plan({file, Tree().WriteFile(L"元\\b.txt", "b")}, {Tree().MakeFolder(L"先")});
        if (GetParam().IsList) {
            plan.Switches = {L"/t"};
        }
        ASSERT_TRUE(Open(plan));
        ASSERT_TRUE(Dialog().FocusDestination());
    }

    /// The controls that take the keyboard, in the order of Tab; a group of choices has one stop.
    std::vector<int> TabStops() const {
        std::vector<int> stops = {kSourceList, kDestination, kBrowse};
        if (GetParam().IsList) {
            stops.insert(stops.end(), {kFavourites, kTabFoldersList});
        } else {
            stops.insert(stops.end(), {kTabFoldersButton, kFavourites});
        }
        stops.push_back(kCopy);
        stops.push_back(GetParam().IsIndividual ? kIndividual : kBatch);
        stops.push_back(kOpenDestination);
        if (GetParam().IsIndividual) {
            stops.insert(stops.end(), {PolicyControl(0), kPrecision});
        } else {
            stops.push_back(kNoAsk);
        }
        stops.insert(stops.end(), {kStart, kCancel});
        return stops;
    }

    bool HasFocus(int id) const {
        return Dialog().WaitForFocus(id == kDestination ? Dialog().DestinationEdit() : Dialog().Control(id));
    }

    std::vector<HWND> ShownControls() const {
        std::vector<HWND> controls;
        for (HWND control = GetWindow(Dialog().Window(), GW_CHILD); control != nullptr;
             control = GetWindow(control, GW_HWNDNEXT)) {
            if (Dialog().IsShown(GetDlgCtrlID(control)))
                controls.push_back(control);
        }
        return controls;
    }

    void PressMnemonicOf(int id) const {
        PressChord({VK_MENU, static_cast<WORD>(MnemonicOf(Dialog().Text(id)))});
    }

    static wchar_t MnemonicOf(const std::wstring& text) {
        const std::size_t at = text.find(L'&');
        return at == std::wstring::npos ? L'\0' : static_cast<wchar_t>(text.at(at + 1) & ~0x20);
    }
};

// Tab completes in the destination, so the way forward ends there; the way back leads through everything.
TEST_P(DialogByKeyboard, ShiftTabReachesEveryControlAndComesAround) {
    const std::vector<int> stops = TabStops();
    auto at = std::ranges::find(stops, int{kDestination});
    for (std::size_t step = 0; step <= stops.size(); ++step) {
        ASSERT_TRUE(HasFocus(*at)) << *at;
        PressChord({VK_SHIFT, VK_TAB});
        at = at == stops.begin() ? stops.end() - 1 : at - 1;
    }
}

TEST_P(DialogByKeyboard, TabReachesEveryControlBehindTheDestination) {
    const std::vector<int> stops = TabStops();
    PressMnemonicOf(kMove);
    ASSERT_TRUE(HasFocus(kMove));
    PressMnemonicOf(kCopy);
    for (auto at = std::ranges::find(stops, int{kCopy}); at != stops.end(); ++at) {
        ASSERT_TRUE(HasFocus(*at)) << *at;
        PressKey(VK_TAB);
    }
    ASSERT_TRUE(HasFocus(kSourceList));
    PressKey(VK_TAB);
    EXPECT_TRUE(HasFocus(kDestination));
}

TEST_P(DialogByKeyboard, TheArrowsReachEveryChoiceOfAGroup) {
    std::vector<std::vector<int>> groups = {{kCopy, kMove}};
    if (GetParam().IsIndividual) {
        std::vector<int> policies;
        for (int policy = 0; policy <= 7; ++policy) {
            policies.push_back(PolicyControl(policy));
        }
        groups.push_back(policies);
    }
    for (const std::vector<int>& group : groups) {
        PressMnemonicOf(group.front());
        for (const int id : group) {
            ASSERT_TRUE(HasFocus(id)) << id;
            EXPECT_TRUE(WaitUntil([&] { return Dialog().IsChecked(id); })) << id;
            PressKey(VK_DOWN);
        }
    }
}

TEST_P(DialogByKeyboard, NoMnemonicStandsTwice) {
    std::map<wchar_t, int> seen;
    for (const HWND control : ShownControls()) {
        const wchar_t mnemonic = MnemonicOf(RemoteText(control));
        if (mnemonic != L'\0') {
            EXPECT_TRUE(seen.emplace(mnemonic, GetDlgCtrlID(control)).second) << static_cast<char>(mnemonic);
        }
    }
    EXPECT_EQ(seen.size(), GetParam().IsIndividual ? 16U : 9U);
}

TEST_P(DialogByKeyboard, TheLabelsLeadToTheirFields) {
    PressMnemonicOf(kMove);
    ASSERT_TRUE(HasFocus(kMove));
    PressMnemonicOf(1900);
    EXPECT_TRUE(HasFocus(kDestination));
    if (GetParam().IsList) {
        EXPECT_EQ(Dialog().Text(kTabListLabel), Dialog().Text(kTabFoldersButton));
        PressMnemonicOf(kTabListLabel);
        EXPECT_TRUE(HasFocus(kTabFoldersList));
    } else {
        EXPECT_FALSE(Dialog().IsShown(kTabListLabel));
    }
}

// A screen reader calls a field by the text before it, and everything else by its own.
TEST_P(DialogByKeyboard, EveryControlHasAName) {
    std::wstring previousClass;
    std::wstring previousText;
    int fields = 0;
    for (const HWND control : ShownControls()) {
        const std::wstring type = ClassOf(control);
        const std::wstring text = RemoteText(control);
        if (type == L"Static" || type == L"Button") {
            EXPECT_NE(text, L"") << GetDlgCtrlID(control);
        } else {
            EXPECT_EQ(previousClass, L"Static") << GetDlgCtrlID(control);
            EXPECT_FALSE(previousText.empty() || previousText.front() == L'(') << GetDlgCtrlID(control);
            ++fields;
        }
        previousClass = type;
        previousText = text;
    }
    EXPECT_EQ(fields, 2 + (GetParam().IsList ? 1 : 0) + (GetParam().IsIndividual ? 1 : 0));
}

TEST_P(DialogByKeyboard, EscapeEndsItFromAnywhere) {
    PressMnemonicOf(kMove);
    ASSERT_TRUE(HasFocus(kMove));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(EndsWell());
}

std::string NameOfLayout(const testing::TestParamInfo<KeyboardCase>& info) {
    return info.param.Name;
}

INSTANTIATE_TEST_SUITE_P(Layouts, DialogByKeyboard,
                         testing::Values(KeyboardCase{"ButtonBatch", L".ja-JP", false, false},
                                         KeyboardCase{"ListBatch", L".ja-JP", true, false},
                                         KeyboardCase{"ButtonIndividual", L".ja-JP", false, true},
                                         KeyboardCase{"ListIndividualEnglish", L".en-US", true, true}),
                         NameOfLayout);

}  // namespace
}  // namespace ferry::e2e
