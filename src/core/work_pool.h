#pragma once

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <list>
#include <mutex>
#include <thread>
#include <vector>

namespace corvane {

/// Threads that help with work that comes in pieces. Callers always work; pool threads join while the number of both is
/// below the limit, by default the number of cores. Threads are started on demand and end with the program.
class WorkPool {
public:
    /// Work that several threads process piece by piece. Must outlive its `perform`.
    class Job {
    public:
        Job() = default;
        Job(const Job &) = delete;
        Job &operator=(const Job &) = delete;
        virtual ~Job() = default;

        /// Processes the next piece; false if there is none at the moment. Any thread. An exception terminates the
        /// program.
        virtual bool takeOne() noexcept = 0;
        /// Whether no piece is available at the moment. Any thread.
        [[nodiscard]] virtual bool isHandedOut() const = 0;

    private:
        friend class WorkPool;
        // Guarded by the pool's lock.
        std::size_t m_helpers = 0;         // pool threads working on it
        bool m_callerWaits = false;        // for its helpers
        std::condition_variable m_changed; // the last helper has left, or there is a piece for the caller
    };

    [[nodiscard]] static WorkPool &instance();

    /// Processes pieces on the calling thread with up to `helpers` other threads, and returns when no piece is left and
    /// all helpers have returned. Calls may be nested and made from several threads.
    void perform(Job &job, std::size_t helpers);

    /// Whether another thread could be put to work at once. Cheap enough to check for every folder of a walk.
    [[nodiscard]] bool hasRoom() const
    {
        return m_working.load(std::memory_order_relaxed) + m_woken.load(std::memory_order_relaxed) +
                   m_starting.load(std::memory_order_relaxed) <
               m_limit.load(std::memory_order_relaxed);
    }

    /// Signals that a piece was added to a running job: a thread picks it up if there is room.
    void addedPiece(Job &job);

    [[nodiscard]] std::size_t limit() const { return m_limit.load(std::memory_order_relaxed); }
    /// At least 1.
    void setLimit(std::size_t threads);
    [[nodiscard]] static std::size_t cores();

    /// How often the calling thread has waited for work.
    [[nodiscard]] static std::uint64_t restsOfThisThread() { return rests; }

private:
    WorkPool() = default;

    /// Joins the threads; each finishes its current piece. Later calls run on their caller only.
    void stop();
    void wakeHelpers(std::size_t count);
    bool startThread();
    void help();
    [[nodiscard]] Job *newestOpenJob() const;

    // Whether this thread is already counted as working, so that a nested call does not count it twice.
    static thread_local bool isWorkingHere;
    static thread_local std::uint64_t rests;

    std::mutex m_lock;
    // Written under m_lock, also read without it.
    std::atomic<std::size_t> m_limit = cores();
    std::atomic<std::size_t> m_working = 0;  // threads inside a piece or about to take one
    std::atomic<std::size_t> m_woken = 0;    // threads still asleep that were notified
    std::atomic<std::size_t> m_starting = 0; // threads that are not running yet
    // Guarded by m_lock.
    std::list<Job *> m_jobs; // oldest first; all that are being performed
    std::vector<std::thread> m_threads;
    std::size_t m_asleep = 0;
    bool m_isStopping = false;
    std::condition_variable m_wake;
};

} // namespace corvane
