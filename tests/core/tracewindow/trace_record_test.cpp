// What is read from messages, whoever sent them.
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

#include "core/tracewindow/records.h"

namespace ferry::tracewindow {
namespace {

using test::Sent;
using test::SentBytes;

TEST(TraceRecordOfAMessage, IsWhatAScriptSends) {
    EXPECT_EQ(Sent(1, L"C:\\s\\main.txt"), (TraceRecord{1, RecordKind::Script, L"C:\\s\\main.txt"}));
    EXPECT_EQ(Sent(2, L"17"), (TraceRecord{2, RecordKind::Line, L"17"}));
    EXPECT_EQ(Sent(10, L"名\t"), (TraceRecord{10, RecordKind::Variable, L"名\t"}));
    EXPECT_EQ(Sent(11, L"a\tx\ty"), (TraceRecord{11, RecordKind::Variable, L"a\tx\ty"}));
    EXPECT_EQ(Sent(4000000000, L"a\t1"), (TraceRecord{4000000000, RecordKind::Variable, L"a\t1"}));
}

struct Malformed {
    std::uint64_t Code;
    std::wstring_view Text;
};

TEST(TraceRecordOfAMessage, ThatNoScriptSendsIsMalformedAndKeepsItsText) {
    constexpr Malformed kCases[] = {
        {0, L"text"},
        {1, L""},
        {2, L""},
        {2, L"0"},
        {2, L"000"},
        {2, L"-1"},
        {2, L"+1"},
        {2, L" 1"},
        {2, L"1 "},
        {2, L"x"},
        {2, L"1x"},
        {2, L"１"},
        {3, L"1"},
        {9, L"a\t1"},
        {10, L""},
        {10, L"no value"},
        {11, L"\tvalue"},
        {2, L"1234567890"},
        {2, L"99999999999999999999999999"},
    };
    for (const auto& [code, text] : kCases) {
        SCOPED_TRACE(base::ToUtf8(text));
        EXPECT_EQ(Sent(code, text), (TraceRecord{code, RecordKind::Malformed, std::wstring(text)}));
    }
}

TEST(TraceRecordOfAMessage, EndsAtItsTerminator) {
    std::vector<std::byte> bytes = SentBytes(L"12");
    std::ranges::fill(bytes.begin() + 6, bytes.end(), std::byte{0x31});
    EXPECT_EQ(ReadRecord(2, bytes), (TraceRecord{2, RecordKind::Line, L"12"}));
}

TEST(TraceRecordOfAMessage, WithoutATerminatorIsMalformed) {
    const std::vector<std::byte> whole = base::BytesFromUnits(L"12");
    EXPECT_EQ(ReadRecord(2, whole), (TraceRecord{2, RecordKind::Malformed, L"12"}));
    EXPECT_EQ(ReadRecord(2, {}), (TraceRecord{2, RecordKind::Malformed, L""}));
    // A byte is no terminator, and no part of a text.
    for (const std::byte odd : {std::byte{0}, std::byte{0x31}}) {
        std::vector<std::byte> bytes = whole;
        bytes.push_back(odd);
        EXPECT_EQ(ReadRecord(2, bytes), (TraceRecord{2, RecordKind::Malformed, L"12"}));
        EXPECT_EQ(ReadRecord(2, std::span(&odd, 1)), (TraceRecord{2, RecordKind::Malformed, L""}));
    }
}

TEST(TraceRecordOfAMessage, ThatIsLongerThanAnyScriptSendsIsCutAndMalformed) {
    const std::wstring value(kMaxTextUnits - 2, L'x');
    EXPECT_EQ(Sent(10, L"a\t" + value).Kind, RecordKind::Variable);
    const TraceRecord record = Sent(10, L"a\t" + value + L"y");
    EXPECT_EQ(record.Kind, RecordKind::Malformed);
    EXPECT_EQ(record.Text, L"a\t" + value);
}

TEST(TraceRecordOfAMessage, IsAnythingAndTheModelTakesIt) {
    std::mt19937 chance(20260203);
    constexpr std::uint64_t kCodes[] = {0, 1, 2, 3, 9, 10, 11, 12, std::numeric_limits<std::uint64_t>::max()};
    constexpr std::uint8_t kBytes[] = {0, 0, 0, '1', '9', '\t', 'a', 0xD8, 0xFF};
    TraceModel model;
    std::uint64_t malformed = 0;
    constexpr int kRounds = 20000;
    for (int round = 0; round < kRounds; ++round) {
        // Of this very size, so that a sanitizer sees whoever reads further.
        std::vector<std::byte> bytes(chance() % 24);
        for (std::byte& byte : bytes)
            byte = std::byte{kBytes[chance() % std::size(kBytes)]};
        bytes.shrink_to_fit();
        TraceRecord record = ReadRecord(kCodes[chance() % std::size(kCodes)], bytes);
        malformed += record.Kind == RecordKind::Malformed ? 1 : 0;
        EXPECT_LE(record.Text.size(), bytes.size() / 2);
        EXPECT_EQ(record.Text.find(L'\0'), std::wstring::npos);
        EXPECT_FALSE(model.Take(std::move(record)));
        for (const TracedVariable& variable : model.Variables())
            EXPECT_FALSE(variable.Name.empty());
        EXPECT_GE(model.Line().value_or(1), 1U);
    }
    EXPECT_EQ(model.Count(), kRounds);
    EXPECT_EQ(model.MalformedCount(), malformed);
    // Of each kind there was something, or nothing was tried.
    EXPECT_GT(malformed, 1000U);
    EXPECT_FALSE(model.Scripts().empty());
    EXPECT_LE(model.Scripts().size(), kMaxScripts);
    EXPECT_FALSE(model.Variables().empty());
    const std::wstring lines = model.RecordLines();
    EXPECT_EQ(std::ranges::count(lines, L'\n'), kRounds);
    EXPECT_EQ(std::ranges::count(lines, L'\r'), kRounds);
}

}  // namespace
}  // namespace ferry::tracewindow
