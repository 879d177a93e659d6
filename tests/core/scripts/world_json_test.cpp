#include "script/world_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/utf16.h"

namespace ferry::scripttools {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;

/// The world in which the member `name` is `value`.
ReadWorld WithMember(const std::string& name, const std::string& value) {
    return WorldFromJson(R"({"world": {")" + name + "\": " + value + "}}");
}

TEST(WorldFromJson, ReadsEveryMember) {
    const ReadWorld read = WorldFromJson(R"({"name": "all", "other": [1], "world": {
        "script": "C:\\s\\日本.txt", "selection": ["C:\\a", "C:\\b"], "clock": "2026-02-03 04:05:06",
        "host_settings": {"UserDir": "D:\\u", "UserDirMode": 2}, "env": {"A": "b"}, "answers": [7, 6],
        "programs": {"t.exe": [3, 500]}, "trace": "trace", "host_window": true, "clipboard": "text",
        "cwd": "C:\\cur", "login": "u", "local_appdata": "C:\\l", "exe_dir": "C:\\p\\",
        "metrics": {"0": 1920, "-3": -1}, "dirs": ["C:\\d"], "files": {"C:\\f": "FFfe00"}, "unknown": {}}})");
    ASSERT_EQ(read.Mistake, "");
    const WorldDescription& world = *read.World;
    EXPECT_EQ(world.Script, L"C:\\s\\日本.txt");
    EXPECT_THAT(world.Selection, ElementsAre(L"C:\\a", L"C:\\b"));
    EXPECT_EQ(world.Clock, (calendar::CalendarFields{2026, 2, 3, 4, 5, 6}));
    EXPECT_EQ(world.HostSettings.at(L"UserDir"), HostSetting(L"D:\\u"));
    EXPECT_EQ(world.HostSettings.at(L"UserDirMode"), HostSetting(2U));
    EXPECT_THAT(world.Environment, ElementsAre(Pair(L"A", L"b")));
    EXPECT_THAT(world.Answers, ElementsAre(7, 6));
    EXPECT_THAT(world.Programs, ElementsAre(Pair(L"t.exe", PretendedProgram{3, 500})));
    EXPECT_EQ(world.Trace, TraceKind::Trace);
    EXPECT_TRUE(world.HasHostWindow);
    EXPECT_EQ(world.Clipboard, L"text");
    EXPECT_EQ(world.CurrentFolder, L"C:\\cur");
    EXPECT_EQ(world.LoginName, L"u");
    EXPECT_EQ(world.LocalAppData, L"C:\\l");
    EXPECT_EQ(world.ProgramFolder, L"C:\\p\\");
    EXPECT_THAT(world.Metrics, ElementsAre(Pair(-3, -1), Pair(0, 1920)));
    EXPECT_THAT(world.Folders, ElementsAre(L"C:\\d"));
    EXPECT_THAT(world.Files,
                ElementsAre(Pair(L"C:\\f", Bytes{std::byte{0xFF}, std::byte{0xFE}, std::byte{0}})));
}

TEST(WorldFromJson, TakesMissingMembersForEmpty) {
    const ReadWorld read = WorldFromJson("\xEF\xBB\xBF{\"world\": {\"trace\": null, \"answers\": null}}");
    ASSERT_TRUE(read.World) << read.Mistake;
    EXPECT_EQ(read.World->Script, L"");
    EXPECT_THAT(read.World->Answers, IsEmpty());
    EXPECT_EQ(read.World->Trace, TraceKind::None);
    EXPECT_FALSE(read.World->HasHostWindow);
    EXPECT_EQ(WithMember("trace", "\"debugger\"").World->Trace, TraceKind::Debugger);
}

TEST(WorldFromJson, ReadsTextsAsUnits) {
    EXPECT_EQ(WithMember("clipboard", R"("\ud83d\ude00 😀")").World->Clipboard, L"\xD83D\xDE00 \xD83D\xDE00");
    EXPECT_EQ(WithMember("clipboard", R"("a\u0000b")").World->Clipboard, std::wstring(L"a\0b", 3));
}

TEST(WorldFromJson, SaysWhatIsWrong) {
    struct {
        const char* Name;
        const char* Value;
        const char* Where;
    } constexpr kCases[] = {
        {"script", "5", "world.script: "},
        {"selection", R"("C:\\a")", "world.selection: "},
        {"selection", R"(["a", 5])", "world.selection[1]: "},
        {"clock", R"("2026-02-30 00:00:00")", "world.clock: "},
        {"clock", R"("2026-02-03")", "world.clock: "},
        {"clock", R"("2026-02-03 04:05:60")", "world.clock: "},
        {"clock", R"("+026-02-03 04:05:06")", "world.clock: "},
        {"host_settings", R"({"a": true})", "world.host_settings.a: "},
        {"host_settings", R"({"a": 4294967296})", "world.host_settings.a: "},
        {"host_settings", R"({"a": 1.5})", "world.host_settings.a: "},
        {"host_settings", "[]", "world.host_settings: "},
        {"env", R"({"a": 1})", "world.env.a: "},
        {"answers", R"([6, "7"])", "world.answers[1]: "},
        {"answers", "[99999999999999999999]", "world.answers[0]: "},
        {"answers", "[18446744073709551615]", "world.answers[0]: "},
        {"programs", R"({"a": [1]})", "world.programs.a: "},
        {"programs", R"({"a": [1, -1]})", "world.programs.a: "},
        {"programs", R"({"a": 0})", "world.programs.a: "},
        {"trace", R"("other")", "world.trace: "},
        {"trace", "true", "world.trace: "},
        {"host_window", "1", "world.host_window: "},
        {"metrics", R"({"x": 1})", "world.metrics.x: "},
        {"metrics", R"({"1 ": 1})", "world.metrics.1 : "},
        {"metrics", R"({"1": "1"})", "world.metrics.1: "},
        {"metrics", "[1]", "world.metrics: "},
        {"dirs", "{}", "world.dirs: "},
        {"files", R"({"C:\\f": "0"})", "world.files.C:\\f: "},
        {"files", R"({"C:\\f": "zz"})", "world.files.C:\\f: "},
        {"files", R"({"C:\\f": [0]})", "world.files.C:\\f: "},
    };
    for (const auto& [name, value, where] : kCases) {
        const ReadWorld read = WithMember(name, value);
        EXPECT_FALSE(read.World) << name << " " << value;
        EXPECT_THAT(read.Mistake, testing::StartsWith(where)) << value;
    }
}

TEST(WorldFromJson, SaysWhyAFileIsNoWorld) {
    EXPECT_THAT(WorldFromJson("[]").Mistake, HasSubstr("object"));
    EXPECT_THAT(WorldFromJson("{}").Mistake, HasSubstr("world"));
    EXPECT_THAT(WorldFromJson("{\"world\": 1}").Mistake, HasSubstr("world"));
    for (const char* wrong : {"", "{", "{\"world\": {}} x", R"({"world": {"clipboard": "\ud800"}})",
                              "\xFF\xFE{\0}", "{\"world\": {\"clipboard\": \"\xC3\"}}"}) {
        EXPECT_FALSE(WorldFromJson(wrong).World) << wrong;
        EXPECT_THAT(WorldFromJson(wrong).Mistake, HasSubstr("parse error")) << wrong;
    }
}

TEST(WorldFromJson, StandsADeepOne) {
    const std::string deep(200'000, '[');
    EXPECT_FALSE(WorldFromJson("{\"world\": {\"x\": " + deep).World);
    EXPECT_TRUE(WithMember("x", deep + std::string(deep.size(), ']')).World);
}

TEST(ResultToJson, WritesEffectsFilesAndResult) {
    const std::vector<Effect> effects{{L"msg", L"48 日本\n\"q\"", std::nullopt}, {L"send", L"1 x", 16}};
    EXPECT_EQ(
        ResultToJson(effects, {{L"C:\\a", {std::byte{1}}}, {L"C:\\b", {}}}, script::RunResult::EndedAll),
        "{\"effects\": [\n"
        "{\"k\":\"msg\",\"t\":\"48 日本\\n\\\"q\\\"\"},\n"
        "{\"k\":\"send\",\"t\":\"1 x\",\"cb\":16}],\n"
        "\"files\": {\n"
        "\"C:\\\\a\": \"01\",\n"
        "\"C:\\\\b\": \"\"},\n"
        "\"result\": -1}\n");
    EXPECT_EQ(ResultToJson({}, {}, script::RunResult::Ended),
              "{\"effects\": [],\n\"files\": {},\n\"result\": 0}\n");
}

TEST(ResultToJson, PutsAReplacementForAUnitThatIsNoCharacter) {
    const std::vector<Effect> effects{{L"clip", L"a\xD800z", std::nullopt}};
    EXPECT_THAT(ResultToJson(effects, {}, script::RunResult::Ended), HasSubstr("a\xEF\xBF\xBDz"));
}

}  // namespace
}  // namespace ferry::scripttools
