// What the confirmation dialog shows at its start, and what drops and messages bring into it.
#include <windows.h>
#include <gtest/gtest.h>

#include "samplehost/host_block_writer.h"
#include "windows/drop_win32.h"
#include "windows/ferry_dialog_fixture_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dialogs {
namespace {

using Texts = std::vector<std::wstring>;

class DialogAtItsStart : public FerryDialogTest {
protected:
    bool IsChecked(int id) const { return IsDlgButtonChecked(Window(), id) == BST_CHECKED; }
    LRESULT Precision() const { return SendDlgItemMessageW(Window(), IDC_PRECISION, CB_GETCURSEL, 0, 0); }
};

TEST_F(DialogAtItsStart, OfAFreshUserCopiesInABatchAndAsks) {
    Open({L"C:\\a.txt"});
    for (const int id : {IDC_COPY, IDC_BATCH, IDC_POLICY_IF_SOURCE_IS_NEWER}) {
        EXPECT_TRUE(IsChecked(id)) << id;
    }
    for (const int id : {IDC_MOVE, IDC_INDIVIDUAL, IDC_NO_ASK, IDC_OPEN_TARGET}) {
        EXPECT_FALSE(IsChecked(id)) << id;
    }
    EXPECT_EQ(Precision(), 0);
    EXPECT_EQ(test::TextOfControl(Window(), IDC_PRECISION), L"標準");
}

TEST_F(DialogAtItsStart, ShowsEveryChoiceThatWasStored) {
    world_.Store.Numbers = {{L"Mode", 1}, {L"Name", 2}, {L"1", 1}, {L"OpenTarget", 1}, {L"TimeCmpType", 2}};
    Open({L"C:\\a.txt"}, StartOptions{.TransferMode = 1});
    for (const int id : {IDC_MOVE, IDC_INDIVIDUAL, IDC_POLICY_KEEP_EXISTING, IDC_NO_ASK, IDC_OPEN_TARGET}) {
        EXPECT_TRUE(IsChecked(id)) << id;
    }
    for (const int id : {IDC_COPY, IDC_BATCH, IDC_POLICY_IF_SOURCE_IS_NEWER}) {
        EXPECT_FALSE(IsChecked(id)) << id;
    }
    EXPECT_EQ(Precision(), 2);
}

TEST_F(DialogAtItsStart, ShowsTheControlsOfTheWayThatWillRunWhateverWasStored) {
    for (const std::uint32_t mode : {0U, 1U, 2U, 9U, 0xFFFFFFFFU}) {
        SCOPED_TRACE(mode);
        world_.Store.Numbers = {{L"Mode", mode}};
        Open({L"C:\\a.txt"});
        EXPECT_EQ(test::IsShown(Window(), IDC_NO_ASK), mode == 0);
        for (const int id :
             {IDC_POLICY_GROUP, IDC_PRECISION_LABEL, IDC_PRECISION, IDC_POLICY_KEEP_EXISTING}) {
            EXPECT_EQ(test::IsShown(Window(), id), mode != 0) << id;
        }
    }
}

TEST_F(DialogAtItsStart, EachStoredChoiceHasItsOwnControl) {
    world_.Store.Numbers = {{L"1", 1}};
    Open({L"C:\\a.txt"});
    EXPECT_TRUE(IsChecked(IDC_NO_ASK));
    EXPECT_FALSE(IsChecked(IDC_OPEN_TARGET));
    world_.Store.Numbers = {{L"OpenTarget", 1}};
    Open({L"C:\\a.txt"});
    EXPECT_FALSE(IsChecked(IDC_NO_ASK));
    EXPECT_TRUE(IsChecked(IDC_OPEN_TARGET));
}

TEST_F(DialogAtItsStart, OffersFavouritesAlsoWithoutSources) {
    for (const std::vector<std::wstring>& items : {std::vector<std::wstring>{L"C:\\a.txt"}, {}}) {
        Open(items);
        EXPECT_TRUE(test::IsShown(Window(), IDC_FAVOURITES));
        EXPECT_TRUE(IsWindowEnabled(GetDlgItem(Window(), IDC_FAVOURITES)));
    }
}

TEST_F(DialogAtItsStart, GivesTheListTheSystemsSmallIcons) {
    Open({L"C:\\a.txt"});
    const auto icons = reinterpret_cast<HIMAGELIST>(SendMessageW(List(), LVM_GETIMAGELIST, LVSIL_SMALL, 0));
    EXPECT_NE(icons, nullptr);
    EXPECT_EQ(icons, world_.Services().Shell.SmallIcons(GetDpiForWindow(List())));
}

class Arrivals : public FerryDialogTest {
protected:
    void Drop(const Texts& paths) {
        SendMessageW(Window(), WM_DROPFILES, reinterpret_cast<WPARAM>(test::MakeDrop(paths)), 0);
    }

    LRESULT Deliver(ULONG_PTR tag, std::wstring text) {
        text.push_back(L'\0');
        COPYDATASTRUCT data{tag, static_cast<DWORD>(text.size() * sizeof(wchar_t)), text.data()};
        return SendMessageW(Window(), WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
    }

    LRESULT DeliverBlock(const samplehost::BlockFields& fields) {
        return Deliver(samplehost::kBlockTag, samplehost::BlockUnits(fields));
    }

    LRESULT ItemCount() const { return SendMessageW(List(), LVM_GETITEMCOUNT, 0, 0); }

    Texts Tabs() {
        const base::TextList& tabs = world_.Services().Host.TabFolders;
        return {tabs.begin(), tabs.end()};
    }
};

TEST_F(Arrivals, TheListOfTheOtherTabsScrollsToTheEndOfTheLongestFolder) {
    Open({}, StartOptions{.TabListMode = 1});
    samplehost::BlockFields fields;
    fields.Items = {L"C:\\delivered"};
    fields.Tabs = {L"D:\\tab", L"D:\\" + std::wstring(200, L'w')};
    EXPECT_EQ(DeliverBlock(fields), TRUE);
    const HWND tabs = GetDlgItem(Window(), IDC_TAB_LIST);
    RECT area{};
    GetClientRect(tabs, &area);
    EXPECT_EQ(SendMessageW(tabs, LB_GETCOUNT, 0, 0), 2);
    EXPECT_GT(SendMessageW(tabs, LB_GETHORIZONTALEXTENT, 0, 0), area.right);
}

TEST_F(Arrivals, ABlockAfterADropIsLeftToTheDefaultHandling) {
    Open({});
    Drop({L"C:\\dropped"});
    samplehost::BlockFields fields;
    fields.Items = {L"C:\\delivered"};
    fields.Tabs = {L"D:\\tab"};
    EXPECT_EQ(DeliverBlock(fields), FALSE);
    EXPECT_EQ(ItemCount(), 1);
    EXPECT_EQ(ItemText(0), L"dropped");
    EXPECT_EQ(Tabs(), Texts{});
}

TEST_F(Arrivals, MessagesOfOtherKindsAreLeftToTheDefaultHandling) {
    Open({});
    for (const ULONG_PTR tag :
         {ULONG_PTR{0}, ULONG_PTR{99}, ULONG_PTR{101}, ULONG_PTR{254}, ULONG_PTR{256}}) {
        EXPECT_EQ(Deliver(tag, L"D:\\elsewhere"), FALSE) << tag;
        EXPECT_EQ(Destination(), L"");
    }
    for (const ULONG_PTR tag : {ULONG_PTR{100}, ULONG_PTR{200}, ULONG_PTR{300}}) {
        const std::wstring folder = L"D:\\" + std::to_wstring(tag);
        EXPECT_EQ(Deliver(tag, folder), TRUE);
        EXPECT_EQ(Destination(), folder + L"\\");
    }
}

TEST_F(Arrivals, ABlockBringsTheHostsFolderAndOptionsAnew) {
    Open({});
    world_.Services().Host.CurrentDir = L"C:\\before";
    world_.Services().Host.Option = L"old";
    samplehost::BlockFields fields;
    fields.CurrentDir = L"C:\\Work";
    fields.Option = L"new";
    fields.Items = {L"C:\\Work\\a"};
    EXPECT_EQ(DeliverBlock(fields), TRUE);
    EXPECT_EQ(world_.Services().Host.CurrentDir, L"C:\\Work");
    EXPECT_EQ(world_.Services().Host.Option, L"new");
}

TEST_F(Arrivals, AnswersThatItIsFerry) {
    Open({});
    EXPECT_EQ(SendMessageW(Window(), 0x8030, 0, 0), 1);
    EXPECT_EQ(SendMessageW(Window(), 0x8031, 0, 0), 0);
}

/// Lets every drop have these names; the block of a real drop ends at an empty one.
class DropOf {
public:
    explicit DropOf(Texts names)
        : query_("DragQueryFileW",
                 [names = std::move(names)](HDROP, UINT index, LPWSTR text, UINT size) -> UINT {
                     if (index == 0xFFFFFFFF) {
                         return static_cast<UINT>(names.size());
                     }
                     const std::wstring& name = names.at(index);
                     if (text != nullptr) {
                         lstrcpynW(text, name.c_str(), static_cast<int>(size));
                     }
                     return static_cast<UINT>(name.size());
                 }) {}

private:
    test::WatchedImport<&DragQueryFileW> query_;
};

TEST_F(Arrivals, EmptyNamesBetweenOthersAreNoTabs) {
    Open({});
    Drop({L"C:\\dropped"});
    const DropOf names({L"D:\\one", L"", L"D:\\two", L""});
    Drop({L"C:\\any"});
    EXPECT_EQ(Tabs(), (Texts{L"D:\\one", L"D:\\two"}));
    EXPECT_EQ(Destination(), L"D:\\one\\");
}

TEST_F(Arrivals, ADropIsTheSelectionThenTheTabsThenNothing) {
    Open({});
    Drop({L"C:\\one", L"C:\\two"});
    EXPECT_EQ(ItemCount(), 2);
    EXPECT_EQ(test::TextOfControl(Window(), IDC_COUNT), L"(2)");
    Drop({L"D:\\tab"});
    EXPECT_EQ(Tabs(), Texts{L"D:\\tab"});
    Drop({L"E:\\late"});
    EXPECT_EQ(ItemCount(), 2);
    EXPECT_EQ(Tabs(), Texts{L"D:\\tab"});
    EXPECT_EQ(Destination(), L"D:\\tab\\");
}

TEST_F(Arrivals, EveryDropIsLetGoWhateverBecomesOfIt) {
    Open({});
    std::vector<HDROP> letGo;
    const test::WatchedImport<&DragFinish> finish("DragFinish", [&](HDROP drop) {
        letGo.push_back(drop);
        finish.CallReal(drop);
    });
    std::vector<HDROP> drops;
    for (const Texts& paths : {Texts{}, Texts{L"C:\\item"}, Texts{L"D:\\tab"}, Texts{L"E:\\late"}}) {
        drops.push_back(test::MakeDrop(paths));
        SendMessageW(Window(), WM_DROPFILES, reinterpret_cast<WPARAM>(drops.back()), 0);
        EXPECT_EQ(letGo, drops);
    }
}

}  // namespace
}  // namespace ferry::dialogs
