#include "core/scan_progress.h"

#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace corvane {
namespace {

TEST(ScanProgress, StartsAtNothingAndNotCancelled)
{
    const ScanProgress progress;
    const ScanProgress::Counters counters = progress.counters();
    EXPECT_EQ(counters.files, 0);
    EXPECT_EQ(counters.bytes, 0);
    EXPECT_EQ(counters.current, "");
    EXPECT_FALSE(progress.isCancelled());
}

TEST(ScanProgress, RecordsAddUpAndNameTheLastFolder)
{
    ScanProgress progress;
    progress.record(3, 4'096, "/a/long/path/of/a/folder");
    progress.record(2, 1'000'000, "/b");
    progress.record(0, 0, "/b/\xff");
    const ScanProgress::Counters counters = progress.counters();
    EXPECT_EQ(counters.files, 5);
    EXPECT_EQ(counters.bytes, 1'004'096);
    EXPECT_EQ(counters.current, "/b/\xff");
}

TEST(ScanProgress, CancelledStaysCancelled)
{
    ScanProgress progress;
    progress.cancel();
    progress.cancel();
    progress.record(1, 1, "/a");
    EXPECT_TRUE(progress.isCancelled());
}

TEST(ScanProgress, RecordsOfSeveralThreadsAreAllCounted)
{
    constexpr int threadCount = 4;
    constexpr int records = 5'000;
    ScanProgress progress;
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&progress] {
            for (int record = 0; record < records; ++record)
                progress.record(2, 10, "/some/folder");
        });
    }
    // Files and bytes are read consistently, never one without the other.
    for (std::int64_t seen = 0; seen < threadCount * records * 2;) {
        const ScanProgress::Counters counters = progress.counters();
        ASSERT_EQ(counters.bytes, counters.files * 5);
        seen = counters.files;
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(progress.counters().files, threadCount * records * 2);
    EXPECT_EQ(progress.counters().bytes, threadCount * records * 10);
}

TEST(ScanProgress, TheFirstFailureCountsAndEndsTheWalkWithoutCancellingIt)
{
    ScanProgress progress;
    EXPECT_FALSE(progress.shouldStop());
    progress.fail(Error{"open", "/a", std::make_error_code(std::errc::too_many_files_open), {}});
    progress.fail(Error{"open", "/b", std::make_error_code(std::errc::io_error), {}});
    EXPECT_EQ(progress.failure()->path, "/a");
    EXPECT_TRUE(progress.shouldStop());
    EXPECT_FALSE(progress.isCancelled());
}

TEST(ScanProgressDeathTest, CounterOverflowStopsTheProgram)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    ScanProgress progress;
    progress.record(0, INT64_MAX, "/a");
    EXPECT_DEATH(progress.record(0, 1, "/b"), "");
}

} // namespace
} // namespace corvane
