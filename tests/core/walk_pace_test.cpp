#include "core/walk_pace.h"

#include <chrono>

#include <gtest/gtest.h>

#include "core/work_pool.h"

namespace corvane {
namespace {

using namespace std::chrono_literals;

constexpr WalkPace::Limits fourCores{.cores = 4, .most = 32};

TEST(WalkPace, ThreadsThatNeverWaitAreAsManyAsCores)
{
    EXPECT_EQ(WalkPace::next(4, 1.0, fourCores), 4U);
    EXPECT_EQ(WalkPace::next(32, 1.0, fourCores), 4U);
}

TEST(WalkPace, ThreadsThatWaitHalfOfTheTimeAreTwiceAsMany)
{
    EXPECT_EQ(WalkPace::next(4, 0.5, fourCores), 8U);
    EXPECT_EQ(WalkPace::next(8, 0.5, fourCores), 8U);
}

TEST(WalkPace, GrowsToAtMostTwiceOfWhatItWas)
{
    EXPECT_EQ(WalkPace::next(4, 0.01, fourCores), 8U);
    EXPECT_EQ(WalkPace::next(8, 0.01, fourCores), 16U);
}

TEST(WalkPace, StaysWithinTheMostThatThereMayBe)
{
    EXPECT_EQ(WalkPace::next(32, 0.01, fourCores), 32U);
    EXPECT_EQ(WalkPace::next(4, 0.01, {.cores = 4, .most = 6}), 6U);
    EXPECT_EQ(WalkPace::next(4, 1.0, {.cores = 4, .most = 2}), 2U) << "fewer than there are cores";
    EXPECT_EQ(WalkPace::next(1, 0.0, {.cores = 1, .most = 1}), 1U);
}

TEST(WalkPace, AFigureThatNoThreadCanHaveIsTakenForTheNearest)
{
    EXPECT_EQ(WalkPace::next(16, -1.0, fourCores), 32U);
    EXPECT_EQ(WalkPace::next(16, 7.0, fourCores), 4U);
}

TEST(WalkPace, ARotationalDiskGetsFewerThreadsWhileTheyWait)
{
    const WalkPace::Limits spinning{.cores = 4, .most = 32, .disk = WalkPace::Disk::spinning};
    EXPECT_EQ(WalkPace::next(4, 0.1, spinning), 2U);
    EXPECT_EQ(WalkPace::next(2, 0.9, spinning), 4U) << "what is in memory costs no movement of the disk";
    EXPECT_EQ(WalkPace::next(1, 0.1, {.cores = 1, .most = 32, .disk = WalkPace::Disk::spinning}), 1U);
}

TEST(WalkPace, AnswersOnceThereIsEnoughToGoBy)
{
    WalkPace pace(fourCores);
    EXPECT_EQ(pace.add(2ms, 1ms, true), std::nullopt);
    EXPECT_EQ(pace.add(60ms, 15ms, true), 8U);
    EXPECT_EQ(pace.add(60ms, 30ms, true), std::nullopt) << "of eight threads, that is not enough";
    EXPECT_EQ(pace.add(60ms, 30ms, true), std::nullopt) << "the number is right";
}

TEST(WalkPace, AThreadThatOthersKeptFromItsCoreDidNotWait)
{
    WalkPace pace(fourCores);
    EXPECT_EQ(pace.add(80ms, 10ms, false), std::nullopt);
}

TEST(PacedWalk, AfterTheLastThereAreAsManyThreadsAsCores)
{
    {
        const PacedWalk outer("/");
        const PacedWalk inner("/");
        ASSERT_NE(PacedWalk::current(), nullptr);
        WorkPool::instance().setLimit(WorkPool::cores() + 5);
    }
    EXPECT_EQ(PacedWalk::current(), nullptr);
    EXPECT_EQ(WorkPool::instance().limit(), WorkPool::cores());
}

TEST(PacedWalk, LeavesAFixedNumberOfThreadsAlone)
{
    const FixedWalkThreads fixed(7);
    {
        const PacedWalk walk("/");
        EXPECT_EQ(PacedWalk::current(), nullptr);
        EXPECT_EQ(WorkPool::instance().limit(), 7U);
    }
    EXPECT_EQ(WorkPool::instance().limit(), 7U);
}

} // namespace
} // namespace corvane
