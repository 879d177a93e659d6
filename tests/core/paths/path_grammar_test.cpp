// Long paths, long names and command lines.
#include "paths/path_grammar.h"

#include <gtest/gtest.h>

#include "base/utf16.h"

namespace ferry::paths {
namespace {

std::wstring Padded(std::wstring_view start, std::size_t length) {
    std::wstring path(start);
    path.append(length - path.size(), L'x');
    return path;
}

TEST(LongPath, LeavesAPathOf259UnitsAndPrefixesOneOf260) {
    const std::wstring shorter = Padded(L"C:\\", 259);
    EXPECT_EQ(ToLongPath(shorter).Text, shorter);
    EXPECT_EQ(ToLongPath(shorter).Form, LongPathForm::Unchanged);
    const std::wstring longer = Padded(L"C:\\", 260);
    EXPECT_EQ(ToLongPath(longer).Text, L"\\\\?\\" + longer);
    EXPECT_EQ(ToLongPath(longer).Form, LongPathForm::Drive);
}

TEST(LongPath, PutsTheNetworkPrefixInPlaceOfOneBackslash) {
    const std::wstring path = Padded(L"\\\\server\\share\\", 300);
    EXPECT_EQ(ToLongPath(path).Text, L"\\\\?\\UNC" + path.substr(1));
    EXPECT_EQ(ToLongPath(path).Form, LongPathForm::Network);
    const std::wstring shorter = Padded(L"\\\\server\\share\\", 259);
    EXPECT_EQ(LongPathText(shorter), shorter);
}

TEST(LongPath, NeverPrefixesAPathTwice) {
    const std::wstring path = Padded(L"\\\\?\\C:\\", 300);
    EXPECT_EQ(ToLongPath(path).Text, path);
    EXPECT_EQ(ToLongPath(path).Form, LongPathForm::Unchanged);
    for (const auto* start : {L"C:\\", L"\\\\server\\share\\", L"\\\\?\\UNC\\server\\"}) {
        const std::wstring once = LongPathText(Padded(start, 300));
        EXPECT_EQ(LongPathText(once), once);
    }
}

TEST(LongPath, LeavesPathsWithAnotherStart) {
    for (const auto* start : {L"\\folder", L"1:\\", L".\\", L"/x", L"\x3042:\\"}) {
        const std::wstring path = Padded(start, 300);
        EXPECT_EQ(ToLongPath(path).Text, path);
        EXPECT_EQ(ToLongPath(path).Form, LongPathForm::Unchanged);
    }
    EXPECT_EQ(LongPathText(L""), L"");
}

/// A platform that knows one answer, and remembers what it was asked.
struct FakePlatform {
    std::optional<std::wstring> Answer;
    std::vector<std::wstring> Asked;

    LongNameQuery Query() {
        return [this](const std::wstring& path) {
            Asked.push_back(path);
            return Answer;
        };
    }
};

TEST(ExpandLongName, TakesPrefixesOffWithoutAsking) {
    FakePlatform platform{L"wrong", {}};
    EXPECT_EQ(ExpandLongName(L"\\\\?\\UNC\\srv\\share", platform.Query()), L"srv\\share");
    EXPECT_EQ(ExpandLongName(L"\\\\?\\C:\\PROGRA~1", platform.Query()), L"C:\\PROGRA~1");
    EXPECT_EQ(ExpandLongName(L"\\\\?\\UNC", platform.Query()), L"UNC");
    EXPECT_EQ(ExpandLongName(L"\\\\?\\", platform.Query()), L"");
    EXPECT_TRUE(platform.Asked.empty());
}

TEST(ExpandLongName, ReturnsAPathWithoutATildeAsItIs) {
    FakePlatform platform{L"wrong", {}};
    for (const auto* path : {L"", L"C:\\PROGRA1\\x", L"\\\\srv\\share\\x"}) {
        EXPECT_EQ(ExpandLongName(path, platform.Query()), path);
    }
    EXPECT_TRUE(platform.Asked.empty());
}

TEST(ExpandLongName, ExpandsADrivePathAndDropsThePrefix) {
    FakePlatform platform{L"\\\\?\\C:\\Program Files\\x", {}};
    EXPECT_EQ(ExpandLongName(L"C:\\PROGRA~1\\x", platform.Query()), L"C:\\Program Files\\x");
    EXPECT_EQ(platform.Asked, std::vector<std::wstring>{L"\\\\?\\C:\\PROGRA~1\\x"});
}

TEST(ExpandLongName, ExpandsANetworkPathAndDropsItsLeadingBackslashes) {
    FakePlatform platform{L"\\\\?\\UNC\\srv\\share\\Program Files", {}};
    EXPECT_EQ(ExpandLongName(L"\\\\srv\\share\\PROGRA~1", platform.Query()), L"srv\\share\\Program Files");
    EXPECT_EQ(platform.Asked, std::vector<std::wstring>{L"\\\\?\\UNC\\srv\\share\\PROGRA~1"});
}

TEST(ExpandLongName, ReturnsThePathWhenThePlatformHasNoAnswer) {
    FakePlatform platform;
    EXPECT_EQ(ExpandLongName(L"C:\\PROGRA~1\\x", platform.Query()), L"C:\\PROGRA~1\\x");
    EXPECT_EQ(platform.Asked.size(), 1u);
}

TEST(ExpandLongName, ReturnsPathsWithAnotherStartWithoutAsking) {
    FakePlatform platform{L"wrong", {}};
    for (const auto* path : {L"\\PROGRA~1", L"~", L"\\\\?~", L"1~", L".\\A~1"}) {
        EXPECT_EQ(ExpandLongName(path, platform.Query()), path);
    }
    EXPECT_TRUE(platform.Asked.empty());
}

TEST(ExpandLongName, BearsAnAnswerThatIsShorterThanThePrefix) {
    FakePlatform platform{L"x", {}};
    EXPECT_EQ(ExpandLongName(L"C:\\A~1", platform.Query()), L"");
}

TEST(SplitCommandLine, TellsProgramAndArgumentsApart) {
    struct Case {
        std::wstring_view Line, Program, Arguments;
    };
    const Case cases[] = {
        {L"\"C:\\My Tools\\t.exe\" -a \"x y\"", L"C:\\My Tools\\t.exe", L"-a \"x y\""},
        {L"t.exe -a b", L"t.exe", L"-a b"},
        {L"t.exe", L"t.exe", L""},
        {L"", L"", L""},
        {L"  \t t.exe  -a \r\n", L"t.exe", L" -a"},
        {L"t.\r\nexe a\nb", L"t.exe", L"ab"},
        {L"\r\n\"a b\"", L"a b", L""},
        {L"\"a b\"c d", L"a bc", L"d"},
        {L"\"a b", L"a b", L""},
        {L"\"a\"b\" c", L"ab\"", L"c"},
        {L"a\"b c\" d", L"a\"b", L"c\" d"},
        {L"\"\" x", L"", L"x"},
        {L"\"", L"", L""},
        {L"t.exe\t-a b", L"t.exe\t-a", L"b"},
    };
    for (const auto& [line, program, arguments] : cases) {
        SCOPED_TRACE(base::ToUtf8(line));
        const CommandLineParts parts = SplitCommandLine(line);
        EXPECT_EQ(parts.Program, program);
        EXPECT_EQ(parts.Arguments, arguments);
    }
}

}  // namespace
}  // namespace ferry::paths
