// The switches of the command line, as the dialog shows them.
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

class Switches : public FerryTest {};

TEST_F(Switches, WithoutAnyTheDialogCopiesAndOffersTheTabButton) {
    ASSERT_TRUE(OpenWith({}));
    EXPECT_EQ(Dialog().Title(), L"ファイルの操作の確認");
    EXPECT_TRUE(Dialog().IsChecked(kCopy));
    EXPECT_TRUE(Dialog().IsShown(kTabFoldersButton));
    EXPECT_FALSE(Dialog().IsShown(kTabFoldersList));
    EXPECT_EQ(Dialog().Destination(), L"D:\\a\\");
}

TEST_F(Switches, TheLastOfCopyAndMoveWins) {
    ASSERT_TRUE(OpenWith({L"/c", L"/M"}));
    EXPECT_TRUE(Dialog().IsChecked(kMove));
    ASSERT_TRUE(OpenWith({L"/m", L"/C"}));
    EXPECT_TRUE(Dialog().IsChecked(kCopy));
}

TEST_F(Switches, ListModeShowsTheTabFoldersInPlaceOfTheButton) {
    ASSERT_TRUE(OpenWith({L"/T"}));
    EXPECT_FALSE(Dialog().IsShown(kTabFoldersButton));
    EXPECT_TRUE(Dialog().IsShown(kTabFoldersList));
    EXPECT_EQ(Dialog().TabFolders(), (std::vector<std::wstring>{L"D:\\a", L"D:\\b", L"D:\\c"}));
}

TEST_F(Switches, ThePresetIndexCountsAroundTheTabFolders) {
    ASSERT_TRUE(OpenWith({L"/t", L"/s=5"}));
    EXPECT_EQ(Dialog().Destination(), L"D:\\c\\");
    EXPECT_EQ(Ask(Dialog().Control(kTabFoldersList), LB_GETCURSEL), 2);
}

TEST_F(Switches, TheFocusSwitchPutsTheFocusOnTheList) {
    ASSERT_TRUE(OpenWith({L"/t", L"/F=1"}));
    EXPECT_TRUE(Dialog().WaitForFocus(Dialog().Control(kTabFoldersList)));
}

TEST_F(Switches, WithoutTheFocusSwitchTheDestinationHasTheFocus) {
    ASSERT_TRUE(OpenWith({L"/t"}));
    EXPECT_TRUE(Dialog().WaitForFocus(Dialog().DestinationEdit()));
}

TEST_F(Switches, NonsenseIsIgnored) {
    ASSERT_TRUE(OpenWith({L"/x", L"/f=1=2", L"", L"plain", L"/s=2x"}));
    EXPECT_TRUE(Dialog().IsChecked(kCopy));
    EXPECT_TRUE(Dialog().IsShown(kTabFoldersButton));
    EXPECT_EQ(Dialog().Destination(), L"D:\\c\\");
}

}  // namespace
}  // namespace ferry::e2e
