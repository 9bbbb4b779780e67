#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/thread_use.h"

namespace corvane {

/// How many threads walks should have. Where everything is in memory, more than there are cores only get into each
/// other's way; where each listing waits for the disk, a disk that many ask at once answers many times as much.
class WalkPace {
public:
    /// What walks stand on. A disk that turns does worse the more places it is asked for.
    enum class Disk : std::uint8_t { unknown, spinning };

    struct Limits {
        std::size_t cores = 1;
        std::size_t most = 1; ///< threads that there may be at all
        Disk disk = Disk::unknown;
    };

    /// The number for the next stretch, after one with `threads` in which each was on its core for the part `busy` of
    /// the time, 0 to 1. Grows to at most twice of what it was.
    [[nodiscard]] static std::size_t next(std::size_t threads, double busy, const Limits &limits);

    explicit WalkPace(const Limits &limits) : m_limits(limits), m_threads(limits.cores) {}

    /// Adds what one thread of a walk did for a while: how long it took, for how much of it the thread had its core,
    /// and whether it waited at all. The number to have from now on, where that is another. Any thread.
    [[nodiscard]] std::optional<std::size_t> add(std::chrono::nanoseconds taken, std::chrono::nanoseconds processor,
                                                 bool waited);

private:
    // So long, of all threads together, until the next number: some listings of a slow disk, and no time that a user
    // notices.
    static constexpr std::chrono::milliseconds stretch{10};

    const Limits m_limits;
    std::mutex m_lock;
    // Guarded by m_lock.
    std::size_t m_threads;
    std::chrono::nanoseconds m_taken{0};
    std::chrono::nanoseconds m_processor{0};
};

/// As long as one lives, the number of threads of the pool follows how long walks wait for the disk; after the last, it
/// is the number of cores again. Of several at a time, the first one's folder decides which disk it is.
class PacedWalk {
public:
    explicit PacedWalk(const std::string &folder);
    ~PacedWalk();
    PacedWalk(const PacedWalk &) = delete;
    PacedWalk &operator=(const PacedWalk &) = delete;

    /// The pace of the walks that are going on; null where there is none, or where the number of threads is fixed.
    [[nodiscard]] static std::shared_ptr<WalkPace> current();
};

/// As long as it lives, walks have exactly that many threads, whatever the disk does. The innermost counts.
class FixedWalkThreads {
public:
    explicit FixedWalkThreads(std::size_t threads);
    ~FixedWalkThreads();
    FixedWalkThreads(const FixedWalkThreads &) = delete;
    FixedWalkThreads &operator=(const FixedWalkThreads &) = delete;

private:
    std::optional<std::size_t> m_before;
};

/// Takes the time of the calling thread, which is inside a walk, and tells the pace now and then. After each folder.
void tickWalkPace();

} // namespace corvane
