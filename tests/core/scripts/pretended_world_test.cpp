#include "script/pretended_world.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/utf16.h"
#include "core/calendar/clock_contract.h"
#include "core/lang/speaker_contract.h"

namespace ferry::scripttools {
namespace {

using lang::Tone;
using testing::ElementsAre;
using testing::IsEmpty;

/// A world, and what was done to it since one looked last.
struct Place {
    explicit Place(WorldDescription description = {}, Budget budget = {})
        : Pretended(std::move(description), budget), Ports(Pretended.Ports()) {}

    std::vector<std::string> Done() const {
        std::vector<std::string> texts;
        for (const Effect& effect : Pretended.Effects())
            texts.push_back(base::ToUtf8(effect.Kind + L" " + effect.Text));
        return texts;
    }

    PretendedWorld Pretended;
    script::World Ports;
};

TEST(PretendedBoxes, TakeAnAnswerOnlyWhereThereIsAChoice) {
    Place place({.Answers = {7, 2}});
    EXPECT_EQ(place.Ports.Boxes.Show(L"a", 48), 1);
    EXPECT_EQ(place.Ports.Boxes.Show(L"b\nc", 36), 7);
    place.Ports.Speaker.Tell(L"d", Tone::Plain);
    EXPECT_FALSE(place.Ports.Speaker.Ask(L"e", Tone::Question));
    EXPECT_THAT(place.Done(), ElementsAre("msg 48 a", "msg 36 b\nc", "err d", "ask e"));
}

TEST(PretendedBoxes, AreAnsweredByTheirFirstButtonWhenNoAnswerIsLeft) {
    Place place;
    const std::vector<int> expected{1, 1, 3, 6, 6, 4, 2};
    for (std::uint32_t style = 0; style < expected.size(); ++style)
        EXPECT_EQ(place.Ports.Boxes.Show(L"", style | 0x30), expected[style]) << style;
    EXPECT_TRUE(place.Ports.Speaker.Ask(L"", Tone::Question));
}

WorldDescription WithProgram(const std::wstring& name, PretendedProgram program = {3, 500}) {
    WorldDescription description;
    description.Programs[name] = program;
    return description;
}

TEST(PretendedPrograms, AreFoundByTheFirstWordOfTheirCommandLine) {
    Place place(WithProgram(L"Tool.exe"));
    for (const wchar_t* line :
         {L"tool.exe", L"TOOL.EXE -a b", L"tool -a", L"C:\\my\\tool.exe x", L"\"C:\\My Tools\\tool.exe\" x",
          L"C:\\My Tools\\tool.exe x", L" \"tool.exe\"", L"bin/tool.exe"})
        EXPECT_NE(place.Ports.Programs.Start({.CommandLine = line, .WorkingFolder = {}}), nullptr)
            << base::ToUtf8(line);
    for (const wchar_t* line : {L"", L"\"\"", L"other.exe tool.exe", L"tool.exe.bat", L"mytool.exe",
                                L"\"tool.exe x\"", L"tool.exe\\"})
        EXPECT_EQ(place.Ports.Programs.Start({.CommandLine = line, .WorkingFolder = {}}), nullptr)
            << base::ToUtf8(line);
}

TEST(PretendedPrograms, MayBeDescribedByTheirWholePath) {
    Place place(WithProgram(L"C:\\My Tools\\t.exe"));
    EXPECT_NE(place.Ports.Programs.Start({.CommandLine = L"\"c:\\my tools\\T.EXE\" 1", .WorkingFolder = {}}),
              nullptr);
    EXPECT_EQ(place.Ports.Programs.Start({.CommandLine = L"t.exe", .WorkingFolder = {}}), nullptr);
}

TEST(PretendedPrograms, AreWrittenDownWhenTheyAreTried) {
    Place place(WithProgram(L"t.exe"));
    place.Ports.Programs.Start({L"t.exe 1", L"C:\\w", 3, true});
    place.Ports.Programs.Start({L"unknown", L"", 1, false});
    EXPECT_TRUE(place.Ports.Programs.StartHelper(L"t.exe 2"));
    EXPECT_FALSE(place.Ports.Programs.StartHelper(L"u 2"));
    EXPECT_THAT(place.Done(), ElementsAre("run t.exe 1|C:\\w|3|wait", "run unknown||1|nowait",
                                          "start t.exe 2", "start u 2"));
}

TEST(PretendedPrograms, AreOpenedWhenTheShellWouldKnowThem) {
    WorldDescription description = WithProgram(L"t.exe");
    description.Files[L"C:\\my docs\\a.txt"] = {};
    Place place(description);
    for (const wchar_t* line :
         {L"t.exe 1", L"C:\\my docs\\a.txt", L"\"C:\\my docs\\a.txt\"", L"C:\\my docs", L"https://host/x"})
        EXPECT_TRUE(place.Ports.Programs.Open({.CommandLine = line, .WorkingFolder = {}}))
            << base::ToUtf8(line);
    for (const wchar_t* line : {L"C:\\none.txt", L"u.exe", L""})
        EXPECT_FALSE(place.Ports.Programs.Open({.CommandLine = line, .WorkingFolder = {}}))
            << base::ToUtf8(line);
    EXPECT_EQ(place.Done().front(), "run t.exe 1||1|nowait");
}

TEST(PretendedPrograms, EndWhenTheirTimeIsOver) {
    Place place(WithProgram(L"t.exe"));
    auto run = place.Ports.Programs.Start({.CommandLine = L"t.exe", .WorkingFolder = {}});
    EXPECT_FALSE(run->Wait(499));
    EXPECT_EQ(run->ExitCode(), 259U);
    EXPECT_TRUE(run->Wait(1));
    EXPECT_EQ(run->ExitCode(), 3U);
    EXPECT_TRUE(place.Ports.Programs.Start({.CommandLine = L"t.exe", .WorkingFolder = {}})->Wait(500));
    EXPECT_TRUE(place.Ports.Programs.Start({.CommandLine = L"t.exe", .WorkingFolder = {}})
                    ->Wait(script::kNoTimeLimit));
}

TEST(PretendedPrograms, EndWithTheCodeThatTheyWereKilledWith) {
    Place place(WithProgram(L"t.exe"));
    auto run = place.Ports.Programs.Start({.CommandLine = L"t.exe", .WorkingFolder = {}});
    run->Kill(999);
    EXPECT_TRUE(run->Wait(0));
    EXPECT_EQ(run->ExitCode(), 999U);
    EXPECT_EQ(place.Done().back(), "kill 999");
}

TEST(PretendedPrograms, MayAllBeKnown) {
    WorldDescription description = WithProgram(L"t.exe");
    description.OtherPrograms = PretendedProgram{5, 0};
    Place place(description);
    EXPECT_EQ(place.Ports.Programs.Start({.CommandLine = L"u.exe", .WorkingFolder = {}})->ExitCode(), 5U);
}

TEST(PretendedHost, TakesRecordsAndMessages) {
    Place place({.HasHostWindow = true});
    EXPECT_TRUE(place.Ports.Host.Exists());
    place.Ports.Host.HandOver({103, L"C:\\x"});
    place.Ports.Host.Post(273, 100, -1);
    place.Ports.Host.Send(32776, -5, 0);
    EXPECT_THAT(place.Done(), ElementsAre("send 103 C:\\x", "post 273 100 -1", "sendm 32776 -5 0"));
    EXPECT_EQ(place.Pretended.Effects()[0].ByteCount, 8U * 4 + 8);
    EXPECT_EQ(place.Pretended.Effects()[1].ByteCount, std::nullopt);
    EXPECT_EQ(place.Ports.Host.Position()->Right, 1100);
}

TEST(PretendedHost, GetsNothingWhenItIsGone) {
    Place place;
    EXPECT_FALSE(place.Ports.Host.Exists());
    place.Ports.Host.HandOver({103, L"C:\\x"});
    place.Ports.Host.Post(273, 100, 0);
    place.Ports.Host.Send(273, 100, 0);
    EXPECT_THAT(place.Done(), IsEmpty());
    EXPECT_EQ(place.Ports.Host.Position(), std::nullopt);
}

TEST(PretendedTrace, IsFoundByItsTitleOnly) {
    Place trace({.Trace = TraceKind::Trace});
    EXPECT_FALSE(trace.Ports.Trace.Find(L"Kiv Script Debugger"));
    trace.Ports.Trace.Send({1, L"lost"});
    EXPECT_TRUE(trace.Ports.Trace.Find(L"Script trace Kiv"));
    trace.Ports.Trace.Send({2, L"7"});
    EXPECT_THAT(trace.Done(), ElementsAre("trace 2 7"));
    Place debugger({.Trace = TraceKind::Debugger});
    EXPECT_FALSE(debugger.Ports.Trace.Find(L"Script trace Kiv"));
    EXPECT_TRUE(debugger.Ports.Trace.Find(L"Kiv Script Debugger"));
    EXPECT_FALSE(Place().Ports.Trace.Find(L"Script trace Kiv"));
}

TEST(PretendedSettings, AreReadWithoutRegardToCaseAndType) {
    WorldDescription description;
    description.HostSettings[L"UserDir"] = L"D:\\u";
    description.HostSettings[L"UserDirMode"] = 2U;
    Place place(description);
    EXPECT_EQ(place.Ports.Settings.ReadHostText(L"userdir", L"-"), L"D:\\u");
    EXPECT_EQ(place.Ports.Settings.ReadHostNumber(L"USERDIRMODE"), 2U);
    EXPECT_EQ(place.Ports.Settings.ReadHostNumber(L"UserDir"), 0U);
    EXPECT_EQ(place.Ports.Settings.ReadHostText(L"Missing", L"-"), L"-");
    EXPECT_EQ(place.Ports.Settings.ReadHostNumber(L"Missing"), 0U);
    EXPECT_EQ(place.Ports.Settings.ReadText(L"UserDir", L"-"), L"-");
}

TEST(PretendedSettings, WriteDownWhatIsWritten) {
    Place place;
    EXPECT_TRUE(place.Ports.Settings.WriteNumberToKey(L"Software\\Marrowby\\Kiv\\Main001\\Settings", L"n",
                                                      4294967295U));
    EXPECT_TRUE(place.Ports.Settings.WriteTextToKey(L"K", L"t", L"a b"));
    EXPECT_TRUE(place.Ports.Settings.WriteText(L"own", L"x"));
    EXPECT_THAT(place.Done(),
                ElementsAre("reg Software\\Marrowby\\Kiv\\Main001\\Settings|n|dword 4294967295",
                            "reg K|t|sz a b", "reg Software\\Marrowby\\KIV\\Command\\Ferry|own|sz x"));
    EXPECT_EQ(place.Ports.Settings.ReadHostNumber(L"N"), 4294967295U);
    EXPECT_EQ(place.Ports.Settings.ReadText(L"own", L""), L"x");
}

TEST(PretendedClipboard, HoldsWhatWasPutThere) {
    Place place({.Clipboard = L"before"});
    EXPECT_EQ(place.Ports.Clipboard.Text(), L"before");
    place.Ports.Clipboard.SetText(L"after");
    EXPECT_EQ(place.Ports.Clipboard.Text(), L"after");
    EXPECT_THAT(place.Done(), ElementsAre("clip after"));
}

TEST(PretendedSpeech, IsWrittenDown) {
    Place place;
    place.Ports.Speech.Speak(L"hello");
    place.Ports.Speech.SetFlags(1);
    place.Ports.Speech.SetVolume(50);
    place.Ports.Speech.SetRate(-3);
    place.Ports.Speech.SetPitch(4);
    EXPECT_THAT(place.Done(), ElementsAre("speak hello", "speech flags 1", "speech volume 50",
                                          "speech rate -3", "speech pitch 4"));
}

TEST(PretendedChance, ComesToEveryCandidate) {
    Place place;
    for (const std::size_t expected : {0, 1, 2, 0})
        EXPECT_EQ(place.Ports.Chance.Below(3), expected);
}

WorldDescription WithSurroundings() {
    WorldDescription description;
    description.Environment = {{L"Name", L"value"}, {L"Empty", L""}, {L"Nested", L"%Name%"}};
    description.Metrics = {{0, 1920}, {-1, 5}};
    description.CurrentFolder = L"C:\\cur\\";
    return description;
}

TEST(PretendedSurroundings, ExpandTheEnvironmentOnce) {
    Place place(WithSurroundings());
    const auto expand = [&place](const wchar_t* text) {
        return place.Ports.Surroundings.ExpandEnvironment(text);
    };
    EXPECT_EQ(expand(L"a%NAME%b%name%"), L"avaluebvalue");
    EXPECT_EQ(expand(L"%Empty%%Nested%"), L"%Name%");
    EXPECT_EQ(expand(L"%unknown%Name%"), L"%unknownvalue");
    EXPECT_EQ(expand(L"100% of %unknown% 5%"), L"100% of %unknown% 5%");
    EXPECT_EQ(expand(L"%%"), L"%%");
}

TEST(PretendedSurroundings, KnowTheCurrentFolderAndFullPaths) {
    Place place(WithSurroundings());
    EXPECT_EQ(place.Ports.Surroundings.CurrentFolder(), L"C:\\cur");
    EXPECT_EQ(place.Ports.Surroundings.FullPath(L"a/../b"), L"C:\\cur\\b");
    EXPECT_EQ(place.Ports.Surroundings.FullPath(L""), L"");
    EXPECT_TRUE(files::IsFolder(place.Ports.Files.Attributes(L"C:\\cur")));
    EXPECT_EQ(Place({.CurrentFolder = L"D:\\"}).Ports.Surroundings.CurrentFolder(), L"D:\\");
    EXPECT_EQ(Place().Ports.Surroundings.FullPath(L"a"), L"C:\\a");
}

TEST(PretendedSurroundings, WriteNarrowTextsAsAJapaneseWindows) {
    Place place;
    EXPECT_EQ(place.Ports.Surroundings.Narrow(L"a\x3042\x20AC\xD83D\xDE00z"), "a\x82\xA0???z");
}

TEST(PretendedSurroundings, HaveTheMetricsThatAreDescribed) {
    Place place(WithSurroundings());
    EXPECT_EQ(place.Ports.Surroundings.Metric(0), 1920);
    EXPECT_EQ(place.Ports.Surroundings.Metric(-1), 5);
    EXPECT_EQ(place.Ports.Surroundings.Metric(1), 0);
}

TEST(PretendedHomes, AreUnknownWhenTheyAreEmpty) {
    Place place({.LoginName = L"u", .ProgramFolder = L"C:\\p\\"});
    EXPECT_EQ(place.Ports.Homes.LoginName(), L"u");
    EXPECT_EQ(place.Ports.Homes.LocalAppData(), std::nullopt);
    EXPECT_EQ(place.Ports.Homes.ProgramFolder(), L"C:\\p\\");
    EXPECT_EQ(Place({.LocalAppData = L"C:\\l"}).Ports.Homes.LocalAppData(), L"C:\\l");
    EXPECT_EQ(Place().Ports.Homes.LoginName(), std::nullopt);
}

TEST(PretendedPace, WritesDownWaitsAndDoesNotWait) {
    Place place;
    place.Ports.Pace.Sleep(3'000'000'000U);
    EXPECT_THAT(place.Done(), ElementsAre("sleep 3000000000"));
}

TEST(PretendedPace, StopsAScriptAfterSoManyStatements) {
    Place place({}, {.Statements = 2});
    EXPECT_TRUE(place.Ports.Pace.GoesOn());
    EXPECT_TRUE(place.Ports.Pace.GoesOn());
    EXPECT_FALSE(place.Pretended.IsBudgetSpent());
    EXPECT_FALSE(place.Ports.Pace.GoesOn());
    EXPECT_TRUE(place.Pretended.IsBudgetSpent());
    EXPECT_FALSE(place.Ports.Pace.GoesOn());
}

TEST(PretendedPace, StopsAScriptThatDoesTooMuch) {
    Place place({}, {.EffectUnits = 4});
    place.Ports.Clipboard.SetText(L"1234");
    EXPECT_TRUE(place.Ports.Pace.GoesOn());
    place.Ports.Clipboard.SetText(L"5");
    EXPECT_FALSE(place.Ports.Pace.GoesOn());
}

TEST(EffectLog, TellsAtOnce) {
    Place place;
    std::vector<std::wstring> told;
    place.Pretended.Log().TellTo([&told](const Effect& effect) { told.push_back(effect.Kind); });
    place.Ports.Clipboard.SetText(L"x");
    EXPECT_THAT(told, ElementsAre(L"clip"));
}

TEST(HexDigits, AreReadBackInEitherCase) {
    const Bytes bytes{std::byte{0x00}, std::byte{0xAB}, std::byte{0xFF}};
    EXPECT_EQ(HexDigits(bytes), L"00abff");
    EXPECT_EQ(BytesFromHex(L"00ABfF"), bytes);
    EXPECT_EQ(BytesFromHex(L""), Bytes());
    for (const wchar_t* wrong : {L"0", L"0g", L"-1", L" 1", L"0x", L"\xFF11\xFF11"})
        EXPECT_EQ(BytesFromHex(wrong), std::nullopt) << base::ToUtf8(wrong);
}

/// The speaker of a world, whose person answers as asked for.
class PretendedListening final : public lang::contract::SpeakerPlace {
public:
    lang::Speaker& TheSpeaker() override { return place_->Ports.Speaker; }

    std::wstring ReadDuring(const std::function<void()>& speak, bool saysYes) override {
        constexpr int kYes = 6;
        constexpr int kNo = 7;
        place_ = std::make_unique<Place>(WorldDescription{.Answers = {saysYes ? kYes : kNo}});
        speak();
        return place_->Pretended.Effects().back().Text;
    }

private:
    std::unique_ptr<Place> place_ = std::make_unique<Place>();
};

/// The clock of a world.
class ClockOfAWorld final : public calendar::Clock {
public:
    calendar::CalendarFields Now() override { return Clock().Now(); }
    std::optional<calendar::CalendarFields> LocalTime(std::uint64_t fileTime) override {
        return Clock().LocalTime(fileTime);
    }
    double LocalDate(std::uint64_t fileTime) override { return Clock().LocalDate(fileTime); }

private:
    calendar::Clock& Clock() const { return place_.Ports.Clock; }

    Place place_{{.Clock = {2026, 2, 3, 4, 5, 6}}};
};

TEST(PretendedClock, StandsStill) {
    Place place({.Clock = {2026, 2, 3, 4, 5, 6}});
    EXPECT_EQ(place.Ports.Clock.Now(), (calendar::CalendarFields{2026, 2, 3, 4, 5, 6}));
    EXPECT_EQ(place.Ports.Clock.LocalTime(0), (calendar::CalendarFields{1601, 1, 1, 0, 0, 0}));
}

}  // namespace
}  // namespace ferry::scripttools

namespace ferry::lang::contract {
namespace {

INSTANTIATE_TEST_SUITE_P(Pretended, SpeakerContract,
                         testing::Values(&test::Make<SpeakerPlace, scripttools::PretendedListening>));

}  // namespace
}  // namespace ferry::lang::contract

namespace ferry::calendar::contract {
namespace {

INSTANTIATE_TEST_SUITE_P(Pretended, ClockContract,
                         testing::Values(&test::Make<Clock, scripttools::ClockOfAWorld>));

}  // namespace
}  // namespace ferry::calendar::contract
