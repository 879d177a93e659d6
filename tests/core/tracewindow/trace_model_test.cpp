#include "tracewindow/trace_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "core/tracewindow/records.h"
#include "script/limits.h"

namespace ferry::tracewindow {
namespace {

using test::Sent;
using testing::ElementsAre;

class TraceModelTest : public testing::Test {
protected:
    bool Take(std::uint64_t code, std::wstring_view text) { return model_.Take(Sent(code, text)); }
    bool TakeLine(std::size_t number) { return Take(2, std::to_wstring(number)); }

    /// Names and shown values, in order.
    std::vector<std::wstring> Variables() const {
        std::vector<std::wstring> all;
        for (const TracedVariable& variable : model_.Variables())
            all.push_back(variable.Name + L"=" + variable.Value);
        return all;
    }

    TraceModel model_;
};

TEST_F(TraceModelTest, KnowsNothingAtFirst) {
    EXPECT_TRUE(model_.Scripts().empty());
    EXPECT_FALSE(model_.LastStarted());
    EXPECT_FALSE(model_.Line());
    EXPECT_TRUE(model_.Variables().empty());
    EXPECT_FALSE(model_.LastChanged());
    EXPECT_EQ(model_.Count(), 0U);
    EXPECT_EQ(model_.RecordLines(), L"");
}

TEST_F(TraceModelTest, KnowsTheScriptAndItsLine) {
    Take(1, L"C:\\s\\main.txt");
    EXPECT_EQ(model_.LastStarted(), 0U);
    EXPECT_FALSE(model_.Line());
    TakeLine(3);
    TakeLine(2);
    EXPECT_EQ(model_.Line(), 2U);
    EXPECT_THAT(model_.Scripts(), ElementsAre(L"C:\\s\\main.txt"));
}

TEST_F(TraceModelTest, KnowsEachScriptOnceAndWhichStartedLast) {
    Take(1, L"outer");
    TakeLine(7);
    Take(1, L"inner");
    EXPECT_FALSE(model_.Line());
    TakeLine(1);
    TakeLine(8);  // perhaps the outer one's
    EXPECT_EQ(model_.LastStarted(), 1U);
    EXPECT_EQ(model_.Line(), 8U);
    const std::uint64_t starts = model_.Starts();
    Take(1, L"outer");
    EXPECT_EQ(model_.LastStarted(), 0U);
    EXPECT_NE(model_.Starts(), starts);
    EXPECT_THAT(model_.Scripts(), ElementsAre(L"outer", L"inner"));
}

TEST_F(TraceModelTest, KeepsTheScriptsThatCameLast) {
    for (std::size_t number = 0; number <= kMaxScripts; ++number)
        Take(1, std::to_wstring(number));
    EXPECT_EQ(model_.Scripts().size(), kMaxScripts);
    EXPECT_EQ(model_.Scripts().front(), L"1");
    EXPECT_EQ(model_.Scripts()[model_.LastStarted().value()], std::to_wstring(kMaxScripts));
}

TEST_F(TraceModelTest, ListsVariablesInTheOrderOfTheirFirstAppearance) {
    Take(10, L"b\t");
    Take(10, L"a\t");
    Take(11, L"b\tx\ty");
    Take(12, L"B\t1");
    EXPECT_THAT(Variables(), ElementsAre(L"b=x\ty", L"a=", L"B=1"));
    EXPECT_EQ(model_.LastChanged(), 2U);
    Take(11, L"a\t2");
    EXPECT_EQ(model_.LastChanged(), 1U);
    TakeLine(4);
    EXPECT_EQ(model_.LastChanged(), 1U);
}

TEST_F(TraceModelTest, ShowsTheBeginningOfALongValueAndKeepsAllOfIt) {
    const std::wstring value(1000000, L'v');
    Take(11, L"a\t" + value);
    const TracedVariable& variable = model_.Variables().front();
    EXPECT_EQ(variable.Value, value.substr(0, 1000));
    EXPECT_EQ(variable.Units, value.size());
    EXPECT_TRUE(variable.IsCut());
    EXPECT_EQ(model_.RecordLines(), L"11\ta\t" + value + L"\r\n");
    Take(11, L"a\t" + value.substr(0, 1000));
    EXPECT_FALSE(variable.IsCut());
    EXPECT_EQ(variable.Value.size(), 1000U);
}

TEST_F(TraceModelTest, CutsNoCharacterInTwo) {
    const std::wstring pair = {wchar_t{0xD83D}, wchar_t{0xDE00}};
    Take(11, L"a\t" + std::wstring(999, L'v') + pair);
    EXPECT_EQ(model_.Variables().front().Value, std::wstring(999, L'v'));
    Take(11, L"a\t" + std::wstring(998, L'v') + pair + L"v");
    EXPECT_EQ(model_.Variables().front().Value, std::wstring(998, L'v') + pair);
}

TEST_F(TraceModelTest, HasRoomForTheVariablesOfAnyScriptAndForNoMore) {
    for (std::size_t number = 0; number < script::kMaxVariables; ++number)
        Take(10, std::to_wstring(number) + L"\t");
    EXPECT_EQ(model_.Variables().size(), script::kMaxVariables);
    Take(10, L"one more\t");
    EXPECT_EQ(model_.Variables().size(), script::kMaxVariables);
    Take(11, L"7\tstill known");
    EXPECT_EQ(model_.Variables()[7].Value, L"still known");
}

TEST_F(TraceModelTest, HasRoomForTheLongestNamesAndForNoLonger) {
    const std::wstring name(script::kMaxNamesUnits - 1, L'n');
    Take(10, name + L"\t");
    Take(10, L"ab\t");
    Take(10, L"a\t");
    ASSERT_EQ(model_.Variables().size(), 2U);
    EXPECT_EQ(model_.Variables()[1].Name, L"a");
}

TEST_F(TraceModelTest, HoldsAtALineInWhicheverScript) {
    model_.ToggleHold(3);
    EXPECT_TRUE(model_.HasHold(3));
    EXPECT_FALSE(TakeLine(2));
    EXPECT_TRUE(TakeLine(3));
    EXPECT_TRUE(TakeLine(3));
    EXPECT_FALSE(Take(1, L"other"));
    EXPECT_FALSE(Take(11, L"3\t3"));
    EXPECT_FALSE(Take(2, L"3x"));
    EXPECT_TRUE(TakeLine(3));
    model_.ToggleHold(3);
    EXPECT_FALSE(model_.HasHold(3));
    EXPECT_FALSE(TakeLine(3));
}

TEST_F(TraceModelTest, AStepHoldsAtTheNextLineOnce) {
    model_.HoldNextLine();
    EXPECT_FALSE(Take(11, L"a\t1"));
    EXPECT_FALSE(Take(1, L"inner"));
    EXPECT_TRUE(model_.HoldsNextLine());
    EXPECT_TRUE(TakeLine(1));
    EXPECT_FALSE(model_.HoldsNextLine());
    EXPECT_FALSE(TakeLine(2));
}

TEST_F(TraceModelTest, AStepOntoALineWithAHoldIsOneHold) {
    model_.ToggleHold(2);
    model_.HoldNextLine();
    EXPECT_TRUE(TakeLine(2));
    EXPECT_FALSE(TakeLine(3));
}

TEST_F(TraceModelTest, HoldsNothingAnyMoreWhenToldSo) {
    model_.ToggleHold(2);
    model_.ToggleHold(4);
    model_.HoldNextLine();
    model_.HoldNothing();
    EXPECT_FALSE(TakeLine(2));
    EXPECT_FALSE(TakeLine(4));
    EXPECT_FALSE(model_.HasHold(4));
}

TEST_F(TraceModelTest, ForgetsAllButTheHolds) {
    model_.ToggleHold(2);
    Take(1, L"main");
    TakeLine(1);
    Take(10, L"a\t");
    Take(3, L"?");
    const std::uint64_t starts = model_.Starts();
    model_.HoldNextLine();
    model_.Clear();
    EXPECT_NE(model_.Starts(), starts);
    EXPECT_TRUE(model_.Scripts().empty());
    EXPECT_FALSE(model_.LastStarted());
    EXPECT_FALSE(model_.Line());
    EXPECT_TRUE(model_.Variables().empty());
    EXPECT_FALSE(model_.LastChanged());
    EXPECT_EQ(model_.Count() + model_.MalformedCount() + model_.DroppedCount(), 0U);
    EXPECT_EQ(model_.RecordLines(), L"");
    EXPECT_TRUE(TakeLine(1));
    EXPECT_TRUE(TakeLine(2));
    Take(11, L"a\t1");
    EXPECT_THAT(Variables(), ElementsAre(L"a=1"));
}

TEST_F(TraceModelTest, WritesRecordsOneALineInTheirOrder) {
    Take(1, L"C:\\s\\main.txt");
    TakeLine(3);
    Take(11, L"a\tone\r\ntwo\tthree ");
    Take(10, L" b\t");
    Take(7, L"odd\t");
    EXPECT_EQ(model_.RecordLines(),
              L"1\tC:\\s\\main.txt\r\n"
              L"2\t3\r\n"
              L"11\ta\tone\x240D\x2424two\x2409three\x2420\r\n"
              L"10\t\x2420\x62\t\r\n"
              L"?\t7\todd\x2409\r\n");
}

TEST_F(TraceModelTest, KeepsTheLastRecords) {
    for (std::size_t number = 1; number <= kMaxRecords; ++number)
        TakeLine(number);
    EXPECT_EQ(model_.DroppedCount(), 0U);
    TakeLine(5);
    EXPECT_EQ(model_.DroppedCount(), 1U);
    EXPECT_EQ(model_.Count(), kMaxRecords + 1);
    const std::wstring lines = model_.RecordLines();
    EXPECT_TRUE(lines.starts_with(L"2\t2\r\n2\t3\r\n"));
    EXPECT_TRUE(lines.ends_with(L"2\t100000\r\n2\t5\r\n"));
}

TEST_F(TraceModelTest, KeepsFewerRecordsWhenTheyAreLong) {
    const std::wstring text = L"a\t" + std::wstring(kMaxTextUnits - 2, L'v');
    const std::size_t fitting = kMaxKeptUnits / kMaxTextUnits;
    for (std::size_t count = 0; count < fitting; ++count)
        Take(11, text);
    EXPECT_EQ(model_.DroppedCount(), 0U);
    TakeLine(1);
    EXPECT_EQ(model_.DroppedCount(), 1U);
    model_.Clear();
    Take(11, text);
    EXPECT_EQ(model_.DroppedCount(), 0U);
}

}  // namespace
}  // namespace ferry::tracewindow
