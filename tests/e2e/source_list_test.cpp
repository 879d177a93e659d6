// Finding an item of the list by typing.
#include <windows.h>
// After windows.h, which it builds on.
#include <commctrl.h>

#include "base/utf16.h"
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

class SourceList : public FerryTest {
protected:
    void SetUp() override {
        std::vector<std::wstring> items;
        for (const wchar_t* name :
             {L"apple", L"Banana", L"berry", L"cherry 1", L"資料", L"2024", L"bee", L"CHERRY 2"}) {
            items.push_back(Tree().WriteFile(name, base::ToUtf8(name)));
        }
        ASSERT_TRUE(Open(Plan(items)));
        list_ = Dialog().Control(kSourceList);
        ASSERT_TRUE(Dialog().Focus(list_));
    }

    int Item(UINT state) const {
        return static_cast<int>(Ask(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), state));
    }

    /// The name of the one item that has the focus and the selection; empty when they differ.
    std::wstring Current() const {
        const int focused = Item(LVNI_FOCUSED);
        return focused >= 0 && focused == Item(LVNI_SELECTED) ? Dialog().SourceText(focused) : L"";
    }

    testing::AssertionResult Becomes(const std::wstring& name) const {
        if (WaitUntil([&] { return Current() == name; })) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << testing::PrintToString(Current());
    }

    HWND list_ = nullptr;
};

TEST_F(SourceList, TypingFindsTheFirstNameThatBeginsSo) {
    PressKey('C');
    EXPECT_TRUE(Becomes(L"cherry 1"));
}

TEST_F(SourceList, MoreKeysMakeTheSearchMoreExact) {
    PressKey('B');
    PressKey('E');
    EXPECT_TRUE(Becomes(L"berry"));
    PressKey('E');
    EXPECT_TRUE(Becomes(L"bee"));
}

TEST_F(SourceList, TheSameKeyStepsThroughTheNamesAndAroundTheEnd) {
    PressKey('B');
    EXPECT_TRUE(Becomes(L"Banana"));
    PressKey('B');
    EXPECT_TRUE(Becomes(L"berry"));
    PressKey('B');
    EXPECT_TRUE(Becomes(L"bee"));
    PressKey('B');
    EXPECT_TRUE(Becomes(L"Banana"));
}

TEST_F(SourceList, AMoreExactTextKeepsAnItemThatStillMatches) {
    PressKey('C');
    ASSERT_TRUE(Becomes(L"cherry 1"));
    PressKey('H');
    EXPECT_TRUE(StillHolds([&] { return Current() == L"cherry 1"; }));
    PressKey(VK_HOME);
    PressKey('C');
    PressKey('C');
    ASSERT_TRUE(Becomes(L"CHERRY 2"));
    PressKey('H');
    EXPECT_TRUE(StillHolds([&] { return Current() == L"CHERRY 2"; }));
}

TEST_F(SourceList, AFirstKeyKeepsTheFocusedItemWhenThatMatches) {
    PressKey('B');
    PressKey('B');
    ASSERT_TRUE(Becomes(L"berry"));
    Sleep(1300);
    PressKey('B');
    EXPECT_TRUE(StillHolds([&] { return Current() == L"berry"; }));
    PressKey('B');
    EXPECT_TRUE(Becomes(L"bee"));
}

TEST_F(SourceList, DigitsAreTypedToo) {
    PressKey('2');
    PressKey('0');
    EXPECT_TRUE(Becomes(L"2024"));
}

TEST_F(SourceList, APauseBeginsAnew) {
    PressKey('B');
    EXPECT_TRUE(Becomes(L"Banana"));
    Sleep(1300);
    PressKey('C');
    EXPECT_TRUE(Becomes(L"cherry 1"));
}

TEST_F(SourceList, AnotherKeyBeginsAnew) {
    PressKey('C');
    EXPECT_TRUE(Becomes(L"cherry 1"));
    PressKey(VK_HOME);
    EXPECT_TRUE(Becomes(L"apple"));
    PressKey('B');
    EXPECT_TRUE(Becomes(L"Banana"));
}

TEST_F(SourceList, ANameThatIsNotThereMovesNothing) {
    PressKey('B');
    EXPECT_TRUE(Becomes(L"Banana"));
    PressKey('X');
    EXPECT_TRUE(StillHolds([&] { return Current() == L"Banana"; }));
}

TEST_F(SourceList, LettersWithControlAreNoTyping) {
    PressKey('B');
    EXPECT_TRUE(Becomes(L"Banana"));
    PressChord({VK_CONTROL, 'C'});
    EXPECT_TRUE(StillHolds([&] { return Current() == L"Banana"; }));
}

}  // namespace
}  // namespace ferry::e2e
