// What is inserted for each source.
#include "naming/inserted_date.h"

#include <gtest/gtest.h>

#include "core/calendar/standing_clock.h"
#include "core/files/fake_folders.h"

namespace ferry::naming {
namespace {

using Times = std::vector<std::uint64_t>;

constexpr std::wstring_view kFormat = L"%Y-%m-%d %H-%M-%S";

class InsertedDate : public testing::Test {
protected:
    InsertedDate() { folders_.Items = {{L"memo.txt", false, times_}}; }

    std::wstring Text(DateSource source, std::wstring_view path = L"C:\\資料\\memo.txt",
                      std::wstring_view format = kFormat) {
        return InsertedText(clock_, folders_, source, path, format);
    }

    files::ItemTimes times_{test::FileTimeAt({2001, 1, 2, 3, 4, 5}), test::FileTimeAt({2003, 1, 2, 3, 4, 5}),
                            test::FileTimeAt({2002, 1, 2, 3, 4, 5})};
    test::StandingClock clock_;
    test::FakeFolders folders_;
};

constexpr DateSource kItemSources[] = {DateSource::Created, DateSource::Modified, DateSource::Accessed};

TEST_F(InsertedDate, IsTheLocalTimeForNow) {
    EXPECT_EQ(Text(DateSource::Now, L"", L"%Y年%m月%d日"), L"2024年05月01日");
    EXPECT_EQ(Text(DateSource::Now, L"", L"%H時%M分%S秒"), L"12時34分56秒");
    EXPECT_TRUE(clock_.Asked.empty());
    EXPECT_TRUE(folders_.Patterns.empty());
}

TEST_F(InsertedDate, IsTheItemsTimeForTheOtherSources) {
    EXPECT_EQ(Text(DateSource::Created), L"2001-01-02 03-04-05");
    EXPECT_EQ(Text(DateSource::Modified), L"2002-01-02 03-04-05");
    EXPECT_EQ(Text(DateSource::Accessed), L"2003-01-02 03-04-05");
    EXPECT_EQ(clock_.Asked, (Times{times_.Created, times_.LastWrite, times_.LastAccess}));
}

TEST_F(InsertedDate, LiesInTheYear1900ForAnItemThatHasVanished) {
    for (const DateSource source : kItemSources)
        EXPECT_EQ(Text(source, L"C:\\資料\\gone.txt"), L"1900-01-01 09-00-00");
}

TEST_F(InsertedDate, OfAnItemThatHasVanishedIsTheSameWhereTheFileTimeZeroHasNoLocalTime) {
    clock_.KnowsZone = false;
    for (const DateSource source : kItemSources)
        EXPECT_EQ(Text(source, L"C:\\資料\\gone.txt"), L"1900-01-01 00-00-00");
}

TEST_F(InsertedDate, IsTheZeroDateForATimeThatCannotBeConverted) {
    clock_.KnowsZone = false;
    for (const DateSource source : kItemSources) {
        EXPECT_EQ(Text(source), L"1899-12-30 00-00-00");
        EXPECT_EQ(Text(source, L"C:\\memo.txt", L"%y%m%d %I"), L"991230 12");
    }
}

TEST_F(InsertedDate, SaysSoWhenTheDateIsInvalid) {
    clock_.Time = {2024, 2, 30, 0, 0, 0};
    folders_.Items[0].Times.LastWrite = test::FileTimeAt({1604, 2, 29, 0, 0, 0});
    EXPECT_EQ(Text(DateSource::Now), L"Invalid DateTime");
    EXPECT_EQ(Text(DateSource::Modified), L"Invalid DateTime") << "there is no 29 February 1900";
}

TEST_F(InsertedDate, LeavesTheYearOfTheClockAsItIs) {
    clock_.Time = {1899, 1, 2, 3, 4, 5};
    EXPECT_EQ(Text(DateSource::Now), L"1899-01-02 03-04-05");
}

TEST(DateSource, HasTheNumbersOfTheListAndIsNowForOthers) {
    EXPECT_EQ(ToDateSource(0), DateSource::Now);
    EXPECT_EQ(ToDateSource(1), DateSource::Created);
    EXPECT_EQ(ToDateSource(2), DateSource::Modified);
    EXPECT_EQ(ToDateSource(3), DateSource::Accessed);
    for (const int number : {-1, 4, 1000, -2147483647}) {
        EXPECT_EQ(ToDateSource(number), DateSource::Now);
    }
}

}  // namespace
}  // namespace ferry::naming
