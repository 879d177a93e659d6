#include "fault_plan.h"

#include <gtest/gtest.h>

namespace ferry::fileop {
namespace {

TEST(FaultRules, SayWhatHappensToEachPlace) {
    const auto rules = FaultRules::Parse(L"fail@3, abort@5,slow@2:500,error@4,slow@*:7");
    ASSERT_TRUE(rules.has_value());
    EXPECT_EQ(rules->At(1).WaitMs, 7U);
    EXPECT_FALSE(rules->At(1).Fails);
    EXPECT_EQ(rules->At(2).WaitMs, 507U);
    EXPECT_TRUE(rules->At(3).Fails);
    EXPECT_TRUE(rules->At(4).FailsWithWindow);
    EXPECT_TRUE(rules->At(5).Aborts);
    EXPECT_FALSE(rules->At(6).Fails || rules->At(6).FailsWithWindow || rules->At(6).Aborts);
}

TEST(FaultRules, RefuseEverythingThatIsNotInTheGrammar) {
    for (const wchar_t* text :
         {L"fail", L"fail@", L"fail@0", L"fail@x", L"fail@3:1", L"slow@2", L"slow@2:", L"@3", L"break@3",
          L"fail@3,", L",fail@3", L"fail@-1", L"fail@1234567890", L"fail @3"}) {
        EXPECT_FALSE(FaultRules::Parse(text).has_value()) << testing::PrintToString(std::wstring(text));
    }
}

TEST(FaultRules, AreEmptyForAnEmptyText) {
    for (const wchar_t* text : {L"", L"  "}) {
        const auto rules = FaultRules::Parse(text);
        ASSERT_TRUE(rules.has_value());
        EXPECT_FALSE(rules->At(1).Fails);
    }
}

TEST(FaultPlan, CountsOnWhileTheTextStaysTheSame) {
    FaultPlan plan;
    ASSERT_TRUE(plan.Load(L"fail@2"));
    EXPECT_FALSE(plan.Next().Fails);
    ASSERT_TRUE(plan.Load(L"fail@2"));
    EXPECT_TRUE(plan.Next().Fails);
    ASSERT_TRUE(plan.Load(L"fail@1"));
    EXPECT_TRUE(plan.Next().Fails);
}

TEST(FaultPlan, LetsEverythingSucceedAfterABadText) {
    FaultPlan plan;
    EXPECT_FALSE(plan.Load(L"fail@*,nonsense"));
    EXPECT_FALSE(plan.Load(L"fail@*,nonsense"));
    EXPECT_FALSE(plan.Next().Fails);
}

}  // namespace
}  // namespace ferry::fileop
