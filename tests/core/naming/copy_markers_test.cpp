// The markers of copies, and which of them are found where.
#include "naming/name_edits.h"
#include "support/text_cases.h"

namespace ferry::naming {
namespace {

using test::ExpectEach;

TEST(RemoveCopyMarkers, TakesAPlainMarkerFromTheStart) {
    ExpectEach(RemoveCopyMarkers, {{L"コピー ～ 資料.txt", L"資料.txt"},
                                   {L"コピー ～資料", L"資料"},
                                   {L"コピー～ 資料", L"資料"},
                                   {L"コピー ～ ", L""},
                                   {L"コピー ～ report.final", L"report.final"}});
}

TEST(RemoveCopyMarkers, TakesPlainMarkersFromEverywhere) {
    ExpectEach(RemoveCopyMarkers, {{L"コピー ～ コピー ～ 資料", L"資料"},
                                   {L"前コピー ～ 後", L"前後"},
                                   {L"末尾コピー ～", L"末尾"},
                                   {L"aコピー～ bコピー ～c", L"abc"}});
}

TEST(RemoveCopyMarkers, LeavesWhatOnlyLooksLikeAMarker) {
    ExpectEach(RemoveCopyMarkers, {{L"コピー～資料", L"コピー～資料"},
                                   {L"コピー 資料", L"コピー 資料"},
                                   {L"コピー 〜 資料", L"コピー 〜 資料"},
                                   {L"コピー ~ 資料", L"コピー ~ 資料"},
                                   {L"コピー　～　資料", L"コピー　～　資料"},
                                   {L"ｺﾋﾟｰ ～ 資料", L"ｺﾋﾟｰ ～ 資料"},
                                   {L"資料-コピー", L"資料-コピー"},
                                   {L"資料 － コピー", L"資料 － コピー"},
                                   {L"data - copy (2)", L"data - copy (2)"},
                                   {L"", L""}});
}

TEST(RemoveCopyMarkers, TakesANumberedMarkerFromTheStart) {
    ExpectEach(RemoveCopyMarkers, {{L"コピー (2) ～ memo", L"memo"},
                                   {L"コピー (12345) ～ 議事録", L"議事録"},
                                   {L"コピー (2) ～ コピー (3) ～ memo", L"memo"},
                                   {L"コピー (-4) ～ memo", L"memo"},
                                   {L"コピー (-1) ～ memo", L"memo"},
                                   {L"コピー (0) ～ memo", L"memo"}});
}

TEST(RemoveCopyMarkers, TakesANumberedMarkerInTheMiddleOnlyWithTheNumberOfTheFirst) {
    ExpectEach(RemoveCopyMarkers, {{L"memo コピー (2) ～ x", L"memo コピー (2) ～ x"},
                                   {L"コピー (2) ～ aコピー (2) ～ b", L"ab"},
                                   {L"コピー (2) ～ aコピー (3) ～ b", L"aコピー (3) ～ b"}});
}

TEST(RemoveCopyMarkers, TakesOnlyTheNumberAsItIsPrintedBack) {
    ExpectEach(RemoveCopyMarkers, {{L"コピー (007) ～ memo", L"コピー (007) ～ memo"},
                                   {L"コピー (+2) ～ memo", L"コピー (+2) ～ memo"},
                                   {L"コピー ( 2) ～ memo", L"コピー ( 2) ～ memo"},
                                   {L"コピー(2)～memo", L"コピー(2)～memo"},
                                   {L"コピー(2) aコピー (2) ～ b", L"コピー(2) ab"},
                                   {L"コピー (２) ～ memo", L"コピー (２) ～ memo"},
                                   // 2^32 + 2 wraps to 2, whose marker is another text.
                                   {L"コピー (4294967298) コピー (2) ～ x", L"コピー (4294967298) x"}});
}

TEST(RemoveCopyMarkers, FindsNoNumberBehindABlankInFront) {
    ExpectEach(RemoveCopyMarkers, {{L" コピー (2) ～ memo", L" コピー (2) ～ memo"},
                                   {L"　コピー (2) ～ memo", L"　コピー (2) ～ memo"}});
}

TEST(RemoveCopyMarkers, StopsAfterTenNumberedMarkersInFront) {
    std::wstring markers;
    for (const wchar_t* number : {L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8", L"9", L"10"}) {
        markers += std::wstring(L"コピー (") + number + L") ～ ";
    }
    EXPECT_EQ(RemoveCopyMarkers(markers + L"memo"), L"memo");
    EXPECT_EQ(RemoveCopyMarkers(markers + L"コピー (11) ～ memo"), L"コピー (11) ～ memo");
}

TEST(RemoveCopyMarkers, TakesAMarkerBehindTheName) {
    ExpectEach(RemoveCopyMarkers, {{L"data - コピー (3)", L"data"},
                                   {L"資料 - コピー (2)", L"資料"},
                                   {L"data - コピー", L"data"},
                                   {L"my data - コピー", L"my data"},
                                   {L"資料 - コピー - コピー", L"資料"},
                                   {L"資料 - コピー (2).txt", L"資料.txt"},
                                   {L"\xD842\xDFB7野家 - コピー (2)", L"\xD842\xDFB7野家"},
                                   {L"か\x3099 - コピー (2)", L"か\x3099"}});
}

TEST(RemoveCopyMarkers, LeavesTheNumberBehindANameWithWhiteSpace) {
    ExpectEach(RemoveCopyMarkers, {{L"my data - コピー (2)", L"my data (2)"},
                                   {L"会議　資料 - コピー (2)", L"会議　資料 (2)"},
                                   {L"a\tb - コピー (2)", L"a\tb (2)"},
                                   // White space in front of the first word is skipped, not part of it.
                                   {L" data - コピー (2)", L" data"},
                                   // The hyphen is the first word here.
                                   {L" - コピー (2)", L" (2)"}});
}

TEST(RemoveCopyMarkers, TakesTheNumberBehindANameOnlyAsItIsPrintedBack) {
    ExpectEach(RemoveCopyMarkers, {{L"data - コピー (2147483647)", L"data"},
                                   {L"data - コピー (2147483648)", L"data (2147483648)"},
                                   {L"data - コピー (4294967299)", L"data (4294967299)"},
                                   {L"data - コピー (03)", L"data (03)"},
                                   {L"data - コピー (+3)", L"data (+3)"},
                                   {L"data - コピー ( 3)", L"data ( 3)"},
                                   {L"data - コピー (3 )", L"data (3 )"},
                                   {L"data - コピー(3)", L"data(3)"},
                                   {L"data - コピー (３)", L"data (３)"},
                                   {L"data - コピー (0)", L"data"}});
}

TEST(RemoveCopyMarkers, TakesSeveralNumberedMarkersBehindTheName) {
    ExpectEach(RemoveCopyMarkers, {{L"data - コピー (3) - コピー (3)", L"data"},
                                   {L"data - コピー (3) - コピー (2)", L"data"},
                                   {L"data - コピー - コピー (2)", L"data (2)"},
                                   {L"data - コピー (3) b - コピー (2)", L"data b (2)"}});
}

TEST(RemoveCopyMarkers, StopsAfterTenNumberedMarkersBehind) {
    std::wstring markers;
    for (const wchar_t* number : {L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8", L"9", L"10"}) {
        markers += std::wstring(L" - コピー (") + number + L")";
    }
    EXPECT_EQ(RemoveCopyMarkers(L"memo" + markers), L"memo");
    EXPECT_EQ(RemoveCopyMarkers(L"memo" + markers + L" - コピー (11)"), L"memo (11)");
}

TEST(RemoveCopyMarkers, TakesTheNumberMinusOneBehindANameForNone) {
    ExpectEach(RemoveCopyMarkers,
               {{L"data - コピー (-1)", L"data (-1)"},
                {L"data - コピー (-2)", L"data"},
                // Too large a number has all bits set, too.
                {L"data - コピー (99999999999999999999)", L"data (99999999999999999999)"}});
}

TEST(RemoveCopyMarkers, DoesNotLookAgainForMarkersThatCloseUp) {
    ExpectEach(RemoveCopyMarkers,
               {{L"コピーコピー～ ～ x", L"コピー～ x"}, {L"x - コ - コピーピー", L"x - コピー"}});
}

TEST(RemoveCopyMarkers, TakesFrontAndBackMarkersOfTheSameName) {
    ExpectEach(RemoveCopyMarkers, {{L"コピー (2) ～ 資料 - コピー (3)", L"資料"},
                                   {L"コピー ～ コピー (2) ～ 資料 - コピー", L"資料"}});
}

TEST(RemoveCopyMarkers, WorksOnTheLongestNames) {
    for (const std::size_t length : {std::size_t{512}, std::size_t{1039}}) {
        const std::wstring word(length, L'資');
        EXPECT_EQ(RemoveCopyMarkers(word), word);
        EXPECT_EQ(RemoveCopyMarkers(L"コピー (2) ～ " + word + L" - コピー (3)"), word);
    }
}

TEST(RemoveCopyMarkers, FindsNoNumberBehindAFirstWordOf1040Units) {
    for (const std::size_t length : {std::size_t{1040}, std::size_t{1100}}) {
        const std::wstring word(length, L'資');
        EXPECT_EQ(RemoveCopyMarkers(word + L" - コピー (3)"), word + L" (3)");
        EXPECT_EQ(RemoveCopyMarkers(L"コピー (2) ～ " + word), word);
    }
}

}  // namespace
}  // namespace ferry::naming
