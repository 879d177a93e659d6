// The contract of the clock.
#include "core/naming/clock_contract.h"

#include <tuple>

#include "base/case_order.h"

namespace ferry::naming::contract {
namespace {

constexpr DateSource kItemSources[] = {DateSource::Created, DateSource::Modified, DateSource::Accessed};

auto InOrder(const CalendarFields& fields) {
    return std::tuple(fields.Year, fields.Month, fields.Day, fields.Hour, fields.Minute, fields.Second);
}

TEST_P(ClockContract, NowIsADateThatExistsAndGoesOn) {
    const CalendarFields first = TheClock().Now();
    const CalendarFields second = TheClock().Now();
    EXPECT_EQ(ToDateTime(first).Status, DateTimeStatus::Valid);
    EXPECT_GE(first.Year, 2024);
    EXPECT_LE(InOrder(first), InOrder(second));
}

TEST_P(ClockContract, AnItemHasTheTimesOfItsLastWriteAndOfItsLastUse) {
    for (const std::wstring& path : {AtPlace().File(), AtPlace().Folder(), AtPlace().DeepFile()}) {
        EXPECT_EQ(TheClock().ItemTime(path, DateSource::Modified), kWritten) << testing::PrintToString(path);
        EXPECT_EQ(TheClock().ItemTime(path, DateSource::Accessed), kRead) << testing::PrintToString(path);
    }
}

TEST_P(ClockContract, AnItemWasCreatedAtADateThatExists) {
    const auto created = TheClock().ItemTime(AtPlace().File(), DateSource::Created);
    ASSERT_TRUE(created);
    EXPECT_EQ(ToDateTime(*created).Status, DateTimeStatus::Valid);
    EXPECT_GE(created->Year, 2000);
}

TEST_P(ClockContract, AnItemIsTheSameInCapitalsAndInSmallLetters) {
    EXPECT_EQ(TheClock().ItemTime(base::SmallLetters(AtPlace().File()), DateSource::Modified), kWritten);
}

TEST_P(ClockContract, AnItemThatIsNotThereHasTheFirstDayOfFileTimes) {
    for (const DateSource source : kItemSources) {
        const auto fields = TheClock().ItemTime(AtPlace().Nothing(), source);
        ASSERT_TRUE(fields);
        EXPECT_EQ(fields->Year, 1601);
        EXPECT_EQ(fields->Month, 1);
        EXPECT_EQ(fields->Day, 1);
        EXPECT_EQ(InsertedText(TheClock(), source, AtPlace().Nothing(), L"%Y-%m-%d"), L"1900-01-01");
    }
}

TEST_P(ClockContract, LookingAtAnItemChangesNoTimeOfIt) {
    for (const DateSource source : kItemSources)
        TheClock().ItemTime(AtPlace().File(), source);
    EXPECT_EQ(TheClock().ItemTime(AtPlace().File(), DateSource::Modified), kWritten);
    EXPECT_EQ(TheClock().ItemTime(AtPlace().File(), DateSource::Accessed), kRead);
}

}  // namespace
}  // namespace ferry::naming::contract
