// A dialog whose destination is typed with real keys, in button mode and in list mode.
#pragma once

#include "e2e/fixture.h"

namespace ferry::e2e {

/// The parameter says whether the dialog stands in list mode.
class CompletionTest : public FerryTest, public testing::WithParamInterface<bool> {
protected:
    void SetUp() override {
        file_ = Tree().WriteFile(L"source\\a.txt", "a");
        Tree().MakeFolder(L"source\\beside");
        for (const wchar_t* name : {L"beta", L"Alpha", L"My alphabet", L"gamma"}) {
            Tree().MakeFolder(std::wstring(L"many\\") + name);
        }
        Tree().WriteFile(L"many\\alpha.txt", "a file");
        Tree().MakeFolder(L"single\\only one");
        many_ = Tree().Path(L"many\\");
        ASSERT_TRUE(OpenDialog());
    }

    testing::AssertionResult OpenDialog() {
        RunPlan plan = Plan({file_}, {Tree().MakeFolder(L"tab")});
        if (GetParam()) {
            plan.Switches = {L"/t"};
        }
        return Open(plan);
    }

    /// Types `text` into the empty destination field.
    bool Type(const std::wstring& text) const { return Dialog().TypeDestination(text); }

    bool ListBecomes(bool isOpen) const {
        return WaitUntil([&] { return Dialog().IsDestinationListOpen() == isOpen; });
    }
    bool SelectionBecomes(int index) const {
        return WaitUntil([&] { return Dialog().DestinationListSelection() == index; });
    }

    /// The field has this text, its list is closed, and both stay so.
    bool StaysClosedWith(const std::wstring& text) const {
        return StillHolds(
            [&] { return Dialog().Destination() == text && !Dialog().IsDestinationListOpen(); });
    }

    /// Opens the list of the folders in many_.
    bool OpenList() const {
        if (!Type(many_))
            return false;
        PressKey(VK_DOWN);
        return ListBecomes(true);
    }

    bool IsMenuOpen() const {
        GUITHREADINFO info = {};
        info.cbSize = sizeof(info);
        GetGUIThreadInfo(GetWindowThreadProcessId(Dialog().Window(), nullptr), &info);
        return (info.flags & (GUI_INMENUMODE | GUI_SYSTEMMENUMODE | GUI_POPUPMENUMODE)) != 0;
    }

    std::wstring file_, many_;
};

inline std::string ModeName(const testing::TestParamInfo<bool>& mode) {
    return mode.param ? "ListMode" : "ButtonMode";
}

}  // namespace ferry::e2e
