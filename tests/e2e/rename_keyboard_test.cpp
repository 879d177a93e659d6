// The rename dialog by the keyboard alone, in Japanese and in English.
#include <algorithm>
#include <map>
#include <vector>

#include "e2e/driver/message_box.h"
#include "e2e/run_fixture.h"

namespace ferry::e2e {
namespace {

// The controls that take the keyboard, in reading order.
constexpr int kTabStops[] = {kNewName, kExtension, 1100, 1170, 1102, 1171, 1108, 1173,        1172,   1101,
                             1105,     1106,       1103, 1104, 1107, 1030, 1031, int{kStart}, kCancel};

/// The controls of a dialog with their texts, in window order.
std::vector<std::pair<int, std::wstring>> ShownTexts(const RemoteDialog& dialog) {
    std::vector<std::pair<int, std::wstring>> texts;
    for (HWND control = GetWindow(dialog.Window(), GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(control);
        if (dialog.IsShown(id) && ClassOf(control) != L"Edit" && ClassOf(control) != L"ComboBox")
            texts.emplace_back(id, dialog.Text(id));
    }
    return texts;
}

/// The letter behind the "&" of `text`, or nothing.
wchar_t MnemonicOf(const std::wstring& text) {
    const std::size_t at = text.find(L'&');
    return at == std::wstring::npos ? L'\0' : static_cast<wchar_t>(text.at(at + 1) & ~0x20);
}

class RenameByKeyboard : public AskingRun, public testing::WithParamInterface<const wchar_t*> {
protected:
    void SetUp() override {
        AskingRun::SetUp();
        if (IsSkipped())
            return;
        WriteText(kHostKey, L"NLS", GetParam());
        ASSERT_TRUE(Start({Colliding(L"a b.txt")}, kRenameIncoming));
        rename_ = Rename();
        ASSERT_TRUE(rename_.IsOpen());
        ASSERT_TRUE(HasFocus(kNewName));
    }

    bool HasFocus(int id) const { return rename_.WaitForFocus(rename_.Control(id)); }

    /// Presses Alt with the mnemonic of control `id`.
    void PressMnemonicOf(int id) const {
        PressChord({VK_MENU, static_cast<WORD>(MnemonicOf(rename_.Text(id)))});
    }

    bool NamesBecome(const std::wstring& names) const {
        return WaitUntil([&] { return NamesIn(rename_) == names; });
    }

    RemoteDialog rename_;
};

TEST_P(RenameByKeyboard, TabReachesEveryControlInReadingOrderAndBack) {
    for (const int id : kTabStops) {
        ASSERT_TRUE(HasFocus(id)) << id;
        PressKey(VK_TAB);
    }
    ASSERT_TRUE(HasFocus(kNewName));
    PressChord({VK_SHIFT, VK_TAB});
    EXPECT_TRUE(HasFocus(kCancel));
}

TEST_P(RenameByKeyboard, NoMnemonicStandsTwice) {
    std::map<wchar_t, int> seen;
    for (const auto& [id, text] : ShownTexts(rename_)) {
        const wchar_t mnemonic = MnemonicOf(text);
        if (mnemonic != L'\0') {
            EXPECT_TRUE(seen.emplace(mnemonic, id).second) << static_cast<char>(mnemonic);
        }
    }
    EXPECT_EQ(seen.size(), 17U);
}

TEST_P(RenameByKeyboard, TheLabelsLeadToTheirFields) {
    const std::pair<int, int> fields[] = {{1900, kNewName}, {1350, kExtension}, {1141, 1170},
                                          {1142, 1171},     {1144, 1173},       {1143, 1172}};
    for (auto field = std::rbegin(fields); field != std::rend(fields); ++field) {
        PressMnemonicOf(field->first);
        EXPECT_TRUE(HasFocus(field->second)) << field->first;
    }
}

TEST_P(RenameByKeyboard, TheMnemonicsOfTheToolsWork) {
    PressMnemonicOf(kUpperCase);
    ASSERT_TRUE(NamesBecome(L"A B|TXT"));
    PressMnemonicOf(1104);
    ASSERT_TRUE(NamesBecome(L"a b|txt"));
    PressMnemonicOf(1107);
    ASSERT_TRUE(NamesBecome(L"A B|txt"));
    PressMnemonicOf(1031);
    ASSERT_TRUE(NamesBecome(L"a b|txt"));
    PressMnemonicOf(kSplitFiles);
    ASSERT_TRUE(NamesBecome(L"a b.txt|"));
}

TEST_P(RenameByKeyboard, AToolLeavesTheKeyboardWhereTheNextWordIsTyped) {
    PressKey(VK_END);
    PressMnemonicOf(1102);
    ASSERT_TRUE(WaitUntil([this] { return rename_.Text(kNewName).size() == 3 + 8; }));
    ASSERT_TRUE(HasFocus(kNewName));
    const std::wstring withTime = rename_.Text(kNewName);
    TypeText(L" x");
    ASSERT_TRUE(NamesBecome(withTime + L" x|txt"));
    PressKey(VK_RETURN);
    ASSERT_TRUE(Ends());
    EXPECT_EQ(At(withTime + L" x.txt"), Incoming(L"a b.txt"));
}

TEST_P(RenameByKeyboard, EnterOnAToolPressesTheToolAndNotRename) {
    ASSERT_TRUE(rename_.Focus(rename_.Control(kUpperCase)));
    PressKey(VK_RETURN);
    ASSERT_TRUE(NamesBecome(L"A B|TXT"));
    EXPECT_TRUE(IsWindowVisible(rename_.Window()));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Ends());
    EXPECT_EQ(NamesBelow(L"先"), L"a b.txt");
}

TEST_P(RenameByKeyboard, EveryShownTextIsInTheLanguageOfTheUser) {
    const bool isEnglish = std::wstring_view(GetParam()) == L".en-US";
    for (const auto& [id, text] : ShownTexts(rename_)) {
        const bool hasJapanese =
            std::any_of(text.begin(), text.end(), [](wchar_t unit) { return unit >= 0x3000; });
        if (id != kCancel) {
            EXPECT_NE(hasJapanese, isEnglish) << id;
        }
    }
    EXPECT_EQ(rename_.Title(), isEnglish ? L"Rename the new item" : L"名前を変更する(R)");
}

std::string NameOfLanguage(const testing::TestParamInfo<const wchar_t*>& info) {
    return info.index == 0 ? "Japanese" : "English";
}

INSTANTIATE_TEST_SUITE_P(Languages, RenameByKeyboard, testing::Values(L".ja-JP", L".en-US"), NameOfLanguage);

class CollisionByKeyboard : public AskingRun {};

TEST_F(CollisionByKeyboard, TheKeysReachEveryChoiceAndEveryButton) {
    ASSERT_TRUE(Start({Colliding(L"a.txt")}, kAskEach));
    const RemoteDialog question = Collision();
    ASSERT_TRUE(question.WaitForFocus(question.Control(1000)));
    PressKey(VK_TAB);
    for (int policy = 0; policy <= 6; ++policy) {
        ASSERT_TRUE(question.WaitForFocus(question.Control(ChoiceControl(policy))));
        EXPECT_TRUE(WaitUntil([&] { return question.IsChecked(ChoiceControl(policy)); }));
        if (policy < 6)
            PressKey(VK_DOWN);
    }
    for (const int button : {int{kStart}, int{kCancel}, kForAll, kStopAll}) {
        PressKey(VK_TAB);
        ASSERT_TRUE(question.WaitForFocus(question.Control(button))) << button;
    }
    PressChord({VK_MENU, 'A'});
    EXPECT_TRUE(Ends());
    EXPECT_EQ(At(L"a.txt"), Existing(L"a.txt"));
}

}  // namespace
}  // namespace ferry::e2e
