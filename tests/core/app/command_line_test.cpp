// What the switches preset.
#include "app/command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/utf16.h"

namespace ferry::app {
namespace {

using Arguments = std::vector<std::wstring_view>;

CommandLineOptions Parse(const Arguments& arguments) {
    return ParseCommandLine(arguments);
}

struct Case {
    Arguments Given;
    CommandLineOptions Expected;
};

void Check(const std::vector<Case>& cases) {
    for (const auto& [given, expected] : cases) {
        std::wstring line;
        for (const std::wstring_view argument : given) {
            line.append(argument).append(L"|");
        }
        SCOPED_TRACE(base::ToUtf8(line));
        const CommandLineOptions options = Parse(given);
        EXPECT_EQ(options.TransferMode, expected.TransferMode);
        EXPECT_EQ(options.TabListMode, expected.TabListMode);
        EXPECT_EQ(options.FocusMode, expected.FocusMode);
        EXPECT_EQ(options.TabFolderIndex, expected.TabFolderIndex);
    }
}

TEST(CommandLine, PresetsACopyWithoutTabListWhenThereAreNoArguments) {
    Check({{{}, {0, 0, 0, 0}}});
}

TEST(CommandLine, SetsEachOptionByItsSwitch) {
    Check({
        {{L"/c"}, {0, 0, 0, 0}},
        {{L"/m"}, {1, 0, 0, 0}},
        {{L"/t"}, {0, 1, 0, 0}},
        {{L"/f=1"}, {0, 0, 1, 0}},
        {{L"/s=5"}, {0, 0, 0, 5}},
        {{L"/m", L"/t", L"/f=1", L"/s=2"}, {1, 1, 1, 2}},
    });
}

TEST(CommandLine, LetsALaterSwitchOverrideAnEarlierOne) {
    Check({
        {{L"/c", L"/m"}, {1, 0, 0, 0}},
        {{L"/m", L"/c"}, {0, 0, 0, 0}},
        {{L"/f=1", L"/f=0"}, {0, 0, 0, 0}},
        {{L"/s=3", L"/s=4"}, {0, 0, 0, 4}},
    });
}

TEST(CommandLine, ComparesSwitchesAndKeysWithoutRegardToCase) {
    Check({
        {{L"/F=1", L"/T"}, {0, 1, 1, 0}},
        {{L"/M", L"/S=2"}, {1, 0, 0, 2}},
        {{L"/m", L"/C"}, {0, 0, 0, 0}},
    });
}

TEST(CommandLine, IgnoresAnArgumentWithSeveralEqualsSigns) {
    Check({
        {{L"/f=1=2"}, {0, 0, 0, 0}},
        {{L"/s=1="}, {0, 0, 0, 0}},
        {{L"/s==1"}, {0, 0, 0, 0}},
    });
}

TEST(CommandLine, IgnoresWhatItDoesNotKnow) {
    Check({
        {{L"", L"/x", L"m", L"-m", L"/mm", L"/m ", L" /m", L"/"}, {0, 0, 0, 0}},
        {{L"/m=", L"/t=1", L"/c=1", L"/x=1", L"=1", L"f=1", L"="}, {0, 0, 0, 0}},
        {{L"/f", L"/s"}, {0, 0, 0, 0}},
    });
}

TEST(CommandLine, ReadsNumbersLeniently) {
    Check({
        {{L"/s="}, {0, 0, 0, 0}},
        {{L"/s=2x"}, {0, 0, 0, 2}},
        {{L"/s= 7"}, {0, 0, 0, 7}},
        {{L"/s=x"}, {0, 0, 0, 0}},
        {{L"/f=-1"}, {0, 0, -1, 0}},
        {{L"/s=3", L"/s="}, {0, 0, 0, 0}},
    });
}

TEST(CommandLine, KeepsANegativeTabFolderIndexAsItIs) {
    Check({{{L"/s=-2"}, {0, 0, 0, -2}}});
}

}  // namespace
}  // namespace ferry::app
