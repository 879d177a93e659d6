// What is told at the end of a run that left something behind.
#include "confirmation/report.h"

#include <gtest/gtest.h>

namespace ferry::confirmation {
namespace {

using transfer::Leftovers;
using enum transfer::LeftReason;

const ReportTexts kTexts{L"%1 of %2 stayed",
                         {L"no shell", L"no source", L"no folder", L"not taken", L"not made", L"not listed",
                          L"a circle", L"not seen"}};

Leftovers ThreeOfFive() {
    Leftovers left;
    for (int item = 0; item < 5; ++item)
        left.CountItem();
    left.Add(L"C:\\a", NoSourceItem, 0x80070002);
    left.Add(L"C:\\dir", FolderNotMade, 206);
    left.Add(L"C:\\b", NotSeen, 0);
    return left;
}

TEST(Report, SaysHowManyOfHowManyItemsStayedBehind) {
    EXPECT_EQ(ReportSummary(ThreeOfFive(), kTexts), L"3 of 5 stayed");
}

TEST(Report, NamesEachItemWithItsReasonAndTheNumberOfTheError) {
    EXPECT_EQ(ReportList(ThreeOfFive(), kTexts, 10),
              L"C:\\a\r\n    no source (0x80070002)\r\n"
              L"C:\\dir\r\n    not made (206)\r\n"
              L"C:\\b\r\n    not seen\r\n");
}

TEST(Report, SaysWhatTheSystemSaysOfAnErrorWhereItSaysSomething) {
    ReportTexts texts = kTexts;
    texts.Describe = [](std::uint32_t code) {
        return code == 206 ? std::wstring(L"Too long.") : std::wstring();
    };
    EXPECT_EQ(ReportList(ThreeOfFive(), texts, 2),
              L"C:\\a\r\n    no source (0x80070002)\r\n"
              L"C:\\dir\r\n    not made Too long. (206)\r\n");
}

TEST(Report, NamesTheFirstItemsWhereThereAreMoreThanCanBeShown) {
    EXPECT_EQ(ReportList(ThreeOfFive(), kTexts, 1), L"C:\\a\r\n    no source (0x80070002)\r\n");
    EXPECT_EQ(ReportList(Leftovers(), kTexts, 10), L"");
}

TEST(Report, HasAReasonForEveryOutcomeThatNeverReachedTheShell) {
    EXPECT_EQ(transfer::ReasonOf(transfer::ShellResult::NoSourceItem), NoSourceItem);
    EXPECT_EQ(transfer::ReasonOf(transfer::ShellResult::NoFolderItem), NoFolderItem);
    EXPECT_EQ(transfer::ReasonOf(transfer::ShellResult::NotQueued), NotQueued);
    EXPECT_EQ(transfer::ReasonOf(transfer::ShellResult::NoObject), NoShell);
}

}  // namespace
}  // namespace ferry::confirmation
