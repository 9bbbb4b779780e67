#include "core/walk_pace.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/work_pool.h"
#include "platform/open_file_limit.h"
#include "platform/spinning_disk.h"

namespace corvane {

namespace {

// More did not help on any disk measured.
constexpr std::size_t mostThreads = 32;

// Descriptors reserved for the rest of the program, and the minimum for one walking thread: the folder it is in, the
// one it opens, and one shared with those it takes work from.
constexpr std::size_t otherFiles = 8;
constexpr std::size_t filesOfAThread = 4;

struct Walks {
    std::mutex lock;
    // Guarded by the lock.
    std::size_t count = 0;
    std::shared_ptr<WalkPace> pace;
    std::optional<std::size_t> fixed; // the number of threads, if fixed
};

Walks &walks()
{
    static Walks *const all = new Walks; // never destroyed: threads may still walk while the program exits
    return *all;
}

std::size_t threadsWithinFiles()
{
    const std::size_t files = openFileLimit();
    return files > otherFiles + filesOfAThread ? (files - otherFiles) / filesOfAThread : 1;
}

} // namespace

std::size_t WalkPace::next(std::size_t threads, double busy, const Limits &limits)
{
    const std::size_t fewest = std::min(limits.cores, limits.most);
    if (limits.disk == Disk::spinning) {
        // Two, so that the disk always has a request pending.
        constexpr double mostlyWaiting = 0.5;
        return busy < mostlyWaiting ? std::min<std::size_t>(2, fewest) : fewest;
    }
    // Enough threads for those that are not waiting to occupy all cores.
    const double wanted = std::ceil(static_cast<double>(limits.cores) / std::clamp(busy, 0.01, 1.0));
    const std::size_t most = std::min(limits.most, std::max(threads, fewest) * 2);
    return std::clamp(static_cast<std::size_t>(wanted), fewest, std::max(fewest, most));
}

std::optional<std::size_t> WalkPace::add(std::chrono::nanoseconds taken, std::chrono::nanoseconds processor,
                                         bool waited)
{
    const std::scoped_lock lock(m_lock);
    m_taken += taken;
    // A thread that never waited was preempted by others, and more threads would not change that.
    m_processor += waited ? std::min(processor, taken) : taken;
    if (m_taken < stretch * static_cast<int>(m_threads))
        return std::nullopt;
    const double busy = std::chrono::duration<double>(m_processor) / std::chrono::duration<double>(m_taken);
    m_taken = m_processor = std::chrono::nanoseconds(0);
    const std::size_t before = std::exchange(m_threads, next(m_threads, busy, m_limits));
    return m_threads == before ? std::nullopt : std::optional(m_threads);
}

PacedWalk::PacedWalk(const std::string &folder)
{
    Walks &all = walks();
    const std::scoped_lock lock(all.lock);
    if (all.count++ > 0 || all.fixed)
        return;
    const WalkPace::Limits limits{.cores = WorkPool::cores(),
                                  .most = std::min(mostThreads, threadsWithinFiles()),
                                  .disk =
                                      isOnSpinningDisk(folder) ? WalkPace::Disk::spinning : WalkPace::Disk::unknown};
    all.pace = std::make_shared<WalkPace>(limits);
    WorkPool::instance().setLimit(std::min(limits.cores, limits.most));
}

PacedWalk::~PacedWalk()
{
    Walks &all = walks();
    const std::scoped_lock lock(all.lock);
    if (--all.count > 0 || all.fixed)
        return;
    all.pace.reset();
    WorkPool::instance().setLimit(WorkPool::cores());
}

std::shared_ptr<WalkPace> PacedWalk::current()
{
    Walks &all = walks();
    const std::scoped_lock lock(all.lock);
    return all.pace;
}

FixedWalkThreads::FixedWalkThreads(std::size_t threads)
{
    Walks &all = walks();
    const std::scoped_lock lock(all.lock);
    m_before = std::exchange(all.fixed, threads);
    all.pace.reset();
    WorkPool::instance().setLimit(threads);
}

FixedWalkThreads::~FixedWalkThreads()
{
    Walks &all = walks();
    const std::scoped_lock lock(all.lock);
    all.fixed = m_before;
    WorkPool::instance().setLimit(m_before.value_or(WorkPool::cores()));
}

void tickWalkPace()
{
    // Reading the clock costs almost nothing; querying the thread's CPU time costs as much as reading one file's
    // attributes.
    constexpr std::chrono::milliseconds interval(2);
    struct Meter {
        std::chrono::steady_clock::time_point since;
        ThreadUse use;
        std::shared_ptr<WalkPace> pace; // the pace it was measured for
        std::uint64_t rests = 0;
    };
    static thread_local Meter meter;
    const auto now = std::chrono::steady_clock::now();
    if (now - meter.since < interval)
        return;
    const Meter before = std::exchange(meter, {now, threadUse(), PacedWalk::current(), WorkPool::restsOfThisThread()});
    // What a thread did between two walks, or while idle, is irrelevant to the disk's speed.
    if (!meter.pace || meter.pace != before.pace || meter.rests != before.rests)
        return;
    const bool waited = !meter.use.waits || meter.use.waits != before.use.waits;
    if (const auto threads = meter.pace->add(now - before.since, meter.use.processor - before.use.processor, waited))
        WorkPool::instance().setLimit(*threads);
}

} // namespace corvane
