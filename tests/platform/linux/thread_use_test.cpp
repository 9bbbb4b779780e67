#include "platform/thread_use.h"

#include <cstdint>

#include <gtest/gtest.h>

#include <unistd.h>

namespace corvane {
namespace {

TEST(ThreadUse, IncreasesWithWorkAndCountsWaits)
{
    const ThreadUse before = threadUse();
    volatile double sum = 0;
    for (int i = 0; threadUse().processor == before.processor && i < 100'000'000; ++i)
        sum = sum + i;
    EXPECT_GT(threadUse().processor, before.processor);
    ASSERT_TRUE(threadUse().waits.has_value());
    const std::int64_t waits = *threadUse().waits;
    ::usleep(1'000);
    EXPECT_GT(*threadUse().waits, waits);
}

} // namespace
} // namespace corvane
