#include "core/store/latest_job.h"

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>
#include <QThread>

#include "support/patience.h"

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

void waitUntilStopped(const StopFlag &stop)
{
    while (!stop)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

class LatestJobTest : public testing::Test {
protected:
    using Job = LatestJob<int>;

    std::unique_ptr<Job> jobOf(int threads)
    {
        return std::make_unique<Job>([this](int result) { received.push_back(result); }, threads);
    }
    bool waitForResult()
    {
        return QTest::qWaitFor([this] { return !received.empty(); }, patience);
    }

    std::vector<int> received;
    std::unique_ptr<Job> job = jobOf(1);
};

TEST_F(LatestJobTest, TheResultIsReceivedOnTheMainThreadAndTheJobIsLoadingUntilThen)
{
    QThread *workedOn = nullptr;
    QThread *receivedOn = nullptr;
    bool wasLoading = true;
    std::unique_ptr<Job> observed;
    observed = std::make_unique<Job>([&](int result) {
        received.push_back(result);
        receivedOn = QThread::currentThread();
        wasLoading = observed->isLoading();
    });
    EXPECT_FALSE(observed->isLoading());

    observed->start([&](StopFlag &) {
        workedOn = QThread::currentThread();
        return 7;
    });
    EXPECT_TRUE(observed->isLoading());
    EXPECT_THAT(received, IsEmpty());

    ASSERT_TRUE(waitForResult());
    EXPECT_THAT(received, ElementsAre(7));
    EXPECT_FALSE(wasLoading);
    EXPECT_EQ(receivedOn, QThread::currentThread());
    EXPECT_NE(workedOn, QThread::currentThread());
}

TEST_F(LatestJobTest, SupersededWorkIsToldToStopAndItsResultIsDropped)
{
    std::promise<void> begun;
    job->start([&](StopFlag &stop) {
        begun.set_value();
        waitUntilStopped(stop);
        return 1;
    });
    begun.get_future().wait();
    job->start([](StopFlag &stop) { return stop ? -1 : 2; });
    ASSERT_TRUE(waitForResult());
    EXPECT_THAT(received, ElementsAre(2));
}

TEST_F(LatestJobTest, WorkThatIsSupersededBeforeItsTurnIsNotBegun)
{
    std::atomic<bool> hasBegun = false;
    std::promise<void> isRunning;
    std::promise<void> mayEnd;
    job->start([&](StopFlag &) {
        isRunning.set_value();
        mayEnd.get_future().wait();
        return 1;
    });
    isRunning.get_future().wait(); // otherwise the second might get the thread
    job->start([&](StopFlag &) {
        hasBegun = true;
        return 2;
    });
    job->start([](StopFlag &) { return 3; });
    mayEnd.set_value();
    ASSERT_TRUE(waitForResult());
    EXPECT_THAT(received, ElementsAre(3));
    EXPECT_FALSE(hasBegun);
}

TEST_F(LatestJobTest, ASupersededResultThatArrivesAfterTheNewRequestHasStartedIsDropped)
{
    job->start([](StopFlag &) { return 1; });
    const int superseded = job->token();
    std::promise<void> mayEnd;
    job->start([&](StopFlag &) {
        mayEnd.get_future().wait();
        return 2;
    });
    EXPECT_GT(job->token(), superseded);
    job->finish(1, superseded);
    EXPECT_TRUE(job->isLoading());
    mayEnd.set_value();
    ASSERT_TRUE(waitForResult());
    job->finish(1, superseded);
    EXPECT_THAT(received, ElementsAre(2));
}

TEST_F(LatestJobTest, AResultUnderWayWhenItsRequestIsSupersededIsDropped)
{
    job->start([](StopFlag &) { return 1; });
    // With one thread the second step starts when the first has delivered its result.
    std::promise<void> isHandedOver;
    job->proceed([&](StopFlag &) {
        isHandedOver.set_value();
        return 2;
    });
    isHandedOver.get_future().wait();
    job->start([](StopFlag &) { return 3; });
    ASSERT_TRUE(waitForResult());
    EXPECT_THAT(received, ElementsAre(3));
}

TEST_F(LatestJobTest, WithMoreThreadsTheNewestDoesNotWaitForWhatItSupersedes)
{
    std::promise<void> mayEnd;
    job = jobOf(2);
    job->start([&](StopFlag &) {
        mayEnd.get_future().wait();
        return 1;
    });
    job->start([](StopFlag &) { return 2; });
    ASSERT_TRUE(waitForResult());
    mayEnd.set_value();
    job.reset();
    QCoreApplication::processEvents();
    EXPECT_THAT(received, ElementsAre(2));
}

TEST_F(LatestJobTest, ADroppedRequestIsToldToStopAndNothingIsAwaited)
{
    std::promise<void> begun;
    std::promise<void> hasStopped;
    job->start([&](StopFlag &stop) {
        begun.set_value();
        waitUntilStopped(stop);
        hasStopped.set_value();
        return 1;
    });
    begun.get_future().wait();
    const int token = job->token();
    job->drop();
    EXPECT_FALSE(job->isLoading());
    EXPECT_NE(job->token(), token);
    hasStopped.get_future().wait();
    job.reset();
    QCoreApplication::processEvents();
    EXPECT_THAT(received, IsEmpty());
}

TEST_F(LatestJobTest, AFurtherStepBelongsToTheSameRequest)
{
    job->proceed([](StopFlag &) { return 0; }); // no job to proceed from
    EXPECT_FALSE(job->isLoading());

    std::unique_ptr<Job> twice;
    twice = std::make_unique<Job>([&](int result) {
        if (result == 1)
            twice->proceed([](StopFlag &) { return 2; });
        else
            received.push_back(result);
    });
    twice->start([](StopFlag &) { return 1; });
    const int token = twice->token();
    ASSERT_TRUE(waitForResult());
    EXPECT_THAT(received, ElementsAre(2));
    EXPECT_EQ(twice->token(), token);
    EXPECT_FALSE(twice->isLoading());

    twice->drop();
    twice->proceed([](StopFlag &) { return 3; });
    EXPECT_FALSE(twice->isLoading());
}

TEST_F(LatestJobTest, AJobThatIsDestroyedStopsItsWorkAndWaitsForIt)
{
    std::promise<void> begun;
    std::atomic<bool> hasEnded = false;
    job->start([&](StopFlag &stop) {
        begun.set_value();
        waitUntilStopped(stop);
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        hasEnded = true;
        return 1;
    });
    begun.get_future().wait();
    job.reset();
    EXPECT_TRUE(hasEnded);
    QCoreApplication::processEvents();
    EXPECT_THAT(received, IsEmpty());
}

TEST_F(LatestJobTest, AResultUnderWayWhenTheJobIsDestroyedIsNotReceived)
{
    job->start([](StopFlag &) { return 1; });
    std::promise<void> isHandedOver;
    job->proceed([&](StopFlag &) {
        isHandedOver.set_value();
        return 2;
    });
    isHandedOver.get_future().wait();
    job.reset();
    QCoreApplication::processEvents();
    EXPECT_THAT(received, IsEmpty());
}

TEST_F(LatestJobTest, AClosedJobReceivesAndStartsNothing)
{
    std::atomic<bool> hasBegun = false;
    job->start([](StopFlag &) { return 1; });
    const int token = job->token();
    job->close();
    job->finish(1, token);
    job->start([&](StopFlag &) {
        hasBegun = true;
        return 2;
    });
    EXPECT_FALSE(job->isLoading());
    job.reset();
    EXPECT_FALSE(hasBegun);
    EXPECT_THAT(received, IsEmpty());
}

TEST_F(LatestJobTest, ASupersededResultIsLetGoOfInTheBackground)
{
    std::atomic<QThread *> freedOn = nullptr;
    LatestJob<std::shared_ptr<int>> large([](const std::shared_ptr<int> &) {});
    large.finish(std::shared_ptr<int>(new int(1),
                                      [&](const int *held) {
                                          freedOn = QThread::currentThread();
                                          delete held;
                                      }),
                 large.token() - 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return freedOn != nullptr; }, patience));
    EXPECT_NE(freedOn, QThread::currentThread());
}

/// Counters shared by a long search.
struct Counters {
    std::atomic<int> done = 0;
    std::atomic<bool> isCancelled = false;

    void cancel() { isCancelled = true; }
};

TEST_F(LatestJobTest, TheCountersOfTheNewestRequestCanBeReadWhileItRuns)
{
    LatestJob<int, Counters> search([this](int result) { received.push_back(result); }, 2);
    EXPECT_EQ(search.progress(), nullptr);
    std::promise<void> mayEnd;
    const std::shared_future<void> end = mayEnd.get_future().share();
    const auto countTo = [end](int number) {
        return [=](Counters &counters) {
            counters.done = number;
            end.wait();
            return number;
        };
    };
    search.start(countTo(10));
    const std::shared_ptr<Counters> first = search.progress();
    ASSERT_TRUE(QTest::qWaitFor([&] { return first->done == 10; }, patience));

    search.start(countTo(20));
    EXPECT_TRUE(first->isCancelled);
    const std::shared_ptr<Counters> second = search.progress();
    EXPECT_NE(second, first);
    EXPECT_FALSE(second->isCancelled);
    ASSERT_TRUE(QTest::qWaitFor([&] { return second->done == 20; }, patience));

    mayEnd.set_value();
    ASSERT_TRUE(waitForResult());
    EXPECT_THAT(received, ElementsAre(20));
    EXPECT_EQ(search.progress(), second);
}

TEST_F(LatestJobTest, HeldWorkRunsAfterTheReleaseAndCountsAsLoadingBefore)
{
    std::atomic<int> runs = 0;
    job->hold();
    job->start([&](StopFlag &) { return ++runs; });
    EXPECT_TRUE(job->isLoading());
    QTest::qWait(50);
    EXPECT_EQ(runs, 0);

    job->release();
    ASSERT_TRUE(waitForResult());
    EXPECT_THAT(received, ElementsAre(1));
    EXPECT_FALSE(job->isLoading());
}

TEST_F(LatestJobTest, OfHeldRequestsOnlyTheNewestIsRunAndNoneThatWasDropped)
{
    job->hold();
    job->start([](StopFlag &) { return 1; });
    job->start([](StopFlag &) { return 2; });
    job->release();
    ASSERT_TRUE(waitForResult());
    EXPECT_THAT(received, ElementsAre(2));

    received.clear();
    job->hold();
    job->start([](StopFlag &) { return 3; });
    job->drop();
    job->release();
    job->start([](StopFlag &) { return 4; });
    ASSERT_TRUE(waitForResult());
    EXPECT_THAT(received, ElementsAre(4));
}

} // namespace
} // namespace corvane
