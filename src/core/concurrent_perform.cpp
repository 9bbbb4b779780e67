#include "core/concurrent_perform.h"

#include <atomic>

#include "core/work_pool.h"

namespace corvane {

namespace {

/// State of one call with more than one iteration; lives on the caller's stack.
class Iterations : public WorkPool::Job {
public:
    Iterations(std::size_t count, const std::function<void(std::size_t)> &body) : m_count(count), m_body(body) {}

    bool takeOne() noexcept override
    {
        const std::size_t iteration = m_next.fetch_add(1, std::memory_order_relaxed);
        if (iteration >= m_count)
            return false;
        m_body(iteration);
        return true;
    }

    [[nodiscard]] bool isHandedOut() const override { return m_next.load(std::memory_order_relaxed) >= m_count; }

private:
    const std::size_t m_count;
    const std::function<void(std::size_t)> &m_body;
    std::atomic<std::size_t> m_next = 0; // may run past the end
};

} // namespace

void concurrentPerform(std::size_t iterations, const std::function<void(std::size_t)> &body)
{
    if (iterations == 0)
        return;
    if (iterations == 1) {
        [&]() noexcept { body(0); }();
        return;
    }
    Iterations job(iterations, body);
    WorkPool::instance().perform(job, iterations - 1);
}

} // namespace corvane
