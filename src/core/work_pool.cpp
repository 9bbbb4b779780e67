#include "core/work_pool.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace corvane {

thread_local bool WorkPool::isWorkingHere = false;
thread_local std::uint64_t WorkPool::rests = 0;

std::size_t WorkPool::cores()
{
    return std::max(1U, std::thread::hardware_concurrency());
}

WorkPool &WorkPool::instance()
{
    // Never destroyed, since threads may still call it while the program exits; only its threads are joined.
    static WorkPool *const pool = new WorkPool;
    static const struct Stopper {
        ~Stopper() { pool->stop(); }
    } stopper;
    return *pool;
}

void WorkPool::perform(Job &job, std::size_t helpers)
{
    const bool isNested = isWorkingHere;
    std::unique_lock lock(m_lock);
    if (!isNested)
        ++m_working;
    const auto position = m_jobs.insert(m_jobs.end(), &job);
    wakeHelpers(helpers);
    for (;;) {
        lock.unlock();
        isWorkingHere = true;
        while (job.takeOne()) {}
        isWorkingHere = isNested;
        lock.lock();
        if (!job.isHandedOut())
            continue;
        if (job.m_helpers == 0)
            break;
        // A caller that only waits for its helpers frees its core for another thread meanwhile. It takes no other job
        // itself, which could nest without bound and delay its return.
        --m_working;
        wakeHelpers(1);
        ++rests;
        job.m_callerWaits = true;
        job.m_changed.wait(lock, [&] { return job.m_helpers == 0 || !job.isHandedOut(); });
        job.m_callerWaits = false;
        ++m_working;
    }
    m_jobs.erase(position);
    if (!isNested) {
        --m_working;
        wakeHelpers(1);
    }
}

void WorkPool::addedPiece(Job &job)
{
    const std::scoped_lock lock(m_lock);
    if (job.m_callerWaits && m_working < m_limit)
        job.m_changed.notify_one();
    else
        wakeHelpers(1);
}

void WorkPool::setLimit(std::size_t threads)
{
    const std::scoped_lock lock(m_lock);
    m_limit = std::max<std::size_t>(1, threads);
    wakeHelpers(m_limit);
}

void WorkPool::stop()
{
    std::unique_lock lock(m_lock);
    m_isStopping = true;
    m_wake.notify_all();
    std::vector<std::thread> threads = std::move(m_threads);
    lock.unlock();
    for (std::thread &thread : threads)
        thread.join();
}

/// Assigns up to `count` more threads to the open jobs if there is room, starting threads as needed. Under the lock.
void WorkPool::wakeHelpers(std::size_t count)
{
    if (m_isStopping || !newestOpenJob())
        return;
    for (; count > 0 && hasRoom(); --count) {
        if (m_woken < m_asleep) {
            ++m_woken;
            m_wake.notify_one();
        } else if (!startThread()) {
            return;
        }
    }
}

bool WorkPool::startThread()
{
    try {
        m_threads.emplace_back([this] { help(); });
    } catch (const std::system_error &) {
        return false; // no more threads can be started; the existing ones do the work
    }
    ++m_starting;
    return true;
}

void WorkPool::help()
{
    isWorkingHere = true;
    std::unique_lock lock(m_lock);
    --m_starting;
    while (!m_isStopping) {
        Job *const job = m_working < m_limit ? newestOpenJob() : nullptr;
        if (!job) {
            ++rests;
            ++m_asleep;
            m_wake.wait(lock, [&] { return m_woken > 0 || m_isStopping; });
            --m_asleep;
            if (m_woken > 0)
                --m_woken;
            continue;
        }
        ++job->m_helpers;
        ++m_working;
        lock.unlock();
        while (m_working.load(std::memory_order_relaxed) <= m_limit.load(std::memory_order_relaxed) && job->takeOne()) {
        }
        lock.lock();
        --m_working;
        if (--job->m_helpers == 0)
            job->m_changed.notify_one();
    }
}

/// The newest job first: finishes a nested call before the outer one opens more. Under the lock.
WorkPool::Job *WorkPool::newestOpenJob() const
{
    const auto found = std::find_if(m_jobs.rbegin(), m_jobs.rend(), [](const Job *job) { return !job->isHandedOut(); });
    return found == m_jobs.rend() ? nullptr : *found;
}

} // namespace corvane
