// The launcher's command line.
#include "launcher/launch_options.h"

#include <gtest/gtest.h>

namespace ferry::launcher {
namespace {

using Arguments = std::vector<std::wstring_view>;
using Words = std::vector<std::wstring>;

/// The options of a line without a mistake.
LaunchOptions Parse(const Arguments& arguments) {
    LaunchOptions options;
    EXPECT_EQ(ParseLaunchOptions(arguments, options), Mistake());
    return options;
}

Mistake MistakeIn(const Arguments& arguments) {
    LaunchOptions options;
    return ParseLaunchOptions(arguments, options);
}

TEST(LaunchOptions, TakeEveryArgumentThatIsNoSwitchForAPath) {
    const LaunchOptions options = Parse({L"C:\\a", L"b c", L"..\\d", L"-"});
    EXPECT_EQ(options.What, Deed::Open);
    EXPECT_EQ(options.Paths, (Words{L"C:\\a", L"b c", L"..\\d", L"-"}));
    EXPECT_FALSE(options.IsMove);
}

TEST(LaunchOptions, ChooseCopyOrMoveByTheLastSwitch) {
    EXPECT_TRUE(Parse({L"/m", L"a"}).IsMove);
    EXPECT_TRUE(Parse({L"a", L"-M"}).IsMove);
    EXPECT_TRUE(Parse({L"--move", L"a"}).IsMove);
    EXPECT_FALSE(Parse({L"/m", L"/c", L"a"}).IsMove);
    EXPECT_FALSE(Parse({L"/m", L"a", L"-Copy"}).IsMove);
}

TEST(LaunchOptions, TakeAValueFromTheNextArgumentOrBehindASign) {
    for (const Arguments& line :
         {Arguments{L"/d", L"D:\\x", L"a"}, Arguments{L"-d:D:\\x", L"a"}, Arguments{L"/D=D:\\x", L"a"},
          Arguments{L"/d", L"E:\\", L"/d", L"D:\\x", L"a"}}) {
        const LaunchOptions options = Parse(line);
        EXPECT_EQ(options.Destination, L"D:\\x");
        EXPECT_EQ(options.Paths, Words{L"a"});
    }
}

TEST(LaunchOptions, KeepEveryFolderAndEveryListInOrder) {
    const LaunchOptions options =
        Parse({L"/tab", L"b", L"/list", L"1.txt", L"-tab:a", L"/list", L"-", L"/wait"});
    EXPECT_EQ(options.Tabs, (Words{L"b", L"a"}));
    EXPECT_EQ(options.Lists, (Words{L"1.txt", std::wstring(kStandardInput)}));
    EXPECT_EQ(options.What, Deed::Open);
    EXPECT_TRUE(options.Paths.empty());
}

TEST(LaunchOptions, TakeAllBehindTwoDashesForPaths) {
    const LaunchOptions options = Parse({L"/m", L"--", L"/c", L"-name", L"--", L"/?"});
    EXPECT_EQ(options.Paths, (Words{L"/c", L"-name", L"--", L"/?"}));
    EXPECT_TRUE(options.IsMove);
    EXPECT_EQ(options.What, Deed::Open);
}

TEST(LaunchOptions, AskForHelpWhenSomebodyDoesOrNothingIsGiven) {
    for (const Arguments& line :
         {Arguments{L"/?"}, Arguments{L"-?"}, Arguments{L"-h"}, Arguments{L"--help", L"a"}, Arguments{},
          Arguments{L"/m"}, Arguments{L"--"}}) {
        EXPECT_EQ(Parse(line).What, Deed::Help);
    }
}

TEST(LaunchOptions, MakeOrRemoveTheEntriesOfSendTo) {
    EXPECT_EQ(Parse({L"/sendto", L"install"}).What, Deed::AddSendTo);
    EXPECT_EQ(Parse({L"-SendTo:Remove"}).What, Deed::RemoveSendTo);
}

TEST(LaunchOptions, KeepQuietWhenAskedToAlsoAboutALaterMistake) {
    EXPECT_TRUE(Parse({L"/quiet", L"a"}).IsQuiet);
    EXPECT_FALSE(Parse({L"a"}).IsQuiet);
    LaunchOptions options;
    EXPECT_NE(ParseLaunchOptions(Arguments{L"-Quiet", L"/x"}, options), Mistake());
    EXPECT_TRUE(options.IsQuiet);
}

TEST(LaunchOptions, StopAtASwitchThatDoesNotExist) {
    for (const wchar_t* argument : {L"/x", L"-copyall", L"/c:1", L"/tmp/a", L"---", L"--=1"}) {
        EXPECT_EQ(MistakeIn({L"a", argument, L"b"}), (Mistake{MistakeKind::UnknownSwitch, argument}));
    }
}

TEST(LaunchOptions, StopAtASwitchWithoutItsValue) {
    EXPECT_EQ(MistakeIn({L"a", L"/d"}), (Mistake{MistakeKind::MissingValue, L"/d"}));
    EXPECT_EQ(MistakeIn({L"/list:", L"a"}), (Mistake{MistakeKind::MissingValue, L"/list:"}));
    EXPECT_EQ(MistakeIn({L"-tab", L"", L"a"}), (Mistake{MistakeKind::MissingValue, L"-tab"}));
    EXPECT_EQ(MistakeIn({L"/sendto"}), (Mistake{MistakeKind::MissingValue, L"/sendto"}));
}

TEST(LaunchOptions, StopAtAValueThatTheSwitchCannotHave) {
    EXPECT_EQ(MistakeIn({L"/sendto:maybe"}), (Mistake{MistakeKind::WrongValue, L"/sendto:maybe"}));
}

}  // namespace
}  // namespace ferry::launcher
