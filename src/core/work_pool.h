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

/// The threads that help with work that comes in pieces. At any time as many are at work, callers included, as the
/// limit says, which is the number of cores unless somebody sets another. Threads are started when there is work for
/// them and end with the program.
class WorkPool {
public:
    /// Work of which several threads take pieces. Lives at least as long as its `perform`.
    class Job {
    public:
        Job() = default;
        Job(const Job &) = delete;
        Job &operator=(const Job &) = delete;
        virtual ~Job() = default;

        /// Does the next piece; false where there is none at the moment. Any thread. One that throws ends the program.
        virtual bool takeOne() noexcept = 0;
        /// Whether there is no piece to be taken at the moment. Any thread.
        [[nodiscard]] virtual bool isHandedOut() const = 0;

    private:
        friend class WorkPool;
        // Guarded by the pool's lock.
        std::size_t m_helpers = 0;         // pool threads at work in it
        bool m_callerWaits = false;        // for its helpers
        std::condition_variable m_changed; // the last helper has gone, or there is a piece for the caller
    };

    [[nodiscard]] static WorkPool &instance();

    /// Takes pieces on the calling thread while up to `helpers` others come to help, and returns when none is left and
    /// all helpers have returned. Calls may be nested, and come from several threads.
    void perform(Job &job, std::size_t helpers);

    /// Whether another thread could be put to work at once. Cheap enough to be asked for every folder of a walk.
    [[nodiscard]] bool hasRoom() const
    {
        return m_working.load(std::memory_order_relaxed) + m_woken.load(std::memory_order_relaxed) +
                   m_starting.load(std::memory_order_relaxed) <
               m_limit.load(std::memory_order_relaxed);
    }

    /// Tells that a piece has been added to a job that is being performed: a thread comes for it where there is room.
    void addedPiece(Job &job);

    [[nodiscard]] std::size_t limit() const { return m_limit.load(std::memory_order_relaxed); }
    /// At least 1.
    void setLimit(std::size_t threads);
    [[nodiscard]] static std::size_t cores();

    /// How often the calling thread has had to wait for work.
    [[nodiscard]] static std::uint64_t restsOfThisThread() { return rests; }

private:
    WorkPool() = default;

    /// Joins the threads; each finishes the piece that it is in. Later calls run on their caller alone.
    void stop();
    void wakeHelpers(std::size_t count);
    bool startThread();
    void help();
    [[nodiscard]] Job *newestOpenJob() const;

    // Whether this thread counts as working already, so that a nested call does not count it twice.
    static thread_local bool isWorkingHere;
    static thread_local std::uint64_t rests;

    std::mutex m_lock;
    // Written under m_lock, read without too.
    std::atomic<std::size_t> m_limit = cores();
    std::atomic<std::size_t> m_working = 0;  // threads inside a piece or about to take one
    std::atomic<std::size_t> m_woken = 0;    // of those asleep
    std::atomic<std::size_t> m_starting = 0; // threads that have not run yet
    // Guarded by m_lock.
    std::list<Job *> m_jobs; // oldest first; all that are being performed
    std::vector<std::thread> m_threads;
    std::size_t m_asleep = 0;
    bool m_isStopping = false;
    std::condition_variable m_wake;
};

} // namespace corvane
