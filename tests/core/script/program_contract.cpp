// The contract of the programs that scripts start.
#include "core/script/program_contract.h"

namespace ferry::script::contract {
namespace {

TEST_P(ProgramContract, AProgramThatEndsTellsItsCode) {
    for (const std::uint32_t code : {0U, 7U, 259U}) {
        const auto program = Start(AtPlace().Ending(code));
        ASSERT_TRUE(program);
        EXPECT_TRUE(program->Wait(kNoTimeLimit));
        EXPECT_EQ(program->ExitCode(), code);
    }
}

TEST_P(ProgramContract, AProgramThatIsMissingIsNotStarted) {
    EXPECT_FALSE(Start(AtPlace().Missing()));
    EXPECT_FALSE(AtPlace().ThePrograms().StartHelper(AtPlace().Missing()));
}

TEST_P(ProgramContract, AHelperIsStartedAndNobodyWaitsForIt) {
    EXPECT_TRUE(AtPlace().ThePrograms().StartHelper(AtPlace().Staying()));
}

TEST_P(ProgramContract, AProgramThatStaysOutlastsTheLimit) {
    const auto program = Start(AtPlace().Staying());
    ASSERT_TRUE(program);
    for (const std::uint32_t limitMs : {0U, 1U, 120U}) {
        EXPECT_FALSE(program->Wait(limitMs));
        EXPECT_EQ(program->ExitCode(), process::kStillRuns);
    }
}

TEST_P(ProgramContract, AProgramThatIsKilledEndsWithThatCode) {
    const auto program = Start(AtPlace().Staying());
    ASSERT_TRUE(program);
    program->Kill(process::kKilledExitCode);
    EXPECT_TRUE(program->Wait(kNoTimeLimit));
    EXPECT_EQ(program->ExitCode(), 999U);
}

TEST_P(ProgramContract, AProgramThatHasEndedIsNotKilled) {
    const auto program = Start(AtPlace().Ending(3));
    ASSERT_TRUE(program);
    EXPECT_TRUE(program->Wait(kNoTimeLimit));
    program->Kill(process::kKilledExitCode);
    EXPECT_EQ(program->ExitCode(), 3U);
}

}  // namespace
}  // namespace ferry::script::contract
