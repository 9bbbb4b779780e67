#include "core/concurrent_perform.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <list>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace corvane {

namespace {

/// One call of `concurrentPerform` with more than one iteration; lives on its caller's stack.
struct Job {
    Job(std::size_t iterationCount, const std::function<void(std::size_t)> &work)
        : iterations(iterationCount), body(work)
    {
    }

    const std::size_t iterations;
    const std::function<void(std::size_t)> &body;
    std::atomic<std::size_t> next = 0; // iterations handed out; may run past the end
    std::size_t helpers = 0;           // pool threads at work in it; guarded by the pool's lock
    std::condition_variable left;      // the last helper has gone

    [[nodiscard]] bool isHandedOut() const { return next.load(std::memory_order_relaxed) >= iterations; }
};

/// The threads that help. Exactly as many threads as there are cores are at work at any time: a caller that
/// has nothing left but to wait for its helpers lends its core to another thread meanwhile. It does not take
/// on other work itself, for that would pile up on its stack without end and hold up its own return.
class Pool {
public:
    void perform(Job &job)
    {
        const bool isNested = isWorkingHere;
        std::unique_lock lock(m_lock);
        if (!isNested)
            ++m_working;
        const auto position = m_jobs.insert(m_jobs.end(), &job);
        wakeHelpers(job.iterations - 1);
        lock.unlock();

        isWorkingHere = true;
        while (takeOne(job)) {}
        isWorkingHere = isNested;

        lock.lock();
        m_jobs.erase(position);
        if (job.helpers > 0) {
            --m_working;
            wakeHelpers(1);
            job.left.wait(lock, [&] { return job.helpers == 0; });
            ++m_working;
        }
        if (!isNested) {
            --m_working;
            wakeHelpers(1);
        }
    }

    /// Joins the threads; each finishes the iteration that it is in. Later calls run on their caller alone.
    void stop()
    {
        std::unique_lock lock(m_lock);
        m_isStopping = true;
        m_wake.notify_all();
        std::vector<std::thread> threads = std::move(m_threads);
        lock.unlock();
        for (std::thread &thread : threads)
            thread.join();
    }

private:
    static bool takeOne(Job &job) noexcept
    {
        const std::size_t iteration = job.next.fetch_add(1, std::memory_order_relaxed);
        if (iteration >= job.iterations)
            return false;
        job.body(iteration);
        return true;
    }

    /// Lets up to `count` further threads come to the open jobs where cores are free; starts those that are
    /// not there yet. Under the lock.
    void wakeHelpers(std::size_t count)
    {
        if (m_isStopping || !newestOpenJob())
            return;
        for (; count > 0 && m_working + m_woken + m_starting < m_cores; --count) {
            if (m_woken < m_asleep) {
                ++m_woken;
                m_wake.notify_one();
            } else if (!startThread()) {
                return;
            }
        }
    }

    bool startThread()
    {
        try {
            m_threads.emplace_back([this] { help(); });
        } catch (const std::system_error &) {
            return false; // no more threads to be had: those that there are do the work
        }
        ++m_starting;
        return true;
    }

    void help()
    {
        isWorkingHere = true;
        std::unique_lock lock(m_lock);
        --m_starting;
        while (!m_isStopping) {
            Job *const job = m_working < m_cores ? newestOpenJob() : nullptr;
            if (!job) {
                ++m_asleep;
                m_wake.wait(lock, [&] { return m_woken > 0 || m_isStopping; });
                --m_asleep;
                if (m_woken > 0)
                    --m_woken;
                continue;
            }
            ++job->helpers;
            ++m_working;
            lock.unlock();
            while (m_working.load(std::memory_order_relaxed) <= m_cores && takeOne(*job)) {}
            lock.lock();
            --m_working;
            if (--job->helpers == 0)
                job->left.notify_one();
        }
    }

    /// The newest comes first: a nested call is finished before the one around it opens further ones. Under
    /// the lock.
    [[nodiscard]] Job *newestOpenJob() const
    {
        const auto found =
            std::find_if(m_jobs.rbegin(), m_jobs.rend(), [](const Job *job) { return !job->isHandedOut(); });
        return found == m_jobs.rend() ? nullptr : *found;
    }

    // Whether this thread counts as working already, so that a nested call does not count it twice.
    static thread_local bool isWorkingHere;

    const std::size_t m_cores = std::max(1U, std::thread::hardware_concurrency());
    std::mutex m_lock;
    // Written under m_lock; helpers read it between two iterations without.
    std::atomic<std::size_t> m_working = 0; // threads inside an iteration or about to take one
    // Guarded by m_lock.
    std::list<Job *> m_jobs; // oldest first; all whose callers still take iterations
    std::vector<std::thread> m_threads;
    std::size_t m_asleep = 0;
    std::size_t m_woken = 0;    // of those asleep
    std::size_t m_starting = 0; // threads that have not run yet
    bool m_isStopping = false;
    std::condition_variable m_wake;
};

thread_local bool Pool::isWorkingHere = false;

/// The pool outlives every thread that may still call it while the program ends; only its threads are ended.
Pool &pool()
{
    static Pool *const instance = new Pool;
    static const struct Stopper {
        ~Stopper() { instance->stop(); }
    } stopper;
    return *instance;
}

} // namespace

void concurrentPerform(std::size_t iterations, const std::function<void(std::size_t)> &body)
{
    if (iterations == 0)
        return;
    if (iterations == 1) {
        [&]() noexcept { body(0); }();
        return;
    }
    Job job(iterations, body);
    pool().perform(job);
}

} // namespace corvane
