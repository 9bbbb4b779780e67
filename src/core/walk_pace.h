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

/// Decides how many threads walks should have. If everything is cached, more threads than cores only compete; if each
/// listing waits for the disk, many parallel requests are answered several times faster.
class WalkPace {
public:
    /// What the walked files are stored on. A spinning disk gets slower with more parallel requests.
    enum class Disk : std::uint8_t { unknown, spinning };

    struct Limits {
        std::size_t cores = 1;
        std::size_t most = 1; ///< upper limit of threads
        Disk disk = Disk::unknown;
    };

    /// The number of threads for the next stretch, after one with `threads` of which each was on a core for the
    /// fraction `busy` of the time, 0 to 1. At most doubles the number, or the number of cores if that is more.
    [[nodiscard]] static std::size_t next(std::size_t threads, double busy, const Limits &limits);

    explicit WalkPace(const Limits &limits) : m_limits(limits), m_threads(limits.cores) {}

    /// Adds a measurement from one walking thread: elapsed time, CPU time, and whether it blocked at all. Returns the
    /// new number of threads if it changes. Any thread.
    [[nodiscard]] std::optional<std::size_t> add(std::chrono::nanoseconds taken, std::chrono::nanoseconds processor,
                                                 bool waited);

private:
    // The total time of all threads until the next decision: several listings of a slow disk, but too short for a user
    // to notice.
    static constexpr std::chrono::milliseconds stretch{10};

    const Limits m_limits;
    std::mutex m_lock;
    // Guarded by m_lock.
    std::size_t m_threads;
    std::chrono::nanoseconds m_taken{0};
    std::chrono::nanoseconds m_processor{0};
};

/// While one exists, the pool's number of threads follows how long walks wait for the disk; after the last, it is the
/// number of cores again. With several at a time, the first one's folder determines the disk.
class PacedWalk {
public:
    explicit PacedWalk(const std::string &folder);
    ~PacedWalk();
    PacedWalk(const PacedWalk &) = delete;
    PacedWalk &operator=(const PacedWalk &) = delete;

    /// The pace of the running walks; null if there are none, or if the number of threads is fixed.
    [[nodiscard]] static std::shared_ptr<WalkPace> current();
};

/// While it exists, walks have exactly that many threads, regardless of the disk. The innermost takes effect.
class FixedWalkThreads {
public:
    explicit FixedWalkThreads(std::size_t threads);
    ~FixedWalkThreads();
    FixedWalkThreads(const FixedWalkThreads &) = delete;
    FixedWalkThreads &operator=(const FixedWalkThreads &) = delete;

private:
    std::optional<std::size_t> m_before;
};

/// Measures the calling thread, which is inside a walk, and reports to the pace from time to time. Call after each
/// folder.
void tickWalkPace();

} // namespace corvane
