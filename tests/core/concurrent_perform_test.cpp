#include "core/concurrent_perform.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <mutex>
#include <numeric>
#include <stdexcept>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace corvane {
namespace {

using namespace std::chrono_literals;

std::size_t cores()
{
    return std::max(1U, std::thread::hardware_concurrency());
}

/// Counts how many threads are inside at once.
class Gauge {
public:
    class Inside {
    public:
        explicit Inside(Gauge &gauge) : m_gauge(gauge)
        {
            const std::scoped_lock lock(gauge.m_lock);
            gauge.m_most = std::max(gauge.m_most, ++gauge.m_now);
            gauge.m_changed.notify_all();
        }
        Inside(const Inside &) = delete;
        Inside &operator=(const Inside &) = delete;
        ~Inside()
        {
            const std::scoped_lock lock(m_gauge.m_lock);
            --m_gauge.m_now;
        }

    private:
        Gauge &m_gauge;
    };

    /// Waits until at least `count` threads are, or have been, inside at once; returns false on timeout.
    bool reaches(std::size_t count)
    {
        std::unique_lock lock(m_lock);
        return m_changed.wait_for(lock, 20s, [&] { return m_most >= count; });
    }

    std::size_t most()
    {
        const std::scoped_lock lock(m_lock);
        return m_most;
    }

private:
    std::mutex m_lock;
    std::condition_variable m_changed;
    std::size_t m_now = 0;
    std::size_t m_most = 0;
};

TEST(ConcurrentPerform, NoIterationsCallNothing)
{
    concurrentPerform(0, [](std::size_t) { FAIL(); });
}

TEST(ConcurrentPerform, OneIterationRunsOnTheCallersThread)
{
    std::thread::id thread;
    concurrentPerform(1, [&](std::size_t i) {
        EXPECT_EQ(i, 0U);
        thread = std::this_thread::get_id();
    });
    EXPECT_EQ(thread, std::this_thread::get_id());
}

TEST(ConcurrentPerform, EveryIterationRunsExactlyOnce)
{
    for (const std::size_t iterations : {2UL, 3UL, 64UL, 10'000UL}) {
        std::vector<int> calls(iterations); // written by one thread each; a race is a bug in the pool
        concurrentPerform(iterations, [&](std::size_t i) { ++calls.at(i); });
        EXPECT_TRUE(std::ranges::all_of(calls, [](int count) { return count == 1; })) << iterations;
    }
}

TEST(ConcurrentPerform, ReturnsOnlyWhenEveryIterationHasReturned)
{
    for (int round = 0; round < 20; ++round) {
        std::atomic<int> finished = 0;
        concurrentPerform(4, [&](std::size_t i) {
            std::this_thread::sleep_for(i == 3 ? 5ms : 0ms);
            ++finished;
        });
        EXPECT_EQ(finished, 4);
    }
}

TEST(ConcurrentPerform, AsManyIterationsAsCoresRunAtOnce)
{
    Gauge gauge;
    concurrentPerform(cores() * 4, [&](std::size_t) {
        const Gauge::Inside inside(gauge);
        EXPECT_TRUE(gauge.reaches(cores()));
    });
    EXPECT_GE(gauge.most(), cores());
}

TEST(ConcurrentPerform, TheCallerTakesItsShare)
{
    std::atomic<bool> tookOne = false;
    const std::thread::id caller = std::this_thread::get_id();
    Gauge gauge;
    concurrentPerform(cores(), [&](std::size_t) {
        if (std::this_thread::get_id() == caller)
            tookOne = true;
        const Gauge::Inside inside(gauge);
        EXPECT_TRUE(gauge.reaches(cores())); // so that every thread gets one
    });
    EXPECT_TRUE(tookOne);
}

TEST(ConcurrentPerform, NestedCallsReturnAndCountRight)
{
    std::atomic<std::size_t> calls = 0;
    concurrentPerform(30, [&](std::size_t outer) {
        concurrentPerform(outer, [&](std::size_t) { concurrentPerform(3, [&](std::size_t) { ++calls; }); });
    });
    EXPECT_EQ(calls, 30U * 29U / 2U * 3U);
}

TEST(ConcurrentPerform, AThreadThatWaitsForItsNestedCallLendsItsCore)
{
    if (cores() < 2)
        GTEST_SKIP() << "needs two cores";
    // Every core is busy with an outer iteration; then the first opens a nested call, the second leaves to help there,
    // and the first can only wait for it. The second now needs a thread itself, for which a core is free only if the
    // waiting thread has lent its own.
    Gauge outerGauge;
    Gauge nestedGauge;
    Gauge innermostGauge;
    concurrentPerform(cores(), [&](std::size_t outer) {
        const Gauge::Inside inside(outerGauge);
        EXPECT_TRUE(outerGauge.reaches(cores()));
        if (outer == 1)
            return;
        if (outer > 1) {
            EXPECT_TRUE(innermostGauge.reaches(2));
            return;
        }
        const std::thread::id owner = std::this_thread::get_id();
        concurrentPerform(2, [&](std::size_t) {
            const Gauge::Inside insideNested(nestedGauge);
            EXPECT_TRUE(nestedGauge.reaches(2));
            if (std::this_thread::get_id() == owner)
                return;
            concurrentPerform(2, [&](std::size_t) {
                const Gauge::Inside insideInnermost(innermostGauge);
                EXPECT_TRUE(innermostGauge.reaches(2));
            });
        });
    });
}

TEST(ConcurrentPerform, NotManyMoreThreadsThanCoresAreAtWork)
{
    Gauge gauge;
    concurrentPerform(50, [&](std::size_t) {
        concurrentPerform(8, [&](std::size_t) {
            const Gauge::Inside inside(gauge);
            std::this_thread::sleep_for(100us);
        });
    });
    // A caller whose helpers are done continues immediately, before the thread that replaced it has stopped.
    EXPECT_LE(gauge.most(), cores() * 2);
}

TEST(ConcurrentPerform, CallsOfSeveralThreadsDoNotDisturbOneAnother)
{
    std::vector<std::thread> threads;
    std::vector<std::size_t> sums(4);
    for (std::size_t thread = 0; thread < sums.size(); ++thread) {
        threads.emplace_back([&sum = sums[thread]] {
            for (int round = 0; round < 50; ++round) {
                std::vector<std::size_t> values(100);
                concurrentPerform(values.size(), [&](std::size_t i) { values[i] = i; });
                sum += std::accumulate(values.begin(), values.end(), std::size_t{0});
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(sums, std::vector<std::size_t>(4, 50 * 4'950));
}

TEST(ConcurrentPerformDeathTest, ABodyThatThrowsEndsTheProgram)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(concurrentPerform(1, [](std::size_t) { throw std::runtime_error("one"); }), "");
    EXPECT_DEATH(concurrentPerform(8, [](std::size_t) { throw std::runtime_error("many"); }), "");
}

TEST(ConcurrentPerformDeathTest, TheProgramEndsCleanlyWhileAnIterationRuns)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            std::atomic<bool> running = false;
            std::thread caller([&] {
                concurrentPerform(8, [&](std::size_t) {
                    running = true;
                    std::this_thread::sleep_for(20ms);
                });
            });
            while (!running)
                std::this_thread::yield();
            caller.detach();
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace corvane
